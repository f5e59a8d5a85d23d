#include "platform/qt/picture_view.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

namespace zandolt::qt {

PictureView::PictureView(const QString& root, QWidget* parent) : QWidget(parent), root_(root)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAutoFillBackground(false);
}

PictureView::~PictureView() = default;

void PictureView::setPicture(const QString& name)
{
    if (name == name_)
        return;
    name_ = name;
    svg_.reset();
    pixmap_ = QPixmap();
    if (!name.isEmpty()) {
        const QString svgPath = root_ + "/" + name + ".svg";
        const QString pngPath = root_ + "/" + name + ".png";
        if (QFile::exists(svgPath)) {
            svg_ = std::make_unique<QSvgRenderer>(svgPath);
            if (!svg_->isValid())
                svg_.reset();
        } else if (QFile::exists(pngPath)) {
            pixmap_.load(pngPath);
        }
    }
    update();
}

bool PictureView::hasPicture() const
{
    return svg_ || !pixmap_.isNull();
}

void PictureView::paintEvent(QPaintEvent*)
{
    if (!hasPicture())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::Antialiasing);
    if (svg_) {
        QSizeF size = svg_->viewBoxF().size();
        if (size.isEmpty())
            size = svg_->defaultSize();
        svg_->render(&painter, QRectF(FitKeepingAspect(size, rect())));
    } else {
        painter.drawPixmap(FitKeepingAspect(pixmap_.size(), rect()), pixmap_);
    }
}

QRect FitKeepingAspect(const QSizeF& content, const QRect& area)
{
    if (content.isEmpty() || area.isEmpty())
        return area;
    const double scale = std::min(area.width() / content.width(), area.height() / content.height());
    const int w = static_cast<int>(std::lround(content.width() * scale));
    const int h = static_cast<int>(std::lround(content.height() * scale));
    return QRect(area.x() + (area.width() - w) / 2, area.y() + (area.height() - h) / 2, w, h);
}

} // namespace zandolt::qt
