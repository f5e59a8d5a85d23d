// The station on its real serial path: the Qt backend with QSerialPort on one end of a socat
// pseudo-terminal pair, the tester emulator process on the other. An employee is picked from the
// list as at the station, the emulator presses the button, and the verdict on the screen, the
// answer byte the emulator receives and the line in LOG.TXT are checked. The verdict of each kind
// of message, and its answer byte, are the headless tests' (tests/station, tests/scenarios); here
// the real link carries a pass and runs out its receive window.
#include "pty_support.h"
#include "station/rs232_form.h"
#include "support/pass_readings.h"

#include <QLabel>
#include <QListWidget>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace zandolt::qt {
namespace {

const QString DemoDir = QStringLiteral(ZANDOLT_SOURCE_DIR "/resources/demo");

// The log's time stamp, "MM-DD-YYYY, HH:MM:SS", lies between the station's clock before and after.
bool stampedBetween(const std::string& stamp, const DateTime& from, const DateTime& to)
{
    int mo = 0, d = 0, y = 0, h = 0, mi = 0, s = 0;
    char text[32] = "";
    if (std::sscanf(stamp.c_str(), "%d-%d-%d, %d:%d:%d", &mo, &d, &y, &h, &mi, &s) == 6)
        std::snprintf(text, sizeof text, "%02d-%02d-%04d, %02d:%02d:%02d", mo, d, y, h, mi, s);
    const auto key = [](long long year, int month, int day, int hour, int minute, int second) {
        return ((((year * 100 + month) * 100 + day) * 100 + hour) * 100 + minute) * 100 + second;
    };
    const long long at = key(y, mo, d, h, mi, s);
    return stamp == text && key(from.year, from.month, from.day, from.hour, from.minute, from.second) <= at &&
           at <= key(to.year, to.month, to.day, to.hour, to.minute, to.second);
}

class StationOverPty : public StationInTempDir
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        ASSERT_TRUE(startPtyPair(socat, dir.filePath("ttyStation"), dir.filePath("ttyTester")));

        // The demo station, but on the real tester port 1, which the port map puts on the pair.
        std::string ini = readFile(DemoDir + "/ZANDOLT.INI");
        const size_t simulation = ini.find("-1, Simulation");
        ASSERT_NE(simulation, std::string::npos);
        ini.replace(simulation, 2, " 0");
        ASSERT_NE(ini.find(" 1, #ComboComport"), std::string::npos);
        writeFile(dir.filePath("ZANDOLT.INI"), ini);
        writeFile(dir.filePath("PORTS.TXT"), "1 " + dir.filePath("ttyStation").toStdString() + "\n");
        // Jane wears both straps with the tester's limits.
        writeFile(dir.filePath("NAMES.TXT"),
                  "# On the following lines put last name, first name, ID, and so on\r\n"
                  "# Example:  Tarrow, Ned, 123-456:78, .075, 10.12, .05, 50.0, -1, 0\r\n"
                  "Doe, Jane, QA-4711, -1.00, -1.00, -1.00, -1.00, -1, -1, A, 01/05/2026, 01/05/2026, 1, "
                  "12/31/2030, " +
                      std::string(372, 'A') + ", 0, , 0\r\n");

        startStation();
        ASSERT_TRUE(app->nameForm().Comm1().isOpen()) << "the tester port did not open";
    }

    void TearDown() override
    {
        stopStation();
        stopProcess(socat);
        for (const std::string& m : messages)
            EXPECT_NE(m.find("Printer problem"), std::string::npos) << "unexpected message: " << m;
    }

    // Types the start of the name into the list of the main window and presses Enter.
    void startTestFor(const QString& typed)
    {
        auto* list = qobject_cast<QListWidget*>(backend->ui.widget(app->nameForm().List1));
        ASSERT_NE(list, nullptr);
        QTest::keyClicks(list, typed);
        QTest::keyClick(list, Qt::Key_Return);
        ASSERT_TRUE(QTest::qWaitFor([&] { return app->isLoaded(&app->rs232Form()); }, 5000));
        ASSERT_NE(app->TestWindowOpenFlag, 0);
    }

    // Runs the emulator on the tester's end with these commands, the event loop of the station
    // running all the while.
    EmulatorRun runEmulator(const QStringList& commands, int waitMs)
    {
        return qt::runEmulator(dir.filePath("ttyTester"), {}, commands, waitMs);
    }

    // The one line of the log, once the verdict has written it; empty when none came.
    std::string logLine()
    {
        const QString path = dir.filePath("LOG.TXT");
        if (!QTest::qWaitFor([&] { return QFile(path).size() > 0; }, 5000)) {
            ADD_FAILURE() << "no line in LOG.TXT";
            return {};
        }
        std::string log = readFile(path);
        if (log.size() < 2 || log.compare(log.size() - 2, 2, "\r\n") != 0 || log.find("\r\n") != log.size() - 2) {
            ADD_FAILURE() << "LOG.TXT is not one line: \"" << log << "\"";
            return {};
        }
        return log.substr(0, log.size() - 2);
    }

    // One visit: what the emulator saw, the line it left in the log, and the station's clock
    // before the button was pressed and after the line came.
    struct Visit
    {
        EmulatorRun run;
        std::string line;
        DateTime before, after;
    };

    // The employee whose name starts so opens the test window, and the emulator runs this command.
    Visit visit(const QString& typed, const QString& command)
    {
        Visit v;
        startTestFor(typed);
        if (HasFatalFailure())
            return v;
        v.before = backend->clock.now();
        v.run = runEmulator({command}, 3000);
        v.line = logLine();
        v.after = backend->clock.now();
        return v;
    }

    // The log line has the expected text around a time stamp taken while the test ran.
    static void expectLogLine(const Visit& v, const std::string& head, const std::string& tail)
    {
        ASSERT_EQ(v.line.size(), head.size() + 20 + tail.size()) << v.line;
        EXPECT_EQ(v.line.substr(0, head.size()), head);
        EXPECT_EQ(v.line.substr(head.size() + 20), tail);
        EXPECT_TRUE(stampedBetween(v.line.substr(head.size(), 20), v.before, v.after)) << v.line;
    }

    RS232Form& window() { return app->rs232Form(); }
    std::string shown(Label& label)
    {
        auto* w = qobject_cast<QLabel*>(backend->ui.widget(label));
        return w ? w->text().toStdString() : "(no widget)";
    }

    QProcess socat;
};

const std::string Jane = "Doe, Jane           , QA-4711            , ";

TEST_F(StationOverPty, APassingMessageIsAnsweredWithFFAndLogged)
{
    // Jane's tester sends 3.5, 12 and 11.2 megohms against its own limits: all pass.
    const Visit v = visit("Doe", "pass");

    EXPECT_EQ(v.run.exitCode, 0);
    EXPECT_EQ(v.run.starting("SENT "),
              std::vector<std::string>{"SENT W=03.50M=OK, L=12.00M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M"});
    EXPECT_EQ(v.run.starting("RECV "), std::vector<std::string>{"RECV 0xFF"});
    expectLogLine(v, Jane, ", Wok, Lok, Rok, 03.50, 12.00, 11.20");

    EXPECT_EQ(app->ResultCode, 0);
    // Her limits are the tester's, shown on the real window with the remark on her feet.
    testing::ExpectPassReadingsShown(window());
    EXPECT_EQ(shown(window().InsTitleLabel), "OK");
    EXPECT_TRUE(window().OtherStrapLabel.visible());
    EXPECT_EQ(window().OtherStrapLabel.caption(), "Foot Straps are good also.");
}

TEST_F(StationOverPty, AShortMessageEndsWithTheReceiveWindowAsACommunicationFailure)
{
    // The button let go too soon: 40 characters, the two-second window runs out, no answer byte.
    const Visit v = visit("Doe", "short");

    EXPECT_EQ(v.run.exitCode, 0);
    EXPECT_EQ(v.run.starting("SENT "), std::vector<std::string>{"SENT W=03.50M=OK, L=12.00M=OK, R=11.20M=OK, 0"});
    EXPECT_TRUE(v.run.starting("RECV ").empty());
    EXPECT_EQ(v.run.starting("NO ANSWER"), std::vector<std::string>{"NO ANSWER within 3000 ms"});
    expectLogLine(v, Jane, ", ComFail,  *,  *,  *,  *,  *,  *");

    EXPECT_EQ(app->ResultCode, 16);
    EXPECT_EQ(app->ProblemBits, 128);
}

} // namespace
} // namespace zandolt::qt
