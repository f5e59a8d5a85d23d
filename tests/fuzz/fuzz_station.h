// A station for the fuzz targets: the headless backend's pieces over a scratch directory in
// /dev/shm, one App for the whole process, and a window service that answers every question, so
// that no input stops a run on a question nobody scripted.
#pragma once

#include "app.h"
#include "platform/headless/captured_printer.h"
#include "platform/headless/headless_ui.h"
#include "platform/headless/loopback_serial.h"
#include "platform/headless/recorded_mail.h"
#include "platform/headless/recorded_programs.h"
#include "platform/headless/virtual_clock.h"
#include "platform/qt/qt_clock_locale.h"
#include "platform/system/posix_files.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zandolt::fuzz {

// Answers a box that asks more than OK with its first button or its second, and an input box with
// the text given.
class AnsweringUi : public headless::HeadlessUi
{
public:
    using HeadlessUi::HeadlessUi;
    int msgBox(const std::string& prompt, int buttons, const std::string& title) override;
    std::string inputBox(const std::string& prompt, const std::string& title, const std::string& defaultText) override;

    bool secondButton = false;
    std::string inputText;
};

class Station
{
    // First, so that the files are built on it.
    std::string dir_;

public:
    // The scratch directory is the program directory; it goes when the process ends.
    Station();
    ~Station();
    Station(const Station&) = delete;
    Station& operator=(const Station&) = delete;

    std::string path(std::string_view name) const { return dir_ + "/" + std::string(name); }
    void write(std::string_view name, std::string_view content);
    std::string read(std::string_view name);
    void remove(std::string_view name);

    // The same moment for every input, so that an input found once gives the same run again; the
    // records of the last run dropped.
    void startRun(const DateTime& now = DateTime{2026, 6, 15, 10, 30, 0, 0});
    // The text arriving at the far end of a port in pieces of `piece` bytes (0: all at once), each
    // followed by a pause.
    void sendInPieces(int port, std::string_view text, std::size_t piece, int pauseMs);

    headless::VirtualClock clock;
    AnsweringUi ui{clock};
    headless::LoopbackSerial serial{ui};
    headless::CapturedPrinter printer;
    system::PosixFiles files{dir_};
    qt::QtLocale locale{QLocale(QLocale::English, QLocale::UnitedStates)};
    headless::RecordedPrograms programs;
    headless::RecordedMail mail{files};
    std::unique_ptr<App> app;
};

// The station of the process, built at the first call, which also runs `prepare` on it.
Station& TheStation(void (*prepare)(Station&) = nullptr);

// An employee file: the two header lines, then one line for each row, which gives the fields up to
// the certification expiry; the attendance, an empty password and the update flag 0 follow.
std::string EmployeeFile(std::initializer_list<std::string_view> rows,
                         const std::string& attendance = std::string(AttendanceLength, 'A'));

// Takes the input from the front: single bytes and numbers for a target's choices, then the rest.
class InputCursor
{
public:
    InputCursor(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    std::uint8_t byte() { return pos_ < size_ ? data_[pos_++] : 0; }
    // A number from 0 to count - 1.
    int pick(int count) { return byte() % count; }
    std::string_view rest() const
    {
        return std::string_view(reinterpret_cast<const char*>(data_) + pos_, size_ - pos_);
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t pos_ = 0;
};

// A broken property: the message and the input's effect on standard error, then abort, which the
// fuzzer reports with the input.
[[noreturn]] void PropertyFailed(const std::string& what);

} // namespace zandolt::fuzz
