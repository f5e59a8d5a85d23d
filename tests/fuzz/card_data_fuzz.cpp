// What a card reader sends on the station's reader port, for each kind of reader (HID, Casi-Rusco,
// a general RS232 reader, RW-400): the input's bytes arrive in pieces with pauses between them,
// with the reader's bit settings and the enrolment of unknown badges as the input chooses, and
// are turned into a card, looked up and acted on as a station does.
#include "data/names_file.h"
#include "fuzz_station.h"
#include "station/name_form.h"
#include "station/rs232_form.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace zandolt::fuzz {
namespace {

const std::string& Employees()
{
    static const std::string text =
        EmployeeFile({"Doe, Jane, ASM-4711:180, -1.00, -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, "
                      "12/31/2030",
                      "Poe, Edgar, 1443, -1.00, -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2030",
                      "Smith, Mary Ann, QA-9:0005, -1.00, -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, "
                      "12/31/2030"});
    return text;
}

constexpr int EmployeeCount = 3;

// The employee file as it was, when the last input enrolled somebody.
void ResetEmployees(Station& s)
{
    if (s.app->EmployeeCount == EmployeeCount && s.read("NAMES.TXT") == Employees())
        return;
    s.write("NAMES.TXT", Employees());
    ReadNamesFile(*s.app);
}

void StartStation(Station& s)
{
    s.write("NAMES.TXT", Employees());
    s.app->nameForm().Load();
    s.ui.advance(10000); // the title screen closes by itself
}

} // namespace
} // namespace zandolt::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zandolt;
    using namespace zandolt::fuzz;
    static Station& s = TheStation(StartStation);
    s.startRun();
    ResetEmployees(s);
    App& app = *s.app;
    NameForm& f = app.nameForm();
    InputCursor input(data, size);

    const int kind = 2 + input.pick(4);
    if (kind != app.BarCodeFlag) {
        app.BarCodeFlag = static_cast<int16>(kind);
        f.OpenReaderPort();
    }
    app.ProxText.clear();
    app.SkipProxBits = static_cast<int16>(input.pick(40) - 4);
    app.UseProxMiddleBits = static_cast<int16>(input.pick(70) - 4);
    app.UseLastChars = static_cast<int16>(input.pick(12));
    app.SkipChars = static_cast<int16>(input.pick(12) - 6);
    app.UseBadgeToIdentifyFlag = input.pick(2) == 0 ? False : True;
    static const int16 enrolment[] = {0, 1, 3};
    app.AddUnknownFlag = enrolment[input.pick(3)];
    s.ui.secondButton = input.pick(2) == 1;
    static const char* const names[] = {"Okafor Ade", "Doe, Jane", "", "Smith", "Mary Ann Smith"};
    s.ui.inputText = names[input.pick(5)];

    // Pieces of 1 to 40 bytes (0: all at once), each after a pause of 0 to 300 ms.
    const std::size_t piece = input.pick(41);
    const int pauseMs = input.pick(31) * 10;
    s.sendInPieces(app.ProximityComport, input.rest(), piece, pauseMs);
    s.ui.advance(500); // the silence that ends a card of the Casi-Rusco and RW-400 readers
    // A card that started a test: the employee walks away.
    if (app.rs232Form().loaded())
        app.rs232Form().CancelButton.userClick();
    s.serial.line(app.ProximityComport).clearRecords();
    s.serial.line(app.ComboComport).clearRecords();
    return 0;
}
