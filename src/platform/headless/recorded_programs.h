// Programs and documents for the tests: nothing is started, every request is kept.
#pragma once

#include "platform/programs.h"

#include <string>
#include <vector>

namespace zandolt::headless {

// A started program's line has every word quoted, as QuotedCommand writes it.
struct ProgramRun
{
    std::string commandLine;
    std::string directory;
};

class RecordedPrograms : public Programs
{
public:
    bool run(const std::string& commandLine, const std::string& directory) override
    {
        runs.push_back({commandLine, directory});
        return runSucceeds;
    }
    bool start(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& directory) override
    {
        runs.push_back({QuotedCommand(program, arguments), directory});
        return runSucceeds;
    }
    int openDocument(const std::string& target) override
    {
        opened.push_back(target);
        return openResult;
    }

    std::vector<ProgramRun> runs;
    std::vector<std::string> opened;
    bool runSucceeds = true;
    int openResult = 42;
};

} // namespace zandolt::headless
