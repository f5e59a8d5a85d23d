#include "reports/streamed_report_file.h"

#include "platform/files.h"

namespace zandolt {

StreamedReportFile::StreamedReportFile(Files& files, const std::string& path) : files_(files), path_(path) {}

StreamedReportFile::~StreamedReportFile() = default;

bool StreamedReportFile::open()
{
    return files_.openReplace(path_, writer_) == FileResult::Ok;
}

void StreamedReportFile::flush()
{
    if (writer_ && !text_.empty())
        writer_->write(text_);
    text_.clear();
}

bool StreamedReportFile::finish()
{
    if (writer_) {
        flush();
        placed_ = writer_->commit() == FileResult::Ok;
        writer_.reset();
    }
    return placed_;
}

} // namespace zandolt
