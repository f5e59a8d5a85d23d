// The station on its real serial path: the Qt backend with QSerialPort on one end of a socat
// pseudo-terminal pair, the tester emulator on the other. Jane is picked from the list, the emulator
// sends a pass or a message cut short, and the byte it receives and the line in LOG.TXT are checked;
// what each kind of message shows on the screen is the headless tests'.
#include "pty_support.h"
#include "station/rs232_form.h"

#include <QListWidget>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace zandolt::qt {
namespace {

// A log stamp "MM-DD-YYYY, HH:MM:SS" reordered so that it sorts as time does, and a moment in that order.
std::string sortable(const std::string& stamp)
{
    return stamp.size() == 20 ? stamp.substr(6, 4) + stamp.substr(0, 5) + stamp.substr(10) : "";
}
std::string sortable(const DateTime& t)
{
    char text[32];
    std::snprintf(text, sizeof text, "%04d%02d-%02d, %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    return text;
}

class StationOverPty : public StationInTempDir
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(startPtyPair(1, "ttyStation", "ttyTester"));
        // The demo station, but on the real tester port 1.
        std::string ini = readFile(QStringLiteral(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
        const size_t simulation = ini.find("-1, Simulation");
        ASSERT_NE(simulation, std::string::npos);
        ini.replace(simulation, 2, " 0");
        ASSERT_NE(ini.find(" 1, #ComboComport"), std::string::npos);
        writeFile(dir.filePath("ZANDOLT.INI"), ini);
        writeFile(dir.filePath("NAMES.TXT"), JaneNames("QA-4711"));
        startStation();
        ASSERT_TRUE(app->nameForm().Comm1().isOpen()) << "the tester port did not open";
    }

    void TearDown() override
    {
        stopStation();
        for (const std::string& m : messages)
            EXPECT_NE(m.find("Printer problem"), std::string::npos) << "unexpected message: " << m;
    }

    // Jane's name typed into the list of the main window and Enter open her test; the emulator on
    // the tester's end runs `command`. What it saw; `rest` is the log's one line behind Jane's name
    // and ID and a stamp taken while the test ran.
    EmulatorRun visit(const QString& command, std::string& rest)
    {
        auto* list = qobject_cast<QListWidget*>(backend->ui.widget(app->nameForm().List1));
        EXPECT_NE(list, nullptr);
        if (!list)
            return {};
        QTest::keyClicks(list, "Doe");
        QTest::keyClick(list, Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&] { return app->isLoaded(&app->rs232Form()); }, 5000));
        const std::string before = sortable(backend->clock.now());
        const EmulatorRun run = runEmulator(dir.filePath("ttyTester"), {}, {command}, 3000);
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile(dir.filePath("LOG.TXT")).size() > 0; }, 5000));
        const std::string after = sortable(backend->clock.now());
        const std::string log = readFile(dir.filePath("LOG.TXT")), line = log.substr(0, log.find("\r\n"));
        EXPECT_EQ(line + "\r\n", log) << "LOG.TXT is not one line";
        EXPECT_EQ(line.substr(0, 43), "Doe, Jane           , QA-4711            , ");
        const std::string at = sortable(line.substr(std::min<size_t>(43, line.size()), 20));
        EXPECT_TRUE(!at.empty() && before <= at && at <= after) << line;
        rest = line.substr(std::min<size_t>(63, line.size()));
        return run;
    }
};

TEST_F(StationOverPty, APassingMessageIsAnsweredWithFFAndLogged)
{
    // Jane's tester sends 3.5, 12 and 11.2 megohms against its own limits: all pass.
    std::string rest;
    const EmulatorRun run = visit("pass", rest);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.starting("SENT "),
              std::vector<std::string>{"SENT W=03.50M=OK, L=12.00M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M"});
    EXPECT_EQ(run.starting("RECV "), std::vector<std::string>{"RECV 0xFF"});
    EXPECT_EQ(rest, ", Wok, Lok, Rok, 03.50, 12.00, 11.20");
}

TEST_F(StationOverPty, AShortMessageEndsWithTheReceiveWindowAsACommunicationFailure)
{
    // The button let go too soon: 40 characters, the two-second window runs out, no answer byte.
    std::string rest;
    const EmulatorRun run = visit("short", rest);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.starting("SENT "), std::vector<std::string>{"SENT W=03.50M=OK, L=12.00M=OK, R=11.20M=OK, 0"});
    EXPECT_TRUE(run.starting("RECV ").empty());
    EXPECT_EQ(run.starting("NO ANSWER"), std::vector<std::string>{"NO ANSWER within 3000 ms"});
    EXPECT_EQ(rest, ", ComFail,  *,  *,  *,  *,  *,  *");
}

} // namespace
} // namespace zandolt::qt
