// save_worker DIR WHAT ARGS...: one save of a station's file, for the tests that kill a save
// part-way. It starts as a station in DIR would and saves, and writes "saving" and a line end on
// standard output the moment it begins to replace the first file. It saves:
//   names TAG            every employee's password set to TAG, NAMES.TXT saved
//   ini TAG              the company name set to TAG repeated to 1 MiB, ZANDOLT.INI saved
//   report KIND OPTIONS  one report, as zandolt-report makes it with the same arguments
// Exits 0 when the save went through, 1 when it took its error path (a window or a message showed
// up), 2 on bad arguments.
#include "app.h"
#include "data/names_file.h"
#include "data/settings_file.h"
#include "platform/headless/headless_backend.h"
#include "report_command.h"

#include <cstdio>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

using namespace zandolt;

namespace {

void setPasswords(App& app, const std::string& tag)
{
    for (int r = 0; r < app.EmployeeCount; ++r)
        app.EmpPassword[static_cast<size_t>(r)] = tag;
}

void setCompanyName(App& app, const std::string& tag)
{
    app.CompanyName.clear();
    while (app.CompanyName.size() < (1u << 20))
        app.CompanyName += tag;
}

// A file the worker can save: what it changes first, and the station's own save.
struct Saver
{
    const char* what;
    void (*change)(App&, const std::string&);
    void (*save)(App&);
};

const Saver Savers[] = {
    {"names", setPasswords, SaveNamesFile},
    {"ini", setCompanyName, SaveIniFile},
};

// The real files, which say so on standard output when a file is first replaced: from then on a
// kill can catch a save part-way.
class AnnouncingFiles : public headless::FaultyFiles
{
public:
    using FaultyFiles::FaultyFiles;
    FileResult replace(const std::string& path, const std::string& data) override
    {
        announce();
        return FaultyFiles::replace(path, data);
    }
    FileResult openReplace(const std::string& path, std::unique_ptr<FileWriter>& writer) override
    {
        announce();
        return FaultyFiles::openReplace(path, writer);
    }

private:
    void announce()
    {
        if (said_)
            return;
        said_ = true;
        std::fputs("saving\n", stdout);
        std::fflush(stdout);
    }
    bool said_ = false;
};

int usage()
{
    std::fprintf(stderr, "usage: save_worker DIR names|ini TAG\n       save_worker DIR report KIND OPTIONS...\n");
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4)
        return usage();
    const std::string dir = argv[1], what = argv[2];
    headless::HeadlessBackend backend(dir);
    AnnouncingFiles files(backend.realFiles);
    App app(Services{backend.ui, backend.clock, backend.serial, backend.printer, files, backend.programs,
                     backend.locale, backend.mail});

    if (what == "report") {
        const ParsedArguments parsed = ParseReportArguments(std::vector<std::string>(argv + 3, argv + argc));
        if (!parsed.error.empty() || parsed.request.help)
            return usage();
        if (parsed.request.now)
            backend.clock.setNow(*parsed.request.now);
        backend.ui.answerInputBox("Year?", YearAnswer(parsed.request, backend.clock.now()));
        std::ostringstream paths;
        return RunReport(app, parsed.request, paths, std::cerr);
    }

    for (const Saver& saver : Savers) {
        if (what != saver.what || argc != 4)
            continue;
        ReadIniFile(app);
        ReadNamesFile(app);
        saver.change(app, argv[3]);
        const size_t shown = backend.ui.journal().size();
        saver.save(app);
        return backend.ui.journal().size() == shown ? 0 : 1;
    }
    return usage();
}
