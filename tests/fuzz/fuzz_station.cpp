#include "fuzz_station.h"

#include "data/names_file.h"
#include "data/settings_file.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zandolt::fuzz {

int AnsweringUi::msgBox(const std::string& prompt, int buttons, const std::string& title)
{
    // The buttons of each kind of box, first and second.
    static const int answers[6][2] = {{msgbox::OK, msgbox::OK},       {msgbox::OK, msgbox::Cancel},
                                      {msgbox::Abort, msgbox::Retry}, {msgbox::Yes, msgbox::No},
                                      {msgbox::Yes, msgbox::No},      {msgbox::Retry, msgbox::Cancel}};
    const int kind = buttons & msgbox::ButtonMask;
    if (kind != msgbox::OKOnly && kind < 6)
        answerMsgBox(prompt, answers[kind][secondButton ? 1 : 0]);
    return HeadlessUi::msgBox(prompt, buttons, title);
}

std::string AnsweringUi::inputBox(const std::string& prompt, const std::string& title, const std::string& defaultText)
{
    answerInputBox(prompt, inputText);
    return HeadlessUi::inputBox(prompt, title, defaultText);
}

namespace {

std::string MakeScratchDirectory()
{
    char pattern[] = "/dev/shm/zandolt-fuzz-XXXXXX";
    if (std::filesystem::is_directory("/dev/shm")) {
        if (const char* made = ::mkdtemp(pattern))
            return made;
    }
    char fallback[] = "/tmp/zandolt-fuzz-XXXXXX";
    if (const char* made = ::mkdtemp(fallback))
        return made;
    PropertyFailed("no scratch directory can be made");
}

} // namespace

Station::Station() : dir_(MakeScratchDirectory())
{
    app = std::make_unique<App>(Services{ui, clock, serial, printer, files, programs, locale, mail});
    startRun();
    // A station that finds no settings file says so and saves its defaults; read again, they give
    // the paths of the program directory.
    ReadIniFile(*app);
    SaveIniFile(*app);
    ReadIniFile(*app);
}

Station::~Station()
{
    app.reset();
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
}

void Station::write(std::string_view name, std::string_view content)
{
    std::ofstream out(path(name), std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
}

std::string Station::read(std::string_view name)
{
    std::ifstream in(path(name), std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void Station::remove(std::string_view name)
{
    std::filesystem::remove(path(name));
}

void Station::startRun(const DateTime& now)
{
    clock.setNow(now);
    ui.clearRecords();
    ui.secondButton = false;
    ui.inputText.clear();
}

void Station::sendInPieces(int port, std::string_view text, std::size_t piece, int pauseMs)
{
    headless::LoopbackLine& line = serial.line(port);
    while (!text.empty()) {
        const std::size_t n = piece == 0 ? text.size() : std::min(piece, text.size());
        line.send(std::string(text.substr(0, n)));
        text.remove_prefix(n);
        ui.advance(pauseMs);
    }
}

Station& TheStation(void (*prepare)(Station&))
{
    // Destroyed at exit, which removes the scratch directory.
    static Station station;
    static const bool prepared = prepare != nullptr && (prepare(station), true);
    (void)prepared;
    return station;
}

std::string EmployeeFile(std::initializer_list<std::string_view> rows, const std::string& attendance)
{
    std::string text = std::string(NamesHeaderLine1) + "\r\n" + NamesHeaderLine2 + "\r\n";
    for (std::string_view row : rows)
        text.append(row).append(", ").append(attendance).append(", 0, , 0\r\n");
    return text;
}

void PropertyFailed(const std::string& what)
{
    std::string shown;
    for (unsigned char c : what) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, (c < 32 && c != '\n') || c > 126 ? "\\x%02X" : "%c", c);
        shown += escaped;
    }
    std::fprintf(stderr, "\n*** %s\n", shown.c_str());
    std::abort();
}

} // namespace zandolt::fuzz
