// log_append_worker DIR WORKER LINES: one station appending LINES test lines to DIR/LOG.TXT through
// the station's own log writer, as the stations sharing one log do. Line n of worker k is the test
// of "Station, k" with the ID "Wk-n" (n from 0, five digits). Exits 0 when every line went in, 1
// when the writer gave up on some (it shows its message for each), 2 on bad arguments.
#include "app.h"
#include "platform/headless/headless_backend.h"
#include "station/log_writer.h"

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: log_append_worker DIR WORKER LINES\n");
        return 2;
    }
    const std::string dir = argv[1];
    const int worker = std::atoi(argv[2]);
    const int lines = std::atoi(argv[3]);
    if (worker < 1 || worker > 9 || lines < 1 || lines > 99999) {
        std::fprintf(stderr, "log_append_worker: WORKER is 1 to 9, LINES 1 to 99999\n");
        return 2;
    }

    // The files are the real ones of the system; only the window side is the test backend, whose
    // message box records the writer's complaint instead of waiting for someone.
    zandolt::headless::HeadlessBackend backend(dir);
    zandolt::App app(backend.services());
    app.LogPath = dir + "/LOG.TXT";
    app.EmployeeCount = 1;
    app.CurrentEmployee = 0;
    app.FullName[0] = "Station, " + std::to_string(worker);
    app.ComFailFlag = zandolt::False;
    app.WristCode = "Wok";
    app.LeftCode = "Lok";
    app.RightCode = "Rok";
    app.WristReading = static_cast<float>(worker);
    app.LeftReading = 2;
    app.RightReading = 3;

    char id[32];
    for (int n = 0; n < lines; ++n) {
        std::snprintf(id, sizeof id, "W%d-%05d", worker, n);
        app.IDNum[0] = id;
        zandolt::AppendLogLine(app);
    }
    const size_t lost = backend.ui.messages().size();
    if (lost > 0)
        std::fprintf(stderr, "log_append_worker %d: %zu of %d lines lost\n", worker, lost, lines);
    return lost == 0 ? 0 : 1;
}
