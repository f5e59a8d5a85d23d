// Starting programs with /bin/sh, detached, and opening documents with xdg-open.
#pragma once

#include "platform/files.h"
#include "platform/programs.h"

#include <string>
#include <vector>

namespace zandolt::system {

class SystemPrograms : public Programs
{
public:
    explicit SystemPrograms(Files& files) : files_(files) {}
    bool run(const std::string& commandLine, const std::string& directory) override;
    bool start(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& directory) override;
    int openDocument(const std::string& target) override;

private:
    // argv[0] is the program; quiet sends its output to /dev/null.
    bool launch(const std::vector<std::string>& argv, const std::string& directory, bool quiet);

    Files& files_;
};

} // namespace zandolt::system
