// What a combo tester sends during a test, as the station's port receives it: the input's bytes
// arrive in pieces with pauses between them, into the test window of one of the three employees,
// and are framed, judged, logged and answered. The window stays open for the next message, as a
// station that never closes it.
#include "data/settings_file.h"
#include "fuzz_station.h"
#include "station/name_form.h"
#include "station/rs232_form.h"

using namespace zandolt;
using namespace zandolt::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto prepare = [](Station& s) {
        s.app->Simulation = 0;
        s.app->SecondsToRetest = 0; // the window waits for the next message for as long as it takes
        SaveIniFile(*s.app);
        OpenNameForm(s);
    };
    return RunOnStation(data, size, prepare, [](Station& s, InputCursor& input) {
        App& app = *s.app;
        s.files.remove("LOG.TXT");
        // The test window of the employee in the list's row, opened as the employee opens it.
        if (const int row = input.pick(3); !app.rs232Form().loaded() || app.CurrentEmployee != row) {
            if (app.rs232Form().loaded())
                app.rs232Form().CancelButton.userClick();
            app.nameForm().List1.userSelect(row);
            app.nameForm().List1.userMouseUp();
            if (!app.rs232Form().loaded() || app.CurrentEmployee != row)
                PropertyFailed("the test window of row " + std::to_string(row) + " does not open");
        }
        s.sendInput(input, app.ComboComport, 81, 26, 100);
        // The receive window ends, the answer goes out, and the window waits for the next test.
        s.ui.advance(2500);
        s.serial.line(app.ComboComport).clearRecords();
        if (!app.rs232Form().loaded())
            PropertyFailed("the test window closed");
    });
}
