#include "platform/qt/qt_backend.h"

namespace zandolt::qt {

QtBackend::QtBackend() : serial(files), programs(files) {}

Services QtBackend::services()
{
    return Services{ui, clock, serial, printer, files, programs, locale};
}

} // namespace zandolt::qt
