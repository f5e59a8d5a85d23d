// The station of one zandolt-report command: the console window service, which writes what a
// window would show to the error stream behind the program's name, the files of the station's
// directory, the system's programs, SMTP mail, no ports and no printer, and the clock given (fixed
// or virtual) or else the system's.
#pragma once

#include "app.h"
#include "platform/console/console_devices.h"
#include "platform/console/console_ui.h"
#include "platform/qt/qt_clock_locale.h"
#include "platform/system/posix_files.h"
#include "platform/system/smtp_mail.h"
#include "platform/system/system_programs.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace zandolt {

// The directory a command's --dir names, made absolute so that the paths it hands to other
// programs stay right; nothing when it is not a directory.
inline std::optional<std::string> StationDirectory(const std::string& dir)
{
    std::error_code ec;
    const std::filesystem::path path = std::filesystem::canonical(dir, ec);
    if (ec || !std::filesystem::is_directory(path, ec))
        return std::nullopt;
    return path.string();
}

template <class WindowService = console::ConsoleUi> struct ConsoleStation
{
    // `dir` empty: the process's own current directory.
    ConsoleStation(std::ostream& err, const std::string& dir, std::optional<DateTime> now = {})
        : ui(err, "zandolt-report"), fixedClock(now ? std::make_unique<console::FixedClock>(*now) : nullptr),
          files(dir), programs(files), mail(files, &err, "zandolt-report: mail: "),
          app(Services{ui, clock(), serial, printer, files, programs, locale, mail})
    {
    }

    Clock& clock() { return fixedClock ? static_cast<Clock&>(*fixedClock) : systemClock; }

    WindowService ui;
    qt::QtClock systemClock;
    std::unique_ptr<console::FixedClock> fixedClock;
    qt::QtLocale locale;
    zandolt::system::PosixFiles files;
    zandolt::system::SystemPrograms programs;
    zandolt::system::SmtpMail mail;
    console::NoSerial serial;
    console::NoPrinter printer;
    App app;
};

} // namespace zandolt
