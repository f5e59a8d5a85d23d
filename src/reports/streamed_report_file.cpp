#include "reports/streamed_report_file.h"

#include "platform/files.h"

#include <cstdint>

namespace zandolt {

StreamedReportFile::StreamedReportFile(Files& files, const std::string& path)
    : files_(files), path_(files.resolve(path))
{
    // A name of its own beside the report, hidden, so that two runs at once do not share one.
    const size_t slash = path_.find_last_of('/');
    const auto unique = reinterpret_cast<std::uintptr_t>(this) ^ static_cast<std::uintptr_t>(path_.size());
    partPath_ = path_.substr(0, slash + 1) + "." + path_.substr(slash + 1) + "." + std::to_string(unique) + ".part";
    text_.reserve(PieceSize + 4096);
}

StreamedReportFile::StreamedReportFile(Files& files, const std::string& path, const std::string& partPath)
    : files_(files), path_(files.resolve(path)), partPath_(files.resolve(partPath))
{
    text_.reserve(PieceSize + 4096);
}

StreamedReportFile::~StreamedReportFile()
{
    if (opened_ && !finished_)
        files_.remove(partPath_);
}

bool StreamedReportFile::open()
{
    files_.remove(partPath_); // left over from a run that ended without its clean-up
    opened_ = files_.append(partPath_, "") == FileResult::Ok;
    return opened_;
}

void StreamedReportFile::flush()
{
    if (!failed_ && !text_.empty() && files_.append(partPath_, text_) != FileResult::Ok)
        failed_ = true;
    text_.clear();
}

bool StreamedReportFile::finish()
{
    if (!finished_ && opened_) {
        flush();
        finished_ = files_.rename(partPath_, path_);
    }
    return finished_ && !failed_;
}

} // namespace zandolt
