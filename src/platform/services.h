// The platform services a backend provides, handed to the App as one bundle.
#pragma once

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/locale.h"
#include "platform/mail.h"
#include "platform/printer.h"
#include "platform/programs.h"
#include "platform/serial.h"
#include "platform/ui.h"

namespace zandolt {

struct Services
{
    Ui& ui;
    Clock& clock;
    Serial& serial;
    Printer& printer;
    Files& files;
    Programs& programs;
    Locale& locale;
    Mail& mail;
};

} // namespace zandolt
