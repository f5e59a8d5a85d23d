// StringToDate on any text, with a present year from the input's first byte (1990 to 2245): the
// in-line reading of the form the system writes must give what the reading of every form gives,
// and a date read must lie in the calendar the system holds and read back from its written form.
#include "data/dates.h"
#include "fuzz_station.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    InputCursor input(data, size);
    const int presentYear = 1990 + input.byte();
    const std::string_view text = input.rest();
    const Date date = StringToDate(text, presentYear);
    const auto fail = [&](const std::string& what) { PropertyFailed("[" + std::string(text) + "] " + what); };
    if (const Date anyForm = StringToDateOfAnyForm(text, presentYear); date != anyForm)
        fail("reads " + std::to_string(date) + " in line and " + std::to_string(anyForm) + " in any form");
    if (date == 0)
        return 0;
    if (date < DateSerial(100, 1, 1) || date > DateSerial(9999, 12, 31))
        fail("reads " + std::to_string(date) + ", outside the calendar");
    // A date of a year that the sliding century leaves alone reads back from its written form.
    const std::string written = FormatPaddedDate(date);
    if (SplitDate(date).year >= presentYear - 30 && StringToDate(written, presentYear) != date)
        fail("reads " + written + ", which reads back as " + FormatPaddedDate(StringToDate(written, presentYear)));
    return 0;
}
