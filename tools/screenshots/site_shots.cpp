// The site server's windows during their work: the log merge half-way through a station's log, and
// the names consolidation at its end, on two stations made beside the program directory.
#include "shots.h"

#include "automation/log_merge.h"
#include "automation/log_sort_form.h"
#include "automation/names_consolidation.h"
#include "automation/names_form.h"

#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace zandolt::screenshots {

namespace {

// Two stations beside the program directory, named in its NetList.txt: the first with a day's
// log of many tests and a names file with a changed row, the second with a names file of its own.
bool MakeStations(ShotContext& ctx)
{
    App& app = ctx.app;
    // Named as NetList.txt may name them, from the program directory.
    const std::string stations = "stations";
    app.files.makeDirectory(stations);
    const std::string line1 = stations + "/line1", line2 = stations + "/line2";
    app.files.makeDirectory(line1);
    app.files.makeDirectory(line2);
    // The same days at the server and at the station, the tests of each in turn; now and then the
    // station's log repeats a line the server has, as a copy taken by hand would.
    std::string serverLog, log;
    for (int i = 0; i < 100000; ++i) {
        char text[160];
        std::snprintf(text, sizeof text,
                      "Tester%-14d, L%d-%-15d, 11-%02d-2026, %02d:%02d:%02d, Wok, Lok, Rok, 01.20, 12.50, 11.00\r\n",
                      i % 20, 1 + i % 2, i % 20, 21 + i / 25000, (i / 3600) % 24, (i / 60) % 60, i % 60);
        (i % 2 == 0 ? serverLog : log) += text;
        if (i % 2000 == 0)
            log += text;
    }
    if (app.files.replace("log.txt", serverLog) != FileResult::Ok)
        return false;
    const std::string rest = ", -1.00, -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2027, " +
                             std::string(372, 'A') + ", 0, , ";
    return app.files.replace(line1 + "/Log.txt", log) == FileResult::Ok &&
           app.files.replace(line1 + "/Names.txt", "# h\r\n# h\r\nNew, Hire, L1-900" + rest + "1\r\n") ==
               FileResult::Ok &&
           app.files.replace(line2 + "/Names.txt", "# h\r\n# h\r\nOther, Person, L2-901" + rest + "0\r\n") ==
               FileResult::Ok &&
           app.files.replace("NetList.txt", line1 + "\r\n" + line2 + "\r\n") == FileResult::Ok;
}

} // namespace

bool ShootLogSortForm(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx) || !MakeStations(ctx))
        return false;
    LogSortForm& form = ctx.app.logSortForm();
    // The picture is taken from the merge's own turns of the event loop, half-way through.
    bool saved = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        const int written = std::atoi(form.Label13.caption().c_str());
        if (!saved && form.loaded() && written > 40000 && written < 90000) {
            saved = SaveWindow(ctx, form, file);
            watch.stop();
        }
    });
    watch.start(20);
    RunLogMerge(ctx.app);
    return saved;
}

bool ShootNamesForm(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx) || !MakeStations(ctx))
        return false;
    NamesForm& form = ctx.app.namesForm();
    ShowNamesForm(ctx.app);
    if (!RunUntil([&] { return form.loaded() && form.StatusLabel.caption() == "Done."; }, 10000))
        return false;
    RunFor(300);
    const bool saved = SaveWindow(ctx, form, file);
    RunUntil([&] { return !form.loaded(); }, 5000);
    return saved;
}

} // namespace zandolt::screenshots
