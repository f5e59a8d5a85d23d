// The window service for real use: a generic renderer that turns each form of the window model into
// a top-level Qt window with one widget per control, forwards what the user does to the model, and
// pushes the model's property changes to the widgets. It holds no logic of the station.
#pragma once

#include "platform/ui.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <map>
#include <vector>

class QAction;
class QTimer;
class QWidget;

namespace zandolt::qt {

class FormView;

class QtUi : public Ui
{
public:
    // Pictures of Image controls are looked up under pictureRoot ("<root>/<name>.svg" or ".png").
    explicit QtUi(QString pictureRoot = QStringLiteral(":/pictures"));
    ~QtUi() override;
    QtUi(const QtUi&) = delete;
    QtUi& operator=(const QtUi&) = delete;

    void formLoaded(Form& form) override;
    void formUnloaded(Form& form) override;
    void formShown(Form& form, bool modal) override;
    void formHidden(Form& form) override;
    void formChanged(Form& form, Prop prop) override;
    void formZOrder(Form& form, int position) override;
    void controlChanged(Control& control, Prop prop) override;
    void menuChanged(MenuItem& item) override;
    void focusChanged(Control& control) override;
    int msgBox(const std::string& prompt, int buttons, const std::string& title) override;
    std::string inputBox(const std::string& prompt, const std::string& title, const std::string& defaultText) override;
    bool fontDialog(std::string& name, float& size) override;
    void beep() override;
    void setBusy(bool busy) override;
    void doEvents() override;
    void quit() override;

    // Runs the program's event loop; returns at once when quit() came before it started.
    int exec();
    bool quitRequested() const { return quitRequested_; }

    // The top-level window of a loaded form, the widget of a control, the action of a menu entry and
    // the timer of a Timer control; null when there is none.
    QWidget* window(const Form& form) const;
    QWidget* widget(const Control& control) const;
    QAction* action(const MenuItem& item) const;
    QTimer* timer(const Control& control) const;

    const QString& pictureRoot() const { return pictureRoot_; }

    // Runs a call into the model from a widget's event. Widgets of windows unloaded meanwhile are
    // kept until no such call is running any more, since the call may have come from inside them.
    template <class F> void call(F&& f)
    {
        ++depth_;
        try {
            f();
        } catch (const std::exception& e) {
            reportFailure(e.what());
        }
        if (--depth_ == 0 && !graveyard_.empty())
            scheduleFlush();
    }
    // Deletes the object once no call into the model is running.
    void bury(QObject* object);

private:
    FormView* find(const Form& form) const;
    void scheduleFlush();
    void flush();
    void reportFailure(const char* what);

    QString pictureRoot_;
    std::map<const Form*, FormView*> views_;
    std::vector<QPointer<QObject>> graveyard_;
    QObject flushContext_;
    int depth_ = 0;
    bool flushScheduled_ = false;
    bool busy_ = false;
    bool quitRequested_ = false;
};

} // namespace zandolt::qt
