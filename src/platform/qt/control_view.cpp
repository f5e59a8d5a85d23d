#include "platform/qt/control_view.h"

#include "platform/qt/form_view.h"
#include "platform/qt/picture_view.h"
#include "platform/qt/qt_style.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_ui.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>

namespace zandolt::qt {

namespace {

// A multi-line box shows line breaks as the widget knows them; the model writes CR LF.
QString MultiLineToQt(const std::string& text)
{
    QString s = TextToQt(text);
    s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return s;
}

// Sets a colour for the active and inactive states and leaves the disabled look to the style.
void SetRole(QPalette& palette, QPalette::ColorRole role, const QColor& color)
{
    palette.setColor(QPalette::Active, role, color);
    palette.setColor(QPalette::Inactive, role, color);
}

// Check boxes and option buttons take a click anywhere on the control, not only on their text.
class CheckWidget : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

protected:
    bool hitButton(const QPoint& pos) const override { return rect().contains(pos); }
};

class OptionWidget : public QRadioButton
{
public:
    using QRadioButton::QRadioButton;

protected:
    bool hitButton(const QPoint& pos) const override { return rect().contains(pos); }
};

struct Guard
{
    int& counter;
    explicit Guard(int& c) : counter(c) { ++counter; }
    ~Guard() { --counter; }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
};

} // namespace

ControlView::ControlView(FormView& form, Control& control)
    : QObject(&form), form_(form), ui_(form.ui()), control_(control)
{
}

ControlView::~ControlView()
{
    // The widget belongs to the window, which goes with the form view.
}

void ControlView::build(QWidget* parent)
{
    if (control_.kind() == ControlKind::Timer) {
        timer_ = new QTimer(this);
        timer_->setTimerType(Qt::PreciseTimer);
        QObject::connect(timer_, &QTimer::timeout, this, [this] { tick(); });
        restartTimer();
        return;
    }
    widget_ = createWidget(parent);
    widget_->setObjectName(QString::fromStdString(control_.name()));
    connectSignals();
    applyAll();
}

QWidget* ControlView::createWidget(QWidget* parent)
{
    multiLineWidget_ = false;
    switch (control_.kind()) {
    case ControlKind::Label: {
        auto* l = new QLabel(parent);
        l->setTextFormat(Qt::PlainText);
        l->setWordWrap(true);
        return l;
    }
    case ControlKind::TextBox:
        if (control_.multiLine()) {
            multiLineWidget_ = true;
            auto* t = new QPlainTextEdit(parent);
            watch(t->viewport());
            return t;
        }
        return new QLineEdit(parent);
    case ControlKind::ListBox: {
        auto* l = new QListWidget(parent);
        l->setSelectionMode(QAbstractItemView::SingleSelection);
        l->setUniformItemSizes(true);
        watch(l->viewport());
        return l;
    }
    case ControlKind::ComboBox: {
        auto* c = new QComboBox(parent);
        c->setInsertPolicy(QComboBox::NoInsert);
        return c;
    }
    case ControlKind::CheckBox:
        return new CheckWidget(parent);
    case ControlKind::OptionButton:
        return new OptionWidget(parent);
    case ControlKind::CommandButton: {
        auto* b = new QPushButton(parent);
        // Enter and Escape are the model's to handle; the default button only looks the part.
        b->setAutoDefault(false);
        b->setDefault(control_.isDefault());
        return b;
    }
    case ControlKind::Frame:
        return new QGroupBox(parent);
    case ControlKind::ScrollBar:
        return new QScrollBar(parent);
    case ControlKind::Image:
        return new PictureView(ui_.pictureRoot(), parent);
    case ControlKind::Timer:
        break;
    }
    return new QWidget(parent);
}

void ControlView::watch(QObject* object)
{
    object->installEventFilter(this);
}

void ControlView::place()
{
    if (!widget_)
        return;
    QWidget* parent = form_.containerWidget(control_.container());
    if (widget_->parentWidget() != parent) {
        widget_->setParent(parent);
        widget_->setGeometry(ControlRect(control_));
        widget_->setVisible(control_.visible());
    }
    if (control_.kind() == ControlKind::OptionButton) {
        auto* radio = static_cast<QRadioButton*>(widget_.data());
        if (QButtonGroup* old = radio->group())
            old->removeButton(radio);
        form_.optionGroup(control_.container())->addButton(radio);
        applyValue();
    }
}

void ControlView::rebuild()
{
    QWidget* old = widget_;
    QWidget* parent = old->parentWidget();
    old->hide();
    old->removeEventFilter(this);
    QObject::disconnect(old, nullptr, this, nullptr);
    const bool hadFocus = old->hasFocus();
    ui_.bury(old);
    widget_ = createWidget(parent);
    widget_->setObjectName(QString::fromStdString(control_.name()));
    connectSignals();
    applyAll();
    if (hadFocus)
        widget_->setFocus(Qt::OtherFocusReason);
}

void ControlView::applyAll()
{
    if (!widget_)
        return;
    Guard g(syncing_);
    applyCaption();
    applyText();
    applyItems();
    applyRange();
    applyValue();
    applyColors();
    widget_->setFont(ModelFont(control_.fontName(), control_.fontSize(), control_.fontBold(), QApplication::font()));
    applyAlignment();
    applyBorder();
    apply(Prop::PasswordChar);
    apply(Prop::Locked);
    apply(Prop::Style);
    apply(Prop::Picture);
    widget_->setGeometry(ControlRect(control_));
    widget_->setEnabled(control_.enabled());
    widget_->setVisible(control_.visible());
}

void ControlView::apply(Prop prop)
{
    if (disposed_)
        return;
    if (control_.kind() == ControlKind::Timer) {
        if (prop == Prop::Interval || prop == Prop::Enabled)
            restartTimer();
        return;
    }
    if (!widget_)
        return;
    Guard g(syncing_);
    switch (prop) {
    case Prop::Caption:
        applyCaption();
        break;
    case Prop::Text:
        applyText();
        break;
    case Prop::Visible:
        widget_->setVisible(control_.visible());
        break;
    case Prop::Enabled:
        widget_->setEnabled(control_.enabled());
        break;
    case Prop::Geometry:
        widget_->setGeometry(ControlRect(control_));
        break;
    case Prop::ForeColor:
    case Prop::BackColor:
        applyColors();
        break;
    case Prop::Font:
        widget_->setFont(
            ModelFont(control_.fontName(), control_.fontSize(), control_.fontBold(), QApplication::font()));
        break;
    case Prop::Items:
        applyItems();
        break;
    case Prop::ListIndex:
        applyListIndex();
        if (control_.kind() == ControlKind::ComboBox)
            applyText();
        break;
    case Prop::Value:
        applyValue();
        break;
    case Prop::Range:
        applyRange();
        break;
    case Prop::PasswordChar:
        if (auto* e = qobject_cast<QLineEdit*>(widget_))
            e->setEchoMode(control_.passwordChar() ? QLineEdit::Password : QLineEdit::Normal);
        break;
    case Prop::Picture:
        if (auto* p = dynamic_cast<PictureView*>(widget_.data()))
            p->setPicture(TextToQt(control_.picture()));
        break;
    case Prop::Alignment:
        applyAlignment();
        break;
    case Prop::Locked:
        if (auto* e = qobject_cast<QLineEdit*>(widget_))
            e->setReadOnly(control_.locked());
        else if (auto* t = qobject_cast<QPlainTextEdit*>(widget_))
            t->setReadOnly(control_.locked());
        break;
    case Prop::BorderStyle:
        applyBorder();
        break;
    case Prop::Style:
        if (control_.kind() == ControlKind::TextBox && control_.multiLine() != multiLineWidget_) {
            rebuild();
        } else if (auto* t = qobject_cast<QPlainTextEdit*>(widget_)) {
            const int bars = control_.scrollBars();
            t->setLineWrapMode(bars & 1 ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
            t->setHorizontalScrollBarPolicy(bars & 1 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
            t->setVerticalScrollBarPolicy(bars & 2 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
        } else if (auto* c = qobject_cast<QComboBox*>(widget_)) {
            const bool editable = control_.style() != 2;
            if (c->isEditable() != editable) {
                c->setEditable(editable);
                if (editable) {
                    watch(c->lineEdit());
                    connectSignals();
                }
                applyText();
            }
        }
        break;
    case Prop::Container:
        place();
        break;
    case Prop::Interval:
    case Prop::WindowState:
    case Prop::Checked:
        break;
    }
}

void ControlView::applyCaption()
{
    const QString caption = TextToQt(control_.caption());
    if (auto* l = qobject_cast<QLabel*>(widget_))
        l->setText(caption);
    else if (auto* b = qobject_cast<QAbstractButton*>(widget_))
        b->setText(caption);
    else if (auto* g = qobject_cast<QGroupBox*>(widget_))
        g->setTitle(caption);
}

void ControlView::applyText()
{
    if (auto* e = qobject_cast<QLineEdit*>(widget_)) {
        const QString t = TextToQt(control_.text());
        if (e->text() != t)
            e->setText(t);
    } else if (auto* p = qobject_cast<QPlainTextEdit*>(widget_)) {
        const QString t = MultiLineToQt(control_.text());
        if (p->toPlainText() != t)
            p->setPlainText(t);
    } else if (auto* c = qobject_cast<QComboBox*>(widget_)) {
        if (c->isEditable() && c->currentText() != TextToQt(control_.text()))
            c->setEditText(TextToQt(control_.text()));
    }
}

void ControlView::applyItems()
{
    QStringList items;
    for (const std::string& item : control_.items())
        items.append(TextToQt(item));
    if (auto* l = qobject_cast<QListWidget*>(widget_)) {
        l->clear();
        l->addItems(items);
    } else if (auto* c = qobject_cast<QComboBox*>(widget_)) {
        c->clear();
        c->addItems(items);
    } else {
        return;
    }
    applyListIndex();
    applyText();
}

void ControlView::applyListIndex()
{
    const int index = control_.listIndex();
    if (auto* l = qobject_cast<QListWidget*>(widget_)) {
        if (index < 0) {
            l->clearSelection();
            l->setCurrentRow(-1);
        } else if (l->currentRow() != index || !l->item(index)->isSelected()) {
            l->setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
        }
        if (index >= 0)
            l->scrollToItem(l->item(index));
    } else if (auto* c = qobject_cast<QComboBox*>(widget_)) {
        if (c->currentIndex() != index)
            c->setCurrentIndex(index);
    }
}

void ControlView::applyValue()
{
    const int v = control_.value();
    if (auto* check = qobject_cast<QCheckBox*>(widget_)) {
        const Qt::CheckState state = v == 1 ? Qt::Checked : v == 2 ? Qt::PartiallyChecked : Qt::Unchecked;
        check->setTristate(v == 2);
        if (check->checkState() != state)
            check->setCheckState(state);
    } else if (auto* radio = qobject_cast<QRadioButton*>(widget_)) {
        const bool on = v != 0;
        if (radio->isChecked() != on) {
            // An exclusive group lets no button be switched off by itself; the model may do that.
            QButtonGroup* group = radio->group();
            if (group && !on)
                group->setExclusive(false);
            radio->setChecked(on);
            if (group && !on)
                group->setExclusive(true);
        }
    } else if (auto* bar = qobject_cast<QScrollBar*>(widget_)) {
        if (bar->value() != v)
            bar->setValue(v);
    }
}

void ControlView::applyRange()
{
    if (auto* bar = qobject_cast<QScrollBar*>(widget_)) {
        const int lo = std::min(control_.min(), control_.max());
        const int hi = std::max(control_.min(), control_.max());
        bar->setOrientation(control_.horizontal() ? Qt::Horizontal : Qt::Vertical);
        // A bar whose Min is above its Max counts the other way.
        bar->setInvertedAppearance(control_.min() > control_.max());
        bar->setInvertedControls(control_.min() > control_.max());
        bar->setRange(lo, hi);
        bar->setSingleStep(control_.smallChange());
        bar->setPageStep(control_.largeChange());
        if (bar->value() != control_.value())
            bar->setValue(control_.value());
    }
}

void ControlView::applyColors()
{
    const QPalette app = QApplication::palette();
    const QColor fore = ToQColor(control_.foreColor(), app);
    const QColor back = ToQColor(control_.backColor(), app);
    // A background of its own shows only where the model gave one; otherwise the form shows through.
    const bool ownBack = control_.backColor() != colors::SysButtonFace;
    QPalette p = widget_->palette();
    switch (control_.kind()) {
    case ControlKind::Label:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::Frame:
        SetRole(p, QPalette::WindowText, fore);
        SetRole(p, QPalette::Window, back);
        widget_->setAutoFillBackground(ownBack);
        break;
    case ControlKind::TextBox:
    case ControlKind::ListBox:
        SetRole(p, QPalette::Text, fore);
        SetRole(p, QPalette::Base, back);
        break;
    case ControlKind::ComboBox:
        SetRole(p, QPalette::Text, fore);
        SetRole(p, QPalette::ButtonText, fore);
        SetRole(p, QPalette::Base, back);
        break;
    case ControlKind::CommandButton:
        SetRole(p, QPalette::ButtonText, fore);
        SetRole(p, QPalette::Button, back);
        break;
    default:
        return;
    }
    widget_->setPalette(p);
}

void ControlView::applyAlignment()
{
    const int a = control_.alignment();
    if (auto* l = qobject_cast<QLabel*>(widget_)) {
        l->setAlignment(LabelAlignment(a));
    } else if (auto* e = qobject_cast<QLineEdit*>(widget_)) {
        e->setAlignment((LabelAlignment(a) & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter);
    } else if (qobject_cast<QCheckBox*>(widget_) || qobject_cast<QRadioButton*>(widget_)) {
        // Right alignment puts the box on the right of the caption.
        widget_->setLayoutDirection(a == 1 ? Qt::RightToLeft : Qt::LeftToRight);
    }
}

void ControlView::applyBorder()
{
    if (auto* l = qobject_cast<QLabel*>(widget_)) {
        l->setFrameStyle(control_.borderStyle() == 1 ? QFrame::Box | QFrame::Plain : QFrame::NoFrame);
        l->setLineWidth(1);
        l->setMargin(control_.borderStyle() == 1 ? 1 : 0);
    } else if (auto* e = qobject_cast<QLineEdit*>(widget_)) {
        e->setFrame(control_.borderStyle() != 0);
    } else if (auto* t = qobject_cast<QPlainTextEdit*>(widget_)) {
        t->setFrameStyle(control_.borderStyle() != 0 ? QFrame::StyledPanel | QFrame::Sunken : QFrame::NoFrame);
    }
}

void ControlView::focus()
{
    if (!widget_ || disposed_)
        return;
    Guard g(syncing_);
    QWidget* target = widget_;
    if (auto* c = qobject_cast<QComboBox*>(widget_); c && c->isEditable())
        target = c;
    target->setFocus(Qt::OtherFocusReason);
}

void ControlView::restartTimer()
{
    if (!timer_)
        return;
    timer_->stop();
    if (!disposed_ && control_.form().loaded() && control_.enabled() && control_.interval() > 0)
        timer_->start(control_.interval());
}

void ControlView::tick()
{
    // A handler that is still running (in a message box, say) is not entered a second time.
    if (disposed_ || firing_)
        return;
    firing_ = true;
    ui_.call([this] { control_.fireTimer(); });
    firing_ = false;
}

void ControlView::dispose()
{
    disposed_ = true;
    if (timer_)
        timer_->stop();
    if (widget_) {
        QObject::disconnect(widget_, nullptr, this, nullptr);
        widget_->removeEventFilter(this);
    }
}

bool ControlView::live() const
{
    return !disposed_ && widget_;
}

} // namespace zandolt::qt
