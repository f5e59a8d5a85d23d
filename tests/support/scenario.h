// A whole station on the headless backend, with helpers that act as the employee and the tester.
#pragma once

#include "data/settings.h"
#include "support/station_fixture.h"

#include <functional>
#include <string>
#include <vector>

namespace zandolt::testing {

struct Employee
{
    std::string last = "Doe", first = "Jane", id = "4711";
    std::string wristMin = "-1", wristMax = "-1", footMin = "-1", footMax = "-1";
    std::string wristEnable = "-1", footEnable = "-1";
    std::string certExpiry = "12/31/2030";
    std::string attendance = std::string(372, 'A');
    std::string warning = "0", password;
};

// One line of NAMES.TXT for the employee, in the writer's field order.
std::string NamesLine(const Employee& e);
// The lines of a text, without their CR LF; a line ended otherwise is marked "<no line end>".
std::vector<std::string> CrLfLines(const std::string& text);
// The text of lines, each ended by CR LF.
std::string Lines(const std::vector<std::string>& lines);
std::string Repeat(const std::string& part, int times);

// The tester's message for three readings in the two-digit form, with the switch taking nothing
// out and the DIP limits 0.75-10 (wrist) and 0.75-99.98 (foot).
std::string PassMessage();
std::string TesterMessage(float wrist, float left, float right, const std::string& wristState = "OK",
                          const std::string& footState = "OK");

class ScenarioTest : public StationTest
{
protected:
    ScenarioTest();

    // ZANDOLT.INI with every default and the given changes.
    void writeSettings(const std::function<void(Settings&)>& change = {});
    void writeEmployees(const std::vector<Employee>& employees);
    // Loads the main window as the program does; the title screen closes by its own timer.
    void startStation();
    // The settings written, the station started, and what it showed on the way forgotten.
    void startWith(const std::function<void(Settings&)>& change = {});
    // The employee clicks the name in the list (the test starts at the release of the button).
    void pickName(int row);
    // The tester sends text, which arrives on the next turn of the event loop.
    void tester(const std::string& text);
    // Text typed into the main window's box, ended with Enter.
    void typeIn(const std::string& text);
    headless::LoopbackLine& testerLine() { return line(1); }
    // The next showing of the password window gets this typed and OK pressed, or Cancel.
    void answerPassword(const std::string& text);
    void cancelPassword();
    std::vector<std::string> logLines();
    // The lines of a file of the program directory, without their CR LF.
    std::vector<std::string> fileLines(const std::string& name) { return CrLfLines(read(name)); }
    // The prompts of the message and input boxes shown so far, and the last of them.
    std::vector<std::string> prompts();
    std::string lastMessage();
    bool testWindowOpen();
};

} // namespace zandolt::testing
