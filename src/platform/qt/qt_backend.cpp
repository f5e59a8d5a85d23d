#include "platform/qt/qt_backend.h"

#include <iostream>

namespace zandolt::qt {

QtBackend::QtBackend() : serial(files), programs(files), mail(files, &std::cerr) {}

Services QtBackend::services()
{
    return Services{ui, clock, serial, printer, files, programs, locale, mail};
}

} // namespace zandolt::qt
