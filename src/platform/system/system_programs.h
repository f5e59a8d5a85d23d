// Starting programs with /bin/sh, detached, and opening documents with xdg-open.
#pragma once

#include "platform/files.h"
#include "platform/programs.h"

namespace zandolt::system {

class SystemPrograms : public Programs
{
public:
    explicit SystemPrograms(Files& files) : files_(files) {}
    bool run(const std::string& commandLine, const std::string& directory) override;
    int openDocument(const std::string& target) override;

private:
    Files& files_;
};

} // namespace zandolt::system
