// What a card reader of each kind (HID, Casi-Rusco, a general RS232 reader, RW-400) sends on the
// reader port, in pieces with pauses between them, under the bit settings and the enrolment of
// unknown badges the input chooses: turned into a card, looked up and acted on as a station does.
#include "fuzz_station.h"
#include "station/rs232_form.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return RunOnStation(data, size, OpenNameForm, [](Station& s, InputCursor& input) {
        App& app = *s.app;
        // The employee file as it was, when the last input enrolled somebody.
        if (app.EmployeeCount != 3 || s.read("NAMES.TXT") != ThreeEmployees()) {
            s.write("NAMES.TXT", ThreeEmployees());
            ReadNamesFile(app);
        }
        if (const int kind = 2 + input.pick(4); kind != app.BarCodeFlag) {
            app.BarCodeFlag = static_cast<int16>(kind);
            app.nameForm().OpenReaderPort();
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
        s.sendInput(input, app.ProximityComport, 41, 31, 10);
        s.ui.advance(500);            // the silence that ends a card of the Casi-Rusco and RW-400 readers
        if (app.rs232Form().loaded()) // the card started a test: the employee walks away
            app.rs232Form().CancelButton.userClick();
        s.serial.line(app.ProximityComport).clearRecords();
        s.serial.line(app.ComboComport).clearRecords();
    });
}
