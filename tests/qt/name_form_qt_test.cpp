// The main window on the Qt backend (offscreen): it builds, comes up maximised with its list, and
// its menu bar holds every entry in order, which reach their handlers. Its title and the list's
// texts are the model's, tested headless in tests/scenarios.
#include "admin/title_form.h"
#include "app.h"
#include "platform/headless/headless_backend.h"
#include "platform/qt/qt_ui.h"
#include "station/name_form.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace zandolt::qt {
namespace {

const std::filesystem::path DemoDir =
    std::filesystem::path(__FILE__).parent_path().parent_path().parent_path() / "resources" / "demo";

class MainWindowQt : public ::testing::Test
{
protected:
    MainWindowQt() : headless(dir.path().toStdString())
    {
        for (const char* name : {"ZANDOLT.INI", "NAMES.TXT"})
            QFile::copy(QString::fromStdString((DemoDir / name).string()), dir.path() + "/" + name);
        // The tester and printer are the test doubles; the windows are Qt's.
        app = std::make_unique<App>(Services{ui, headless.clock, headless.serial, headless.printer, headless.files,
                                             headless.programs, headless.locale, headless.mail});
        // Dismisses the title screen and any message box as soon as they are up.
        QObject::connect(&closer, &QTimer::timeout, [this] {
            if (app->titleForm().loaded()) {
                ++titles;
                app->titleForm().Unload();
            }
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                messages.push_back(box->text().toStdString());
                box->defaultButton() ? box->defaultButton()->click() : box->reject();
            }
        });
        closer.start(20);
    }
    ~MainWindowQt() override { app.reset(); }

    NameForm& main() { return app->nameForm(); }
    QMainWindow* window() { return qobject_cast<QMainWindow*>(ui.window(main())); }

    QTemporaryDir dir;
    QtUi ui;
    headless::HeadlessBackend headless;
    std::unique_ptr<App> app;
    QTimer closer;
    int titles = 0;
    std::vector<std::string> messages;
};

TEST_F(MainWindowQt, TheMainWindowComesUpMaximisedWithItsListOfNamesAndEveryMenuEntryInItsOrder)
{
    // The demo station shows the list; the window fills the screen and the list follows its size.
    ASSERT_TRUE(std::filesystem::exists(DemoDir / "NAMES.TXT"));
    main().Load();
    EXPECT_TRUE(messages.empty()) << messages.front();
    ASSERT_NE(window(), nullptr);
    EXPECT_TRUE(window()->windowState() & Qt::WindowMaximized);

    auto* list = qobject_cast<QListWidget*>(ui.widget(main().List1));
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->isVisible());
    EXPECT_EQ(list->count(), 20);
    EXPECT_EQ(list->item(0)->text().toStdString(), main().List1.list(0));

    // The window's inner size reached the model, whose resize gave the list its width.
    ASSERT_TRUE(QTest::qWaitFor([&] { return main().scaleWidth() == window()->centralWidget()->width() * 15; }));
    EXPECT_EQ(main().scaleHeight(), window()->centralWidget()->height() * 15);
    EXPECT_EQ(main().List1.width(), main().scaleWidth() - 370);
    EXPECT_EQ(list->width(), (main().scaleWidth() - 370 + 7) / 15);

    // The menu bar holds the four menus and their entries in order, "-" for the separator.
    const std::vector<std::pair<QString, QStringList>> expected = {
        {"&File", {"Minimize", "E&xit"}},
        {"&Reports",
         {"&Print Monthly", "View or Print &Monthly", "View or Print Entire &Log", "View or Print &Daily Log",
          "View or Print &Individual Log", "View or Print &Exceptions", "View or Print ExceptionsNotTestedTwice",
          "View or Print &Certification Expiratation", "View or Print Individual &Attendance",
          "View or Print Monthly &Vacation", "-", "Auto &Generate Email", "Run Log&Sort"}},
        {"Setu&p",
         {"&User Information", "Sort user information Names.txt file", "Add new names entered from test stations",
          "Send user information to test stations", "Change All Limits", "Reset Log File", "Reset Vacation/Sick time",
          "Change employee Password", "Change main administrator Password", "Use main administrator Password",
          "General Configuration", "Employee selection Configuration", "Unknown ID Configuration",
          "Certification Configuration", "Directories"}},
        {"&Help",
         {"Simple &Help", "User manual help", "Network help", "Check for software updates", "Check for new products",
          "&About"}},
    };
    const QList<QAction*> menus = window()->menuBar()->actions();
    ASSERT_EQ(menus.size(), static_cast<qsizetype>(expected.size()));
    for (size_t m = 0; m < expected.size(); ++m) {
        EXPECT_EQ(menus[static_cast<qsizetype>(m)]->text(), expected[m].first);
        QStringList entries;
        for (QAction* a : menus[static_cast<qsizetype>(m)]->menu()->actions())
            entries << (a->isSeparator() ? QStringLiteral("-") : a->text());
        EXPECT_EQ(entries, expected[m].second) << expected[m].first.toStdString();
    }
    // About, triggered on screen, shows the title screen again over the main window.
    ASSERT_EQ(titles, 1);
    ui.action(main().mnuAbout)->trigger();
    EXPECT_EQ(titles, 2);
    EXPECT_TRUE(main().loaded());
}

} // namespace
} // namespace zandolt::qt
