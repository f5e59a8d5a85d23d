// Starting a site's hook programs and opening documents with the desktop's handler.
#pragma once

#include <string>

namespace zandolt {

class Programs
{
public:
    virtual ~Programs() = default;
    // Runs a command line with the shell from the given directory, without waiting. False when it
    // could not be started.
    virtual bool run(const std::string& commandLine, const std::string& directory) = 0;
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

} // namespace zandolt
