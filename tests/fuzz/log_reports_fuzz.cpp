// Every report generator over a fuzzed LOG.TXT, with the parameters the input's first bytes choose,
// on an employee table of the kinds of rows a site has: both straps, one strap only, on leave, a name
// too long for its column, a UTF-8 name.
#include "data/dates.h"
#include "fuzz_station.h"
#include "reports/report_generators.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto prepare = [](Station& s) {
        std::string attendance(AttendanceLength, 'A');
        s.write(
            "NAMES.TXT",
            EmployeeFile(
                {"Doe, Jane, ASM-4711, -1.00, -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2027",
                 "Poe, Edgar, QA-3, 000.75, 010.00, -1.00, -1.00, -1, 0, E, 01/05/2026, 01/05/2026, 1, 06/15/2026",
                 "Smith, Mary Ann, 12345, -1.00, -1.00, 000.75, 099.98, 0, -1, V, 06/10/2026, 06/20/2026, 2, "
                 "06/01/2026",
                 "Featherstonehaugh-Smythe, Bartholomew Alexander, ASM-123456789012345678:77, -1.00, -1.00, "
                 "-1.00, -1.00, -1, -1, S, 06/14/2026, 06/16/2026, 1, 01/01/2030",
                 "Mu\xC3\xB1oz, Jos\xC3\xA9, QA-77:900, -1.00, -1.00, -1.00, -1.00, -1, -1, T, 06/01/2026, "
                 "06/30/2026, 1, 12/31/2026"},
                attendance.replace(150, 9, "SSTTVVAA*")));
        ReadNamesFile(*s.app);
        if (s.app->EmployeeCount != 5)
            PropertyFailed("the employee file of the reports does not read");
    };
    return RunOnStation(data, size, prepare, [](Station& s, InputCursor& input) {
        App& app = *s.app;
        const ReportGenerators& g = AvailableReportGenerators();
        const ReportGenerator* const generators[] = {&g.monthly,     &g.daily,         &g.individual, &g.exceptions,
                                                     &g.twiceTested, &g.certification, &g.vacation,   &g.attendance};
        const ReportGenerator& generate = *generators[input.pick(8)];
        // Month 0 and 13 lie outside the year; the dates run around the present one, 15 June 2026.
        app.ReportMonth = static_cast<int16>(input.pick(14));
        const Date today = DateSerial(2026, 6, 15);
        app.ReportDate = today - 40 + input.pick(64);
        app.ReportStartDate = today - 40 + input.pick(64);
        app.ReportStopDate = app.ReportStartDate + input.pick(64) - 8;
        static const char* const groups[] = {"", "ASM", "QA", "12345", "asm"};
        app.ReportWorkGroup = groups[input.pick(5)];
        app.ReportEmployeeIndex = static_cast<int16>(input.pick(app.EmployeeCount + 1) - 1);
        app.ReportEmployeeName =
            app.ReportEmployeeIndex < 0 ? std::string() : app.FullName[static_cast<size_t>(app.ReportEmployeeIndex)];
        app.ExceptionStartTime = app.DailyStartTime = input.pick(24) * 3600 + input.pick(60) * 60;
        app.ExceptionStopTime = app.DailyStopTime =
            std::min<TimeOfDay>(EndOfDay, app.ExceptionStartTime + input.pick(25) * 3600);
        static const char* const years[] = {"2026", "2025", "0", "1e9", "-7"};
        s.ui.inputText = years[input.pick(5)];
        s.write("LOG.TXT", input.rest());
        generate(app);
    });
}
