// One control of a loaded form as a Qt widget (or, for a Timer, a QTimer): built by kind, kept in
// step with the model's properties, and forwarding the user's clicks, selections, edits, keys and
// mouse buttons to the control.
#pragma once

#include "platform/ui.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

class QTimer;
class QKeyEvent;
class QMouseEvent;

namespace zandolt::qt {

class FormView;
class QtUi;

class ControlView : public QObject
{
public:
    ControlView(FormView& form, Control& control);
    ~ControlView() override;

    Control& control() const { return control_; }
    QWidget* widget() const { return widget_; }
    QTimer* timer() const { return timer_; }

    // Creates the widget inside parent, with every property of the model.
    void build(QWidget* parent);
    // Puts the widget into the widget of its container (a frame), or onto the form.
    void place();
    void apply(Prop prop);
    void applyAll();
    void focus();
    // The form is gone: from now on nothing reaches the model, and the timer stands still.
    void dispose();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* createWidget(QWidget* parent);
    void connectSignals();
    void watch(QObject* object);
    void rebuild();
    void restartTimer();
    void tick();

    void applyCaption();
    void applyText();
    void applyItems();
    void applyListIndex();
    void applyValue();
    void applyRange();
    void applyColors();
    void applyAlignment();
    void applyBorder();

    // Forwards a user's act to the model and puts the model's answer back on the widget.
    template <class F> void forward(F&& f, Prop resync);
    bool keyPressed(QObject* watched, QKeyEvent* event);
    bool mouseEvent(QObject* watched, QEvent* event);
    bool live() const;

    FormView& form_;
    QtUi& ui_;
    Control& control_;
    QPointer<QWidget> widget_;
    QTimer* timer_ = nullptr;
    // Above 0 while the model's values are being put on the widget, whose own signals are then no
    // user's doing.
    int syncing_ = 0;
    bool disposed_ = false;
    bool firing_ = false;
    bool passKey_ = false;
    bool multiLineWidget_ = false;
};

} // namespace zandolt::qt
