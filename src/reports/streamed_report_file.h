// A report file too large to be built in memory: the daily and individual logs hold as many lines
// as the log has in the range, and the log has no limit on its size. The text goes out in large
// pieces to a file beside the report, which takes the report's place when the run ends, complete
// or broken off with the lines it had, so a reader never finds half a file in the report's place.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zandolt {

class Files;

class StreamedReportFile
{
public:
    StreamedReportFile(Files& files, const std::string& path);
    // The same with the name of the file beside it given, for a writer that must find what a
    // killed run of its own left there.
    StreamedReportFile(Files& files, const std::string& path, const std::string& partPath);
    // Removes the file beside the report when the report did not take its place.
    ~StreamedReportFile();
    StreamedReportFile(const StreamedReportFile&) = delete;
    StreamedReportFile& operator=(const StreamedReportFile&) = delete;

    // Creates the file beside the report; false when the directory cannot be written.
    bool open();

    StreamedReportFile& add(std::string_view text)
    {
        text_.append(text);
        if (text_.size() >= PieceSize)
            flush();
        return *this;
    }
    // The rest of a line, and its end.
    StreamedReportFile& line(std::string_view text = {})
    {
        text_.append(text).append("\r\n");
        if (text_.size() >= PieceSize)
            flush();
        return *this;
    }

    // Writes what is left and puts the file, with what could be written, in the report's place;
    // false when any write failed or it could not take that place. A second call changes nothing.
    bool finish();
    // The file has taken the report's place.
    bool placed() const { return finished_; }

private:
    static constexpr std::size_t PieceSize = 1 << 20;
    void flush();

    Files& files_;
    std::string path_, partPath_;
    std::string text_;
    bool opened_ = false, failed_ = false, finished_ = false;
};

} // namespace zandolt
