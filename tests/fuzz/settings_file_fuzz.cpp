// The settings file read as a station reads it at start, then saved from what was read and read
// once more, so that the writer sees every value the reader can give it.
#include "data/settings_file.h"
#include "fuzz_station.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zandolt;
    return fuzz::RunOnStation(data, size, nullptr, [](fuzz::Station& s, fuzz::InputCursor& input) {
        s.write("ZANDOLT.INI", input.rest());
        ReadIniFile(*s.app);
        SaveIniFile(*s.app);
        ReadIniFile(*s.app);
    });
}
