// The widget of an Image control: a picture of the program's resources, scaled into the control with
// its proportions kept. Its background is transparent, so that pictures laid over each other compose.
#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

#include <memory>

class QSvgRenderer;

namespace zandolt::qt {

class PictureView : public QWidget
{
public:
    // root is where pictures are looked up: "<root>/<name>.svg", then "<root>/<name>.png".
    PictureView(const QString& root, QWidget* parent);
    ~PictureView() override;

    // An empty name, or one without a picture, shows nothing.
    void setPicture(const QString& name);
    const QString& picture() const { return name_; }
    bool hasPicture() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString root_;
    QString name_;
    std::unique_ptr<QSvgRenderer> svg_;
    QPixmap pixmap_;
};

// The rectangle of size `content` scaled to fit `area` with its proportions kept, centred in it.
QRect FitKeepingAspect(const QSizeF& content, const QRect& area);

} // namespace zandolt::qt
