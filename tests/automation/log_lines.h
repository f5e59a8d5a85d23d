// Test log lines of the station's format, and a log file's text made of them.
#pragma once

#include <initializer_list>
#include <string>

namespace zandolt::testing {

// A log line of the station's format for a name, a date (mm-dd-yyyy) and a time.
inline std::string LogLineAt(const std::string& name, const std::string& date, const std::string& time)
{
    std::string line = name;
    line.resize(20, ' ');
    return line + ", 4711               , " + date + ", " + time + ", Wok, Lok, Rok, 01.00, 02.00, 03.00";
}

// The lines, each ended by CR LF.
inline std::string LogText(std::initializer_list<std::string> lines)
{
    std::string text;
    for (const std::string& l : lines)
        text += l + "\r\n";
    return text;
}

} // namespace zandolt::testing
