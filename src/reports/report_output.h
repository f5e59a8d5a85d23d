// The two files of a report, a fixed-width text and its comma-separated twin, and the error path
// that every phase of a generator ends on.
//
// A file is built in memory, its lines ended by CR LF, and replaces the old file whole at the end
// of its phase, or with what its phase had written when the phase breaks off. Nothing of a later
// phase is written.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zandolt {

class App;

// How a generator's run ended. Done: both files were written. FailedWithText: an error path after
// the text file was opened, which holds what this run wrote into it, whole, partial or nothing.
// Failed: an error path before that; whatever text file there is belongs to an earlier run.
enum class ReportOutcome { Done, FailedWithText, Failed };

// The end of a generator on one of its error paths: the busy pointer goes and the message is
// shown in a box.
ReportOutcome ReportFailed(App& app, const std::string& message, ReportOutcome outcome = ReportOutcome::Failed);

class ReportFile
{
public:
    explicit ReportFile(std::size_t expectedSize = 4096) { text_.reserve(expectedSize); }

    // Text of the line in hand.
    ReportFile& add(std::string_view text)
    {
        text_.append(text);
        return *this;
    }
    ReportFile& add(std::size_t count, char c)
    {
        text_.append(count, c);
        return *this;
    }
    // The rest of a line, and its end.
    ReportFile& line(std::string_view text = {})
    {
        text_.append(text).append("\r\n");
        return *this;
    }
    const std::string& text() const { return text_; }

    // Replaces the file at path with the text. When that fails, the generator's error path with
    // the phase's message, and false.
    bool write(App& app, const std::string& path, const std::string& failMessage) const;
    // The phase broke off with its message after its file was opened: the text so far replaces the
    // file, as an opened file keeps what reached it. FailedWithText, or Failed when even that
    // could not be written.
    ReportOutcome breakOff(App& app, const std::string& path, const std::string& failMessage) const;

private:
    std::string text_;
};

} // namespace zandolt
