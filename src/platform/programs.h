// Starting a site's hook programs and opening documents with the desktop's handler.
#pragma once

#include <string>
#include <vector>

namespace zandolt {

class Programs
{
public:
    virtual ~Programs() = default;
    // Runs a command line with the shell from the given directory, without waiting. False when the
    // shell could not be started; what the line does then is its own business, as a site's hook
    // reports nothing back.
    virtual bool run(const std::string& commandLine, const std::string& directory) = 0;
    // Starts a program with its arguments from the given directory (the current one when empty),
    // without waiting and without a shell; a name without "/" is looked up where programs are
    // installed. False when the program could not be started: not installed, not executable, or
    // the directory is not there.
    virtual bool start(const std::string& program, const std::vector<std::string>& arguments,
                       const std::string& directory) = 0;
    // Opens a document or a web address with its registered program. Returns above 32 on success,
    // 2 when the file was not found.
    virtual int openDocument(const std::string& target) = 0;
};

// The text in single quotes for the shell, so that a path with blanks stays one word.
inline std::string QuoteForShell(const std::string& text)
{
    std::string q = "'";
    for (char c : text)
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

// A program and its arguments as one line, each word quoted, as a shell would take them.
inline std::string QuotedCommand(const std::string& program, const std::vector<std::string>& arguments)
{
    std::string line = QuoteForShell(program);
    for (const std::string& a : arguments)
        line += " " + QuoteForShell(a);
    return line;
}

} // namespace zandolt
