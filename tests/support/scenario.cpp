#include "support/scenario.h"

#include "admin/pass_form.h"
#include "data/settings_file.h"
#include "station/name_form.h"
#include "station/rs232_form.h"
#include "station/tester_message.h"

namespace zandolt::testing {

std::string NamesLine(const Employee& e)
{
    return e.last + ", " + e.first + ", " + e.id + ", " + e.wristMin + ", " + e.wristMax + ", " + e.footMin + ", " +
           e.footMax + ", " + e.wristEnable + ", " + e.footEnable + ", E, 01/05/2026, 01/05/2026, 1, " + e.certExpiry +
           ", " + e.attendance + ", " + e.warning + ", " + e.password + ", 0";
}

std::vector<std::string> CrLfLines(const std::string& text)
{
    std::vector<std::string> lines;
    for (size_t start = 0; start < text.size();) {
        const size_t end = text.find("\r\n", start);
        if (end == std::string::npos) {
            lines.push_back(text.substr(start) + "<no line end>");
            break;
        }
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

std::string Lines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& l : lines)
        text += l + "\r\n";
    return text;
}

std::string Repeat(const std::string& part, int times)
{
    std::string out;
    for (int i = 0; i < times; ++i)
        out += part;
    return out;
}

std::string TesterMessage(float wrist, float left, float right, const std::string& wristState,
                          const std::string& footState)
{
    return FormatTesterMessage(TesterFields{wrist, left, right, wristState, footState, footState});
}

std::string PassMessage()
{
    return "W=03.50M=OK, L=12.00M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M";
}

ScenarioTest::ScenarioTest()
{
    writeSettings();
    writeEmployees({Employee{}});
}

void ScenarioTest::writeSettings(const std::function<void(Settings&)>& change)
{
    // A scratch station with no file reads the defaults (and says so), then saves them.
    headless::HeadlessBackend scratchBackend(dir_.path());
    App scratch(scratchBackend.services());
    ReadIniFile(scratch);
    if (change)
        change(scratch);
    SaveIniFile(scratch);
}

void ScenarioTest::writeEmployees(const std::vector<Employee>& employees)
{
    std::vector<std::string> lines{"# header 1", "# header 2"};
    for (const Employee& e : employees)
        lines.push_back(NamesLine(e));
    write("NAMES.TXT", Lines(lines));
}

void ScenarioTest::startStation()
{
    app_->nameForm().Load();
}

void ScenarioTest::startWith(const std::function<void(Settings&)>& change)
{
    writeSettings(change);
    startStation();
    ui().clearRecords();
}

void ScenarioTest::pickName(int row)
{
    NameForm& f = app_->nameForm();
    f.List1.userSelect(row);
    f.List1.userMouseUp();
}

void ScenarioTest::tester(const std::string& text)
{
    testerLine().send(text);
    ui().advance(0);
}

void ScenarioTest::typeIn(const std::string& text)
{
    app_->nameForm().NameOrIDText.userEdit(text);
    app_->nameForm().NameOrIDText.userKey(keys::Return, keys::Return);
}

std::vector<std::string> ScenarioTest::logLines()
{
    return fileLines("LOG.TXT");
}

std::vector<std::string> ScenarioTest::prompts()
{
    std::vector<std::string> out;
    for (const auto& m : ui().messages())
        out.push_back(m.prompt);
    return out;
}

std::string ScenarioTest::lastMessage()
{
    return ui().messages().empty() ? "" : ui().messages().back().prompt;
}

void ScenarioTest::answerPassword(const std::string& text)
{
    ui().onModal("PassForm", [text](Form& f) {
        auto& p = static_cast<PassForm&>(f);
        p.PassEdit.userEdit(text);
        p.PassOKBut.userClick();
    });
}

void ScenarioTest::cancelPassword()
{
    ui().onModal("PassForm", [](Form& f) { static_cast<PassForm&>(f).PassCancelBut.userClick(); });
}

bool ScenarioTest::testWindowOpen()
{
    return app_->rs232Form().loaded();
}

} // namespace zandolt::testing
