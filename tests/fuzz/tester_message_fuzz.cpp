// What a combo tester sends during a test, as the station's port receives it: the input's bytes
// arrive in pieces with pauses between them, into the test window of one of three employees (both
// straps, the wrist alone with limits of its own, the feet alone), and are framed, judged, logged
// and answered. The window stays open for the next message, as a station that never closes it.
#include "data/names_file.h"
#include "data/settings_file.h"
#include "fuzz_station.h"
#include "station/name_form.h"
#include "station/rs232_form.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace zandolt::fuzz {
namespace {

void StartStation(Station& s)
{
    App& app = *s.app;
    app.Simulation = 0;
    app.SecondsToRetest = 0; // the window waits for the next message for as long as it takes
    SaveIniFile(app);
    s.write("NAMES.TXT",
            EmployeeFile({"Doe, Jane, ASM-4711, -1.00, -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, "
                          "12/31/2030",
                          "Poe, Edgar, QA-3, 001.50, 005.00, -1.00, -1.00, -1, 0, E, 01/05/2026, 01/05/2026, 1, "
                          "12/31/2030",
                          "Smith, Mary Ann, 12345, 0.00, 0.00, 0.00, 0.00, 0, -1, E, 01/05/2026, 01/05/2026, 1, "
                          "12/31/2030"}));
    app.nameForm().Load();
    s.ui.advance(10000); // the title screen closes by itself
}

// The test window of the employee in the list's row, opened as the employee opens it.
void OpenTestWindow(Station& s, int row)
{
    App& app = *s.app;
    if (app.rs232Form().loaded() && app.CurrentEmployee == row)
        return;
    if (app.rs232Form().loaded())
        app.rs232Form().CancelButton.userClick();
    NameForm& f = app.nameForm();
    f.List1.userSelect(row);
    f.List1.userMouseUp();
    if (!app.rs232Form().loaded() || app.CurrentEmployee != row)
        PropertyFailed("the test window of row " + std::to_string(row) + " does not open");
}

} // namespace
} // namespace zandolt::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zandolt;
    using namespace zandolt::fuzz;
    static Station& s = TheStation(StartStation);
    s.startRun();
    s.remove("LOG.TXT");
    InputCursor input(data, size);
    OpenTestWindow(s, input.pick(3));
    // Pieces of 1 to 80 characters (0: the whole text at once), each after a pause of 0 to 2.5 s.
    const std::size_t piece = input.pick(81);
    const int pauseMs = input.pick(26) * 100;
    s.sendInPieces(s.app->ComboComport, input.rest(), piece, pauseMs);
    // The receive window ends, the answer goes out, and the window waits for the next test.
    s.ui.advance(2500);
    s.serial.line(s.app->ComboComport).clearRecords();
    if (!s.app->rs232Form().loaded())
        PropertyFailed("the test window closed");
    return 0;
}
