// The settings file read as a station reads it at start, then saved from what was read and read
// once more, so that the writer sees every value the reader can give it.
#include "data/settings_file.h"
#include "fuzz_station.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zandolt;
    static fuzz::Station& s = fuzz::TheStation();
    s.startRun();
    s.write("ZANDOLT.INI", std::string_view(reinterpret_cast<const char*>(data), size));
    ReadIniFile(*s.app);
    SaveIniFile(*s.app);
    ReadIniFile(*s.app);
    return 0;
}
