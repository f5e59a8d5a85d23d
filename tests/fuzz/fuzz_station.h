// What the fuzz targets share: the taking of an input's choices, and a station of the headless
// backend's pieces over a scratch directory in /dev/shm, one for the whole process.
#pragma once

#include "app.h"
#include "data/names_file.h"
#include "data/settings_file.h"
#include "platform/headless/headless_backend.h"
#include "platform/qt/qt_clock_locale.h"
#include "station/name_form.h"
#include "support/field_rule.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace zandolt::fuzz {

// A broken property: the message on standard error, then abort, which the fuzzer reports with the
// input.
[[noreturn]] inline void PropertyFailed(const std::string& what)
{
    std::fputs("\n*** ", stderr);
    for (const unsigned char c : what)
        std::fprintf(stderr, (c < 32 && c != '\n') || c > 126 ? "\\x%02X" : "%c", c);
    std::fputs("\n", stderr);
    std::abort();
}

// Takes the input from the front: single bytes and numbers for a target's choices, then the rest.
class InputCursor
{
public:
    InputCursor(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    std::uint8_t byte() { return pos_ < size_ ? data_[pos_++] : 0; }
    int pick(int count) { return byte() % count; } // 0 to count - 1
    int word()
    {
        const int high = byte();
        return high * 256 + byte();
    }
    std::string_view rest() const { return {reinterpret_cast<const char*>(data_) + pos_, size_ - pos_}; }
    // The rest in two, where the next two bytes say.
    std::pair<std::string_view, std::string_view> split()
    {
        const std::size_t at = static_cast<std::size_t>(word());
        return {rest().substr(0, at % (rest().size() + 1)), rest().substr(at % (rest().size() + 1))};
    }

private:
    const std::uint8_t* data_;
    std::size_t size_, pos_ = 0;
};

// Answers a box that asks more than OK with its first button or its second, and an input box with
// the text given, so that no input stops a run on a question nobody scripted.
class AnsweringUi : public headless::HeadlessUi
{
public:
    using HeadlessUi::HeadlessUi;
    int msgBox(const std::string& prompt, int buttons, const std::string& title) override
    {
        using namespace msgbox;
        static const int answers[6][2] = {{OK, OK},  {OK, Cancel}, {Abort, Retry},
                                          {Yes, No}, {Yes, No},    {Retry, Cancel}};
        if (const int kind = buttons & ButtonMask; kind != OKOnly && kind < 6)
            answerMsgBox(prompt, answers[kind][secondButton ? 1 : 0]);
        return HeadlessUi::msgBox(prompt, buttons, title);
    }
    std::string inputBox(const std::string& prompt, const std::string& title, const std::string& defaultText) override
    {
        answerInputBox(prompt, inputText);
        return HeadlessUi::inputBox(prompt, title, defaultText);
    }

    bool secondButton = false;
    std::string inputText;
};

inline std::string MakeScratchDirectory()
{
    for (std::string pattern : {"/dev/shm/zandolt-fuzz-XXXXXX", "/tmp/zandolt-fuzz-XXXXXX"})
        if (::mkdtemp(pattern.data()) != nullptr)
            return pattern;
    PropertyFailed("no scratch directory can be made");
}

class Station
{
    std::string dir_ = MakeScratchDirectory(); // first, so that the files are built on it

public:
    // A station that finds no settings file says so and saves its defaults; read again, they give
    // the paths of the program directory, which goes with the station.
    Station()
    {
        startRun();
        ReadIniFile(*app);
        SaveIniFile(*app);
        ReadIniFile(*app);
    }
    ~Station()
    {
        app.reset();
        std::error_code ignored;
        std::filesystem::remove_all(dir_, ignored);
    }

    std::string path(std::string_view name) const { return dir_ + "/" + std::string(name); }
    void write(std::string_view name, std::string_view text)
    {
        std::ofstream(path(name), std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
    }
    std::string read(const std::string& name)
    {
        std::string text;
        files.readAll(name, text);
        return text;
    }
    // The same moment for every input, so that an input found once gives the same run again.
    void startRun()
    {
        clock.setNow(DateTime{2026, 6, 15, 10, 30, 0, 0});
        ui.clearRecords();
        ui.secondButton = false;
        ui.inputText.clear();
    }
    // The rest of the input arriving at the far end of a port in pieces of up to `pieces` - 1 bytes
    // (0: all at once), each followed by a pause of up to `pauses` - 1 steps of `stepMs`, as the
    // input picks.
    void sendInput(InputCursor& input, int port, int pieces, int pauses, int stepMs)
    {
        const std::size_t piece = static_cast<std::size_t>(input.pick(pieces));
        const int pauseMs = input.pick(pauses) * stepMs;
        for (std::string_view text = input.rest(); !text.empty(); ui.advance(pauseMs)) {
            const std::size_t n = piece == 0 ? text.size() : std::min(piece, text.size());
            serial.line(port).send(std::string(text.substr(0, n)));
            text.remove_prefix(n);
        }
    }

    headless::VirtualClock clock;
    AnsweringUi ui{clock};
    headless::LoopbackSerial serial{ui};
    headless::CapturedPrinter printer;
    system::PosixFiles files{dir_};
    qt::QtLocale locale{QLocale(QLocale::English, QLocale::UnitedStates)};
    headless::RecordedPrograms programs;
    headless::RecordedMail mail{files};
    std::unique_ptr<App> app =
        std::make_unique<App>(Services{ui, clock, serial, printer, files, programs, locale, mail});
};

// The entry of a station target: the process's station, given `prepare` at the first input, runs
// each input from the same moment.
inline int RunOnStation(const std::uint8_t* data, std::size_t size, void (*prepare)(Station&),
                        void (*run)(Station&, InputCursor&))
{
    static Station s; // destroyed at exit, which removes the scratch directory
    static const bool prepared = prepare != nullptr && (prepare(s), true);
    (void)prepared;
    s.startRun();
    InputCursor input(data, size);
    run(s, input);
    return 0;
}

// An employee file: the two header lines, then one line for each row, which gives the fields up to
// the certification expiry; the attendance, an empty password and the update flag 0 follow.
inline std::string EmployeeFile(std::initializer_list<std::string_view> rows,
                                const std::string& attendance = std::string(AttendanceLength, 'A'))
{
    std::string text = std::string(NamesHeaderLine1) + "\r\n" + NamesHeaderLine2 + "\r\n";
    for (std::string_view row : rows)
        text.append(row).append(", ").append(attendance).append(", 0, , 0\r\n");
    return text;
}

// Three employees: both straps; the wrist alone, with limits of its own; the feet alone. The first
// and the last have a badge behind their ID, the second's ID is its own badge.
inline const std::string& ThreeEmployees()
{
    static const std::string text = EmployeeFile(
        {"Doe, Jane, ASM-4711:180, -1.00, -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2030",
         "Poe, Edgar, 1443, 001.50, 005.00, -1.00, -1.00, -1, 0, E, 01/05/2026, 01/05/2026, 1, 12/31/2030",
         "Smith, Mary Ann, QA-9:0005, 0.00, 0.00, 0.00, 0.00, 0, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2030"});
    return text;
}

// Writes them and opens the station's main window, whose title screen closes by itself.
inline void OpenNameForm(Station& s)
{
    s.write("NAMES.TXT", ThreeEmployees());
    s.app->nameForm().Load();
    s.ui.advance(10000);
}

inline std::vector<qt::QtLocale> QtLocales(std::span<const char* const> names)
{
    std::vector<qt::QtLocale> all;
    for (const char* name : names)
        all.emplace_back(QLocale(QString::fromLatin1(name)));
    return all;
}

} // namespace zandolt::fuzz

// Each includer is a target's only source.
using namespace zandolt;
using namespace zandolt::fuzz;
using namespace zandolt::testing;
