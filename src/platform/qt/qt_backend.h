// Everything the program needs for real use, bundled: Qt windows, serial ports and printing, the
// system's files, programs and SMTP mail, the local clock and the process locale.
#pragma once

#include "platform/qt/qt_clock_locale.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_serial.h"
#include "platform/qt/qt_ui.h"
#include "platform/services.h"
#include "platform/system/posix_files.h"
#include "platform/system/smtp_mail.h"
#include "platform/system/system_programs.h"

namespace zandolt::qt {

class QtBackend
{
public:
    // A QApplication must exist. The program directory is the process's current directory.
    QtBackend();

    Services services();

    QtUi ui;
    QtClock clock;
    QtLocale locale;
    system::PosixFiles files;
    QtSerial serial;
    QtPrinter printer;
    system::SystemPrograms programs;
    system::SmtpMail mail;
};

} // namespace zandolt::qt
