// The settings file read as a station reads it at start, then saved from what was read and read
// once more, so that the writer sees every value the reader can give it.
#include "fuzz_station.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return RunOnStation(data, size, nullptr, [](Station& s, InputCursor& input) {
        s.write("ZANDOLT.INI", input.rest());
        ReadIniFile(*s.app);
        SaveIniFile(*s.app);
        ReadIniFile(*s.app);
    });
}
