// The Qt window service on the real event loop: timers, modal windows and the nested loops that
// message boxes and DoEvents run.
#include "platform/qt/qt_ui.h"
#include "qt_test_forms.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

namespace zandolt::qt::testing {
namespace {

class QtLoop : public ::testing::Test
{
protected:
    ~QtLoop() override
    {
        form.discard();
        other.discard();
    }

    QtUi ui;
    AllKindsForm form{ui};
    AllKindsForm other{ui};
};

// Answers the next message box that is up after delayMs with the given button.
void AnswerNextMessageBox(QMessageBox::StandardButton button, int delayMs = 0)
{
    auto* poll = new QTimer;
    QObject::connect(poll, &QTimer::timeout, poll, [poll, button] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            box->button(button)->click();
            poll->deleteLater();
        }
    });
    QTimer::singleShot(delayMs, poll, [poll] { poll->start(10); });
}

TEST_F(QtLoop, ATimersTicksReachTheFormWhileItIsEnabledAndNotInsideTheirOwnHandler)
{
    form.Load();
    QTest::qWait(60);
    EXPECT_FALSE(Contains(form.events, "Timer1_Timer"));
    form.Timer1.setEnabled(true);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return std::count(form.events.begin(), form.events.end(), "Timer1_Timer") >= 2; }, 2000));
    form.Timer1.setEnabled(false);
    const auto ticks = std::count(form.events.begin(), form.events.end(), "Timer1_Timer");
    QTest::qWait(80);
    EXPECT_EQ(std::count(form.events.begin(), form.events.end(), "Timer1_Timer"), ticks);

    // A handler that lets events run for a while does not get its own timer's next ticks inside.
    int depth = 0, deepest = 0, waits = 0;
    form.Timer1.Tick = [&] {
        ++waits;
        deepest = std::max(deepest, ++depth);
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < 100)
            ui.doEvents();
        --depth;
    };
    form.Timer1.setEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return waits >= 2; }, 2000));
    EXPECT_EQ(deepest, 1);
}

TEST_F(QtLoop, AModalFormBlocksTheOthersAndReturnsWhenHiddenOrUnloadedByItsOwnTimer)
{
    // While it is up the window is application modal; hiding it ends ShowModal.
    QTimer::singleShot(50, [&] {
        EXPECT_EQ(QApplication::activeModalWidget(), ui.window(other));
        other.Hide();
    });
    other.ShowModal();
    EXPECT_TRUE(other.loaded());
    EXPECT_FALSE(ui.window(other)->isVisible());
    // Shown again without modality, it is a plain window.
    other.Show();
    EXPECT_EQ(ui.window(other)->windowModality(), Qt::NonModal);

    // Shown modally from a timer, its own timer's unload ends the nested loop, and the caller goes on.
    other.Unload();
    bool returned = false;
    int ticks = 0;
    QTimer::singleShot(0, [&] {
        other.Load();
        other.Timer1.Tick = [&] {
            ++ticks;
            other.Unload();
        };
        other.Timer1.setInterval(50);
        other.Timer1.setEnabled(true);
        other.ShowModal();
        returned = true;
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return returned; }, 3000));
    EXPECT_FALSE(other.loaded());
    EXPECT_EQ(ticks, 1);
}

TEST_F(QtLoop, AFormUnloadedWhileItsTimerHandlerWaitsInAMessageBoxSurvivesIt)
{
    // The handler's widgets stay until the handler has returned, so nothing is used after its end.
    form.Show();
    QPointer<QWidget> window = ui.window(form);
    bool after = false;
    // The unload puts the design's handlers back; this one keeps its own code alive meanwhile.
    auto body = std::make_shared<std::function<void()>>([&] {
        form.Timer1.setEnabled(false);
        QTimer::singleShot(20, [&] { form.Unload(); });
        // The box gives the classic answer of the button pressed (each set's answers: the conversion tests).
        AnswerNextMessageBox(QMessageBox::No, 100);
        EXPECT_EQ(ui.msgBox("Save?", msgbox::YesNoCancel | msgbox::Question, "Title"), msgbox::No);
        EXPECT_FALSE(form.loaded());
        after = true;
    });
    form.Timer1.Tick = [body] {
        auto keep = body;
        (*keep)();
    };
    form.Timer1.setEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return after; }, 3000));
    EXPECT_FALSE(form.loaded());
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.isNull(); }));
}

TEST_F(QtLoop, QuitEndsTheModalLoopsAndTheProgramsLoopWithoutClosingAnyForm)
{
    // The Exit entry's quit, asked inside a modal window, ends all loops; the forms are no one's to close.
    form.Show();
    bool modalReturned = false;
    QTimer::singleShot(0, [&] {
        other.Load();
        other.Timer1.Tick = [&] { ui.quit(); };
        other.Timer1.setInterval(30);
        other.Timer1.setEnabled(true);
        other.ShowModal();
        modalReturned = true;
    });
    // Should the quit not end the loops, the test ends them itself and fails.
    QTimer stopper;
    stopper.setSingleShot(true);
    QObject::connect(&stopper, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    stopper.start(3000);
    EXPECT_EQ(ui.exec(), 0);
    EXPECT_TRUE(modalReturned);
    EXPECT_TRUE(ui.quitRequested());
    EXPECT_TRUE(form.loaded());
    EXPECT_TRUE(other.loaded());
}

} // namespace
} // namespace zandolt::qt::testing
