// A station's fuzzed Names.txt pulled into the server's file of three by the consolidation window,
// as a server does for each station of NetList.txt; the window must run to its end and close.
#include "automation/names_consolidation.h"
#include "automation/names_form.h"
#include "fuzz_station.h"

#include <chrono>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto prepare = [](Station& s) {
        s.files.makeDirectory("station1");
        s.write("NetList.txt", s.path("station1") + "\r\n");
    };
    return RunOnStation(data, size, prepare, [](Station& s, InputCursor& input) {
        s.write("NAMES.TXT", ThreeEmployees());
        s.write("station1/Names.txt", input.rest());
        // A station's file of the server file's time is the copy that distribution left there, which
        // is passed over; files written in the same few milliseconds get the same time.
        std::filesystem::last_write_time(s.path("station1/Names.txt"),
                                         std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
        ShowNamesForm(*s.app);
        // Its messages close by themselves, and the window two seconds after its work.
        if (!s.ui.runUntil([&] { return !s.app->namesForm().loaded(); }, 60000))
            PropertyFailed("the consolidation window is still open after a minute");
    });
}
