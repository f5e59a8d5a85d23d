#include "site_commands.h"

#include "app.h"
#include "automation/log_merge.h"
#include "automation/log_merge_rule.h"
#include "automation/names_consolidation.h"
#include "automation/names_form.h"
#include "console_station.h"
#include "data/names_file.h"
#include "data/settings_file.h"
#include "platform/console/console_ui.h"

#include <istream>
#include <ostream>

namespace zandolt {

namespace {

constexpr int Done = 0, Failed = 1, UsageError = 2;

int usage(std::ostream& err, const std::string& error)
{
    err << "zandolt-report: " << error << "\n\n" << SiteUsage();
    return UsageError;
}

int merge(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    if (args.size() != 4)
        return usage(err, "merge takes three files: IN1 IN2 OUT");
    ConsoleStation<> station(err, "");
    LogMergeCounts counts;
    if (!MergeLogFiles(station.app, args[1], args[2], args[3], counts))
        return Failed;
    out << counts.read1 << ' ' << counts.read2 << ' ' << counts.written << '\n';
    if (counts.duplicates)
        out << "duplicates removed\n";
    return Done;
}

} // namespace

bool IsSiteCommand(const std::string& name)
{
    return name == "merge" || name == "logsort" || name == "getnames" || name == "sendnames" || name == "sortnames";
}

std::string SiteUsage()
{
    return "The site server's jobs:\n"
           "  zandolt-report merge IN1 IN2 OUT     merges two test logs into a third; prints the lines read\n"
           "                                       from each and written, and whether duplicates were removed\n"
           "  zandolt-report logsort [--dir DIR]   drains every station's Log.txt into DIR's log.txt\n"
           "  zandolt-report getnames [--dir DIR]  gathers the stations' Names.txt into DIR's Names.txt\n"
           "  zandolt-report sendnames [--dir DIR] copies DIR's Names.txt to every station\n"
           "  zandolt-report sortnames [--dir DIR] [--yes]\n"
           "                                       sorts the employee file, dropping repeated names and IDs\n"
           "The stations are the directories in DIR's NetList.txt, one a line, or else /mnt/i, /mnt/j, /mnt/k\n"
           "and /mnt/l. Messages go to standard error. Exit status: 0 done, 1 a message was shown (an error\n"
           "path, a station that could not be reached included), 2 a usage error.\n";
}

int RunSiteCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, std::istream& in)
{
    const std::string& job = args.at(0);
    if (job == "merge")
        return merge(args, out, err);

    std::string dir = ".";
    bool yes = false;
    for (size_t i = 1; i < args.size(); ++i) {
        if (args[i] == "--dir" && i + 1 < args.size())
            dir = args[++i];
        else if (args[i] == "--yes" && job == "sortnames")
            yes = true;
        else
            return usage(err, "unknown argument \"" + args[i] + "\" for " + job);
    }
    const std::optional<std::string> path = StationDirectory(dir);
    if (!path)
        return usage(err, "no directory \"" + dir + "\"");

    // The server starts as a station in its directory would: its settings first.
    ConsoleStation<> station(err, *path);
    App& app = station.app;
    ReadIniFile(app);
    if (job == "logsort") {
        RunLogMerge(app);
    } else if (job == "getnames") {
        ShowNamesForm(app);
        station.ui.runUntil([&app] { return !app.namesForm().loaded(); }, console::ConsoleUi::ModalLimitMs);
    } else if (job == "sendnames") {
        SendNamesToStations(app);
    } else {
        ReadNamesFile(app);
        if (yes)
            station.ui.answerQuestions(msgbox::Yes);
        else
            station.ui.askQuestionsOn(in);
        SortNamesFile(app);
    }
    return station.ui.messagesWritten() > 0 ? Failed : Done;
}

} // namespace zandolt
