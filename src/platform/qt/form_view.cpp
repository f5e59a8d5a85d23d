#include "platform/qt/form_view.h"

#include "platform/qt/control_view.h"
#include "platform/qt/qt_keys.h"
#include "platform/qt/qt_style.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_ui.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QResizeEvent>

namespace zandolt::qt {

namespace {

// Without a display there is no stacking of windows to change, and the platform would only complain.
bool HasStacking()
{
    return QGuiApplication::platformName() != QLatin1String("offscreen");
}

} // namespace

// ---- FormWindow ------------------------------------------------------------------------------------------

FormWindow::FormWindow(FormView& view) : view_(view)
{
    setAttribute(Qt::WA_QuitOnClose, false);
}

void FormWindow::closeEvent(QCloseEvent* event)
{
    // The model decides: it unloads the form itself, or keeps it.
    event->ignore();
    view_.closeRequested();
}

void FormWindow::keyPressEvent(QKeyEvent* event)
{
    view_.keyPressed(event);
}

// ---- FormView --------------------------------------------------------------------------------------------

FormView::FormView(QtUi& ui, Form& form) : ui_(ui), form_(form) {}

FormView::~FormView()
{
    delete window_.data();
}

ControlView* FormView::view(const Control& control) const
{
    auto it = controls_.find(&control);
    return it == controls_.end() ? nullptr : it->second;
}

QAction* FormView::action(const MenuItem& item) const
{
    auto it = actions_.find(&item);
    return it == actions_.end() ? nullptr : it->second;
}

void FormView::build()
{
    window_ = new FormWindow(*this);
    window_->setObjectName(QString::fromStdString(form_.name()));
    canvas_ = new QWidget(window_);
    canvas_->setObjectName(QStringLiteral("canvas"));
    canvas_->installEventFilter(this);
    window_->setCentralWidget(canvas_);
    if (form_.fixedDialog())
        window_->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                                Qt::MSWindowsFixedSizeDialogHint);
    buildMenus();

    // All widgets on the canvas first, then each into its frame, once every frame exists.
    for (Control* c : form_.controls()) {
        auto* v = new ControlView(*this, *c);
        controls_[c] = v;
        v->build(canvas_);
    }
    for (Control* c : form_.controls())
        controls_[c]->place();

    window_->setWindowTitle(TextToQt(form_.caption()));
    applyBackColor();
    applySize();
    window_->setEnabled(form_.enabled());
    if (Control* f = form_.focused())
        if (ControlView* v = view(*f))
            v->focus();
}

void FormView::buildMenus()
{
    if (form_.menus().empty())
        return;
    QMenuBar* bar = window_->menuBar();
    for (MenuItem* top : form_.menus()) {
        QMenu* menu = bar->addMenu(TextToQt(top->caption()));
        actions_[top] = menu->menuAction();
        addMenuEntries(menu, *top);
        applyMenu(*top);
    }
}

void FormView::addMenuEntries(QMenu* menu, const MenuItem& parent)
{
    for (MenuItem* item : parent.children()) {
        QAction* a = nullptr;
        if (item->isSeparator()) {
            a = menu->addSeparator();
        } else if (!item->children().empty()) {
            QMenu* sub = menu->addMenu(TextToQt(item->caption()));
            a = sub->menuAction();
            addMenuEntries(sub, *item);
        } else {
            a = menu->addAction(TextToQt(item->caption()));
            QObject::connect(a, &QAction::triggered, this, [this, item] {
                if (disposed_)
                    return;
                ui_.call([item] { item->userClick(); });
                if (!disposed_)
                    applyMenu(*item);
            });
        }
        actions_[item] = a;
        applyMenu(*item);
    }
}

void FormView::applyMenu(MenuItem& item)
{
    QAction* a = action(item);
    if (!a || disposed_)
        return;
    if (!item.isSeparator())
        a->setText(TextToQt(item.caption()));
    a->setEnabled(item.enabled());
    a->setVisible(item.visible());
    // Only a checked entry shows a check mark; the others keep the room of a plain entry.
    if (a->menu() == nullptr && !item.isSeparator()) {
        a->setCheckable(item.checked());
        a->setChecked(item.checked());
    }
}

QWidget* FormView::containerWidget(const Control* container) const
{
    if (container)
        if (ControlView* v = view(*container); v && v->widget())
            return v->widget();
    return canvas_;
}

QButtonGroup* FormView::optionGroup(const Control* container)
{
    QButtonGroup*& g = optionGroups_[container];
    if (!g) {
        g = new QButtonGroup(this);
        g->setExclusive(true);
    }
    return g;
}

void FormView::applySize()
{
    const int w = TwipsToPixels(form_.width());
    const int h = TwipsToPixels(form_.height());
    // The model's size is the inner size, below the menu bar.
    int menuHeight = 0;
    if (!form_.menus().empty()) {
        QMenuBar* bar = window_->menuBar();
        menuHeight = bar->hasHeightForWidth() ? bar->heightForWidth(w) : bar->sizeHint().height();
    }
    if (form_.fixedDialog())
        window_->setFixedSize(w, h + menuHeight);
    else
        window_->resize(w, h + menuHeight);
}

void FormView::applyWindowState()
{
    Qt::WindowStates s = window_->windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    if (form_.windowState() == 1)
        s |= Qt::WindowMinimized;
    else if (form_.windowState() == 2 && !form_.fixedDialog())
        s |= Qt::WindowMaximized;
    if (s != window_->windowState())
        window_->setWindowState(s);
}

void FormView::applyBackColor()
{
    QPalette p = canvas_->palette();
    p.setColor(QPalette::Window, ToQColor(form_.backColor(), QApplication::palette()));
    canvas_->setPalette(p);
    canvas_->setAutoFillBackground(true);
}

void FormView::apply(Prop prop)
{
    if (disposed_)
        return;
    switch (prop) {
    case Prop::Caption:
        window_->setWindowTitle(TextToQt(form_.caption()));
        break;
    case Prop::Geometry:
        applySize();
        break;
    case Prop::BackColor:
        applyBackColor();
        break;
    case Prop::WindowState:
        applyWindowState();
        break;
    case Prop::Enabled:
        window_->setEnabled(form_.enabled());
        break;
    default:
        break;
    }
}

void FormView::show(bool modal)
{
    if (disposed_)
        return;
    const Qt::WindowModality want = modal ? Qt::ApplicationModal : Qt::NonModal;
    if (window_->windowModality() != want) {
        // Modality can change only while the window is hidden.
        if (window_->isVisible())
            window_->hide();
        window_->setWindowModality(want);
    }
    applyWindowState();
    window_->show();
    bringToFront();
}

void FormView::bringToFront()
{
    if (HasStacking())
        window_->raise();
    window_->activateWindow();
}

void FormView::hide()
{
    if (!disposed_)
        window_->hide();
    if (modalLoop)
        modalLoop->quit();
}

void FormView::zOrder(int position)
{
    if (disposed_ || !window_->isVisible())
        return;
    if (position == 0) {
        bringToFront();
    } else if (HasStacking()) {
        window_->lower();
    }
}

void FormView::dispose()
{
    if (disposed_)
        return;
    disposed_ = true;
    for (auto& [control, v] : controls_)
        v->dispose();
    canvas_->removeEventFilter(this);
    for (auto& [item, a] : actions_)
        QObject::disconnect(a, nullptr, this, nullptr);
    window_->hide();
    if (modalLoop)
        modalLoop->quit();
}

void FormView::closeRequested()
{
    if (disposed_)
        return;
    Form& f = form_;
    ui_.call([&f] { f.userClose(); });
}

bool FormView::controlHasFocus() const
{
    const QWidget* focus = QApplication::focusWidget();
    for (const QWidget* w = focus; w && w != window_; w = w->parentWidget())
        for (const auto& [control, v] : controls_)
            if (v->widget() == w)
                return true;
    return false;
}

void FormView::keyPressed(QKeyEvent* event)
{
    // A control's keys reached it before its widget; what its widget left over ends here.
    if (disposed_ || controlHasFocus()) {
        event->ignore();
        return;
    }
    const ClassicKey key = ToClassicKey(event->key(), event->modifiers(), event->text());
    if (key.keyCode == 0 && key.keyAscii == 0) {
        event->ignore();
        return;
    }
    Form& f = form_;
    ui_.call([&f, key] { f.userKey(key.keyCode, key.keyAscii, key.shift); });
}

bool FormView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != canvas_ || disposed_)
        return false;
    Form& f = form_;
    if (event->type() == QEvent::Resize) {
        const QSize s = static_cast<QResizeEvent*>(event)->size();
        ui_.call([&f, s] { f.userResized(PixelsToTwips(s.width()), PixelsToTwips(s.height())); });
    } else if (event->type() == QEvent::MouseButtonRelease &&
               static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        ui_.call([&f] { f.userClick(); });
    }
    return false;
}

} // namespace zandolt::qt
