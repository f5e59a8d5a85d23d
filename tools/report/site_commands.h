// The site server's jobs on the command line, for a server with no desk: cron or the report
// server's runner starts them. Each goes through the station's own code, on the console's window
// service: its messages go to standard error, and its windows do their work on the console's clock.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zandolt {

// True when `name` is one of the jobs: merge, logsort, getnames, sendnames, sortnames.
bool IsSiteCommand(const std::string& name);

// The lines of the usage text that tell the jobs.
std::string SiteUsage();

// Runs the job that args[0] names, with the arguments behind it. Exit code 0 when the job went its
// way without a message, 1 when it took an error path (it showed a message; for merge, when no
// output came out), 2 on a usage error. sortnames asks its question on `in` unless --yes answers
// it.
int RunSiteCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, std::istream& in);

} // namespace zandolt
