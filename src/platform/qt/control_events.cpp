// What the user does to a control's widget, handed to the control. Every path checks afterwards
// whether the form is still there: a handler may unload it.
#include "platform/qt/control_view.h"

#include "platform/qt/form_view.h"
#include "platform/qt/qt_keys.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_ui.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextDocumentFragment>

namespace zandolt::qt {

namespace {

MouseButton ToMouseButton(Qt::MouseButton b)
{
    switch (b) {
    case Qt::RightButton:
        return MouseButton::Right;
    case Qt::MiddleButton:
        return MouseButton::Middle;
    default:
        return MouseButton::Left;
    }
}

// Controls whose widget has no click of its own: a release over them is their click.
bool ClicksOnRelease(ControlKind kind)
{
    return kind == ControlKind::Label || kind == ControlKind::Image || kind == ControlKind::Frame;
}

bool IsButton(ControlKind kind)
{
    return kind == ControlKind::CommandButton || kind == ControlKind::CheckBox || kind == ControlKind::OptionButton;
}

std::string MultiLineFromQt(const QString& text)
{
    QString s = text;
    s.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    return TextFromQt(s);
}

} // namespace

template <class F> void ControlView::forward(F&& f, Prop resync)
{
    ui_.call(std::forward<F>(f));
    // The model may have refused or changed what the user did; the widget shows what it holds.
    if (live())
        apply(resync);
}

void ControlView::connectSignals()
{
    QObject::disconnect(widget_, nullptr, this, nullptr);
    watch(widget_);
    Control& c = control_;
    if (auto* button = qobject_cast<QAbstractButton*>(widget_)) {
        QObject::connect(button, &QAbstractButton::clicked, this, [this, &c] {
            if (!disposed_ && !syncing_)
                forward([&c] { c.userClick(); }, Prop::Value);
        });
    } else if (auto* list = qobject_cast<QListWidget*>(widget_)) {
        // The selection, not the current row: a list that gets the focus by the keyboard makes its
        // first row current without selecting it, and that is no choice of the user's.
        QObject::connect(list, &QListWidget::itemSelectionChanged, this, [this, &c, list] {
            const QList<QListWidgetItem*> selected = list->selectedItems();
            if (disposed_ || syncing_ || selected.isEmpty())
                return;
            const int row = list->row(selected.first());
            forward([&c, row] { c.userSelect(row); }, Prop::ListIndex);
        });
    } else if (auto* combo = qobject_cast<QComboBox*>(widget_)) {
        QObject::connect(combo, &QComboBox::activated, this, [this, &c](int index) {
            if (!disposed_ && !syncing_ && index >= 0)
                forward([&c, index] { c.userSelect(index); }, Prop::ListIndex);
        });
        if (QLineEdit* edit = combo->lineEdit()) {
            QObject::disconnect(edit, nullptr, this, nullptr);
            watch(edit);
            QObject::connect(edit, &QLineEdit::textEdited, this, [this, &c](const QString& text) {
                if (!disposed_ && !syncing_)
                    forward([&c, t = TextFromQt(text)] { c.userEdit(t); }, Prop::Text);
            });
        }
    } else if (auto* edit = qobject_cast<QLineEdit*>(widget_)) {
        QObject::connect(edit, &QLineEdit::textEdited, this, [this, &c](const QString& text) {
            if (!disposed_ && !syncing_)
                forward([&c, t = TextFromQt(text)] { c.userEdit(t); }, Prop::Text);
        });
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(widget_)) {
        QObject::connect(plain, &QPlainTextEdit::textChanged, this, [this, &c, plain] {
            if (!disposed_ && !syncing_)
                forward([&c, t = MultiLineFromQt(plain->toPlainText())] { c.userEdit(t); }, Prop::Text);
        });
        QObject::connect(plain, &QPlainTextEdit::selectionChanged, this, [this, &c, plain] {
            if (!disposed_)
                c.userSelectText(MultiLineFromQt(plain->textCursor().selection().toPlainText()));
        });
    } else if (auto* bar = qobject_cast<QScrollBar*>(widget_)) {
        QObject::connect(bar, &QScrollBar::valueChanged, this, [this, &c](int value) {
            if (!disposed_ && !syncing_ && c.enabled() && c.form().enabled())
                forward([&c, value] { c.setValue(value); }, Prop::Value);
        });
    }
}

bool ControlView::eventFilter(QObject* watched, QEvent* event)
{
    if (disposed_)
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return watched == widget_ && keyPressed(watched, static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return mouseEvent(watched, event);
    case QEvent::FocusIn: {
        // The user moved the focus here; the model's own SetFocus comes with another reason.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (watched == widget_ && !syncing_ &&
            (reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
             reason == Qt::ShortcutFocusReason) &&
            control_.form().focused() != &control_)
            ui_.call([this] { control_.SetFocus(); });
        return false;
    }
    default:
        return false;
    }
}

bool ControlView::keyPressed(QObject* watched, QKeyEvent* event)
{
    if (passKey_)
        return false;
    const ClassicKey key = ToClassicKey(event->key(), event->modifiers(), event->text());
    if (key.keyCode == 0 && key.keyAscii == 0)
        return false;
    int left = 0;
    ui_.call([&] { left = control_.userKey(key.keyCode, key.keyAscii, key.shift); });
    if (!live())
        return true;
    if (key.keyAscii == 0) {
        // A key that types nothing (an arrow, Delete) does its work in the widget while the control
        // can still take it.
        const Form& f = control_.form();
        return !(f.loaded() && f.enabled() && control_.enabled() && control_.visible());
    }
    if (left == 0)
        return true;
    if (left == key.keyAscii)
        return false;
    // A handler changed the character: the widget types that one instead.
    QKeyEvent changed(QEvent::KeyPress, event->key(), event->modifiers(), KeyAsciiText(left), event->isAutoRepeat());
    passKey_ = true;
    QCoreApplication::sendEvent(watched, &changed);
    passKey_ = false;
    return true;
}

bool ControlView::mouseEvent(QObject* watched, QEvent* event)
{
    auto* me = static_cast<QMouseEvent*>(event);
    const MouseButton button = ToMouseButton(me->button());
    const ControlKind kind = control_.kind();
    Control& c = control_;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        ui_.call([&c, button] { c.userMouseDown(button); });
        break;
    case QEvent::MouseButtonDblClick:
        // A button counts a quick second click as another click, the others as a double click.
        if (IsButton(kind))
            ui_.call([&c, button] { c.userMouseDown(button); });
        else
            ui_.call([&c] { c.userDoubleClick(); });
        break;
    case QEvent::MouseButtonRelease: {
        ui_.call([&c, button] { c.userMouseUp(button); });
        auto* w = qobject_cast<QWidget*>(watched);
        if (live() && ClicksOnRelease(kind) && button == MouseButton::Left && w &&
            w->rect().contains(me->position().toPoint()))
            ui_.call([&c] { c.userClick(); });
        break;
    }
    default:
        break;
    }
    // A label, picture or frame keeps its clicks, which would otherwise go on to the form. Other
    // widgets do their own part of the click while the form still shows them.
    return ClicksOnRelease(kind) || !live();
}

} // namespace zandolt::qt
