// One loaded form as a top-level Qt window: the menu bar, a canvas on which the controls sit at their
// twips-given places, the window's own events (close box, resize, keys with no control focused,
// clicks outside the controls) and the form's properties.
#pragma once

#include "platform/ui.h"

#include <QMainWindow>
#include <QObject>
#include <QPointer>

#include <map>
#include <memory>

class QAction;
class QButtonGroup;
class QEventLoop;
class QMenu;

namespace zandolt::qt {

class ControlView;
class FormView;
class QtUi;

// The top-level widget of a form.
class FormWindow : public QMainWindow
{
public:
    explicit FormWindow(FormView& view);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    FormView& view_;
};

class FormView : public QObject
{
public:
    FormView(QtUi& ui, Form& form);
    ~FormView() override;

    QtUi& ui() const { return ui_; }
    Form& form() const { return form_; }
    bool disposed() const { return disposed_; }
    FormWindow* window() const { return window_; }
    QWidget* canvas() const { return canvas_; }
    ControlView* view(const Control& control) const;
    QAction* action(const MenuItem& item) const;

    void build();
    void dispose();
    void show(bool modal);
    void hide();
    void zOrder(int position);
    void apply(Prop prop);
    void applyMenu(MenuItem& item);

    // The widget that holds the controls of a container (the form's canvas for none), and the group
    // of its option buttons.
    QWidget* containerWidget(const Control* container) const;
    QButtonGroup* optionGroup(const Control* container);

    // The modal loop that runs while the form is shown modally.
    QEventLoop* modalLoop = nullptr;

    // From the window.
    void closeRequested();
    void keyPressed(QKeyEvent* event);
    // True when the focus is on a widget of one of the form's controls.
    bool controlHasFocus() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildMenus();
    void addMenuEntries(QMenu* menu, const MenuItem& parent);
    void applySize();
    void applyWindowState();
    void applyBackColor();
    void bringToFront();

    QtUi& ui_;
    Form& form_;
    QPointer<FormWindow> window_;
    QWidget* canvas_ = nullptr;
    std::map<const Control*, ControlView*> controls_;
    std::map<const MenuItem*, QAction*> actions_;
    std::map<const Control*, QButtonGroup*> optionGroups_;
    bool disposed_ = false;
};

} // namespace zandolt::qt
