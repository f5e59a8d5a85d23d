// Each card reader on the station's real reader port: the Qt backend with QSerialPort on one end of
// a socat pseudo-terminal pair (port 2), the emulator playing the reader on the other, and a second
// pair for the tester (port 1). A known card starts its employee's test; an unknown badge enrols a
// new row, whose test is logged.
#include "data/settings_file.h"
#include "platform/headless/headless_backend.h"
#include "pty_support.h"
#include "station/rs232_form.h"

#include <algorithm>
#include <string>
#include <vector>

namespace zandolt::qt {
namespace {

struct Reader
{
    const char* kind;
    int barCodeFlag;
};

class ReaderOverPty : public StationInTempDir, public ::testing::WithParamInterface<Reader>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(startPtyPair(1, "ttyStation", "ttyTester"));
        ASSERT_TRUE(startPtyPair(2, "ttyStationReader", "ttyReader"));

        // Badges identify; the reader's card numbers are 16 bits from the first; new rows go to the
        // work group NEW with both straps on the tester's limits.
        {
            headless::HeadlessBackend scratchBackend(dir.path().toStdString());
            App scratch(scratchBackend.services());
            ReadIniFile(scratch);
            scratch.BarCodeFlag = static_cast<int16>(GetParam().barCodeFlag);
            scratch.ProximityComport = 2;
            scratch.SkipProxBits = 0;
            scratch.UseProxMiddleBits = 16;
            scratch.EmployeeSelectionType = 2;
            scratch.AddUnknownFlag = 1;
            scratch.DefaultWorkGroup = "NEW";
            scratch.DefaultWristRequired = True;
            scratch.DefaultFootRequired = True;
            SaveIniFile(scratch);
        }
        writeFile(dir.filePath("NAMES.TXT"), JaneNames("QA-4711:180"));

        startStation();
        ASSERT_TRUE(app->nameForm().ProxComm().isOpen()) << "the reader port did not open";
    }

    // The reader presents a card: "card=N" for the card readers, the text itself for RS232. The
    // emulator stays a little, so that the station reads the card before the line goes.
    EmulatorRun present(const std::string& card)
    {
        const std::string kind = GetParam().kind;
        const std::string data = kind == "rs232" ? card : "card=" + card;
        return runEmulator(dir.filePath("ttyReader"), {"--reader", kind.c_str()},
                           {QString::fromStdString(kind + " " + data), "wait 600"}, 0);
    }

    bool testWindowOpens()
    {
        return QTest::qWaitFor([&] { return app->isLoaded(&app->rs232Form()); }, 5000);
    }
};

TEST_P(ReaderOverPty, AKnownCardStartsItsEmployeesTestAndAnUnknownBadgeEnrolsAndItsTestIsLogged)
{
    EXPECT_EQ(present("180").exitCode, 0);
    ASSERT_TRUE(testWindowOpens());
    EXPECT_EQ(app->rs232Form().NameLabel.caption(), "Doe, Jane");
    EXPECT_EQ(app->ProxText, "");
    CloseTestWindow(*app);

    EXPECT_EQ(present("12345").exitCode, 0);
    ASSERT_TRUE(testWindowOpens());
    EXPECT_EQ(app->rs232Form().NameLabel.caption(), "12345, Number");
    EXPECT_NE(std::find(messages.begin(), messages.end(), "The badge number 12345 was not found.\nAdd it to the list?"),
              messages.end());

    // The new row as NAMES.TXT holds it is the enrolment's headless test; here its test is logged.
    EXPECT_EQ(runEmulator(dir.filePath("ttyTester"), {}, {"pass"}, 3000).exitCode, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile(dir.filePath("LOG.TXT")).size() > 0; }, 5000));
    const std::string log = readFile(dir.filePath("LOG.TXT"));
    // Name to 20 characters, ID to 19, then the date and time of the test, the codes and readings.
    EXPECT_EQ(log.substr(0, 43), "12345, Number       , NEW-12345          , ") << log;
    EXPECT_EQ(log.substr(log.size() - 38), ", Wok, Lok, Rok, 03.50, 12.00, 11.20\r\n") << log;
}

INSTANTIATE_TEST_SUITE_P(EachKind, ReaderOverPty,
                         ::testing::Values(Reader{"hid", 2}, Reader{"casi", 3}, Reader{"rs232", 4}, Reader{"rw400", 5}),
                         [](const ::testing::TestParamInfo<Reader>& p) { return std::string(p.param.kind); });

} // namespace
} // namespace zandolt::qt
