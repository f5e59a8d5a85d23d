// What a combo tester sends during a test, in pieces with pauses between them, into the test window
// of one of the three employees: framed, judged, logged and answered, the window staying open for
// the next message as at a station that never closes it.
#include "fuzz_station.h"
#include "station/rs232_form.h"

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
        if (const int row = input.pick(3); !app.rs232Form().loaded() || app.CurrentEmployee != row) {
            if (app.rs232Form().loaded())
                app.rs232Form().CancelButton.userClick();
            app.nameForm().List1.userSelect(row);
            app.nameForm().List1.userMouseUp();
            if (!app.rs232Form().loaded() || app.CurrentEmployee != row)
                PropertyFailed("the test window of row " + std::to_string(row) + " does not open");
        }
        s.sendInput(input, app.ComboComport, 81, 26, 100);
        s.ui.advance(2500); // the receive window ends and the answer goes out
        s.serial.line(app.ComboComport).clearRecords();
        if (!app.rs232Form().loaded())
            PropertyFailed("the test window closed");
    });
}
