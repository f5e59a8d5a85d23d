#include "platform/qt/qt_ui.h"

#include "platform/qt/control_view.h"
#include "platform/qt/form_view.h"
#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <cstdio>

// The pictures are compiled into the backend's library, which the linker would otherwise leave out.
static void InitPictureResources()
{
    Q_INIT_RESOURCE(resources);
}

namespace zandolt::qt {

QtUi::QtUi(QString pictureRoot) : pictureRoot_(std::move(pictureRoot))
{
    InitPictureResources();
    // The program ends by its Exit entry alone, never because a window was closed.
    QApplication::setQuitOnLastWindowClosed(false);
}

QtUi::~QtUi()
{
    for (auto& [form, view] : views_) {
        view->dispose();
        graveyard_.emplace_back(view);
    }
    views_.clear();
    for (auto& object : graveyard_)
        delete object.data();
    graveyard_.clear();
    if (busy_)
        QApplication::restoreOverrideCursor();
}

FormView* QtUi::find(const Form& form) const
{
    auto it = views_.find(&form);
    return it == views_.end() ? nullptr : it->second;
}

// ---- windows ---------------------------------------------------------------------------------------------

void QtUi::formLoaded(Form& form)
{
    if (find(form))
        return;
    auto* view = new FormView(*this, form);
    views_[&form] = view;
    view->build();
}

void QtUi::formUnloaded(Form& form)
{
    // The form's controls may be gone already (the program is ending): only the view is touched.
    FormView* view = find(form);
    if (!view)
        return;
    views_.erase(&form);
    view->dispose();
    bury(view);
}

void QtUi::formShown(Form& form, bool modal)
{
    FormView* view = find(form);
    if (!view)
        return;
    view->show(modal);
    if (!modal)
        return;
    QEventLoop loop;
    QPointer<FormView> guard(view);
    view->modalLoop = &loop;
    if (form.loaded() && form.visible() && !quitRequested_)
        loop.exec();
    // The view may be gone by now, when the form was unloaded and its widgets deleted.
    if (guard)
        guard->modalLoop = nullptr;
}

void QtUi::formHidden(Form& form)
{
    if (FormView* view = find(form))
        view->hide();
}

void QtUi::formChanged(Form& form, Prop prop)
{
    if (FormView* view = find(form))
        view->apply(prop);
}

void QtUi::formZOrder(Form& form, int position)
{
    if (FormView* view = find(form))
        view->zOrder(position);
}

void QtUi::controlChanged(Control& control, Prop prop)
{
    if (FormView* view = find(control.form()))
        if (ControlView* v = view->view(control))
            v->apply(prop);
}

void QtUi::menuChanged(MenuItem& item)
{
    if (FormView* view = find(item.form()))
        view->applyMenu(item);
}

void QtUi::focusChanged(Control& control)
{
    if (FormView* view = find(control.form()))
        if (ControlView* v = view->view(control))
            v->focus();
}

QWidget* QtUi::window(const Form& form) const
{
    FormView* view = find(form);
    return view ? view->window() : nullptr;
}

QWidget* QtUi::widget(const Control& control) const
{
    FormView* view = find(control.form());
    ControlView* v = view ? view->view(control) : nullptr;
    return v ? v->widget() : nullptr;
}

QAction* QtUi::action(const MenuItem& item) const
{
    FormView* view = find(item.form());
    return view ? view->action(item) : nullptr;
}

QTimer* QtUi::timer(const Control& control) const
{
    FormView* view = find(control.form());
    ControlView* v = view ? view->view(control) : nullptr;
    return v ? v->timer() : nullptr;
}

// ---- what lives on after its window ----------------------------------------------------------------------

void QtUi::bury(QObject* object)
{
    graveyard_.emplace_back(object);
    if (depth_ == 0)
        scheduleFlush();
}

void QtUi::scheduleFlush()
{
    if (flushScheduled_)
        return;
    flushScheduled_ = true;
    QTimer::singleShot(0, &flushContext_, [this] { flush(); });
}

void QtUi::flush()
{
    flushScheduled_ = false;
    // A call into the model is still running, perhaps from inside one of these widgets; the end of
    // that call schedules the flush again.
    if (depth_ > 0)
        return;
    std::vector<QPointer<QObject>> dead;
    dead.swap(graveyard_);
    for (auto& object : dead)
        delete object.data();
}

void QtUi::reportFailure(const char* what)
{
    ShowHandlerFailure(what);
}

// ---- dialogs and the loop --------------------------------------------------------------------------------

int QtUi::msgBox(const std::string& prompt, int buttons, const std::string& title)
{
    return RunMessageBox(prompt, buttons, title);
}

std::string QtUi::inputBox(const std::string& prompt, const std::string& title, const std::string& defaultText)
{
    return RunInputBox(prompt, title, defaultText);
}

bool QtUi::fontDialog(std::string& name, float& size)
{
    return RunFontDialog(name, size);
}

void QtUi::beep()
{
    QApplication::beep();
}

void QtUi::setBusy(bool busy)
{
    if (busy == busy_)
        return;
    busy_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtUi::doEvents()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    // A loop that waits by letting events run would otherwise keep a core busy.
    QThread::usleep(200);
}

void QtUi::quit()
{
    quitRequested_ = true;
    // exit, not quit: QApplication's quit first asks every window to close, and a form's close box
    // is the model's to answer. exit ends every loop, the modal ones included.
    QCoreApplication::exit(0);
}

int QtUi::exec()
{
    if (quitRequested_)
        return 0;
    return QApplication::exec();
}

} // namespace zandolt::qt
