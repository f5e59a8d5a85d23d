#include "platform/headless/headless_backend.h"

namespace zandolt::headless {

HeadlessBackend::HeadlessBackend(const std::string& programDirectory)
    : ui(clock), serial(ui), realFiles(programDirectory), files(realFiles), mail(files)
{
}

Services HeadlessBackend::services()
{
    return Services{ui, clock, serial, printer, files, programs, locale, mail};
}

} // namespace zandolt::headless
