// Everything a test needs to run the program without a window system, bundled.
#pragma once

#include "platform/headless/captured_printer.h"
#include "platform/headless/faulty_files.h"
#include "platform/headless/fixed_locale.h"
#include "platform/headless/headless_ui.h"
#include "platform/headless/loopback_serial.h"
#include "platform/headless/recorded_mail.h"
#include "platform/headless/recorded_programs.h"
#include "platform/headless/virtual_clock.h"
#include "platform/services.h"
#include "platform/system/posix_files.h"

#include <string>

namespace zandolt::headless {

class HeadlessBackend
{
public:
    // programDirectory stands for the current directory of the process.
    explicit HeadlessBackend(const std::string& programDirectory);

    Services services();

    VirtualClock clock;
    HeadlessUi ui;
    LoopbackSerial serial;
    CapturedPrinter printer;
    FaultyDisk realFiles;
    FaultyFiles files;
    RecordedPrograms programs;
    FixedLocale locale;
    RecordedMail mail;
};

} // namespace zandolt::headless
