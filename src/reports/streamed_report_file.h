// A report file too large to be built in memory: the daily and individual logs hold as many lines
// as the log has in the range, and the log has no limit on its size. The text goes out in large
// pieces to a replacement of the report, which takes the report's place when it is finished, whole
// or broken off with the lines it had; one never finished, or whose writes failed, leaves the old
// report as it was. Nobody ever finds half a file in the report's place.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace zandolt {

class Files;
class FileWriter;

class StreamedReportFile
{
public:
    StreamedReportFile(Files& files, const std::string& path);
    // Drops the replacement when the report did not take its place.
    ~StreamedReportFile();
    StreamedReportFile(const StreamedReportFile&) = delete;
    StreamedReportFile& operator=(const StreamedReportFile&) = delete;

    // Starts the replacement; false when the report cannot be written.
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

    // Writes what is left and puts the file in the report's place; false when any write failed,
    // and the old file then stays. A second call changes nothing.
    bool finish();
    // The file has taken the report's place.
    bool placed() const { return placed_; }

private:
    // The text grows to a piece as the report does: a report of a few lines never takes a MiB.
    static constexpr std::size_t PieceSize = 1 << 20;
    void flush();

    Files& files_;
    std::string path_;
    std::unique_ptr<FileWriter> writer_;
    std::string text_;
    bool placed_ = false;
};

} // namespace zandolt
