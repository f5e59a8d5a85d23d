#include "reports/log_stream.h"

#include <algorithm>
#include <cstring>

namespace zandolt {

namespace {

// A piece of the log read at once: large enough that the reads cost little beside the scan, small
// enough to stay in the processor's cache while it is scanned.
constexpr std::size_t PieceSize = 256 * 1024;

} // namespace

LogStream::LogStream(Files& files, const std::string& path) : opened_(files.openRead(path, reader_))
{
    if (opened_ != FileResult::Ok) {
        eof_ = true;
        return;
    }
    grow(PieceSize);
}

LogStream::LogStream(std::unique_ptr<FileReader> reader) : reader_(std::move(reader)), opened_(FileResult::Ok)
{
    grow(PieceSize);
}

void LogStream::grow(std::size_t size)
{
    auto bigger = std::make_unique_for_overwrite<char[]>(size);
    if (end_ > 0)
        std::memcpy(bigger.get(), buffer_.get(), end_);
    buffer_ = std::move(bigger);
    size_ = size;
}

void LogStream::fill()
{
    if (pos_ > 0) {
        std::memmove(buffer_.get(), buffer_.get() + pos_, end_ - pos_);
        end_ -= pos_;
        searched_ = searched_ > pos_ ? searched_ - pos_ : 0;
        pos_ = 0;
    }
    // A line longer than what the buffer holds makes it grow.
    if (size_ - end_ < PieceSize / 2)
        grow(std::max(2 * size_, end_ + PieceSize));
    const std::int64_t n = reader_->read(buffer_.get() + end_, size_ - end_);
    if (n > 0) {
        end_ += static_cast<std::size_t>(n);
        return;
    }
    eof_ = true;
    failed_ = n < 0;
}

bool LogStream::atEnd()
{
    if (pos_ == end_ && !eof_)
        fill();
    return failed_ || pos_ == end_;
}

bool LogStream::haveLine()
{
    // At the end of the data nothing is left, also behind a comma that ended a last line without
    // a line end.
    if (failed_ || (pos_ == end_ && eof_))
        return false;
    if (lineEnd_ != NoLine)
        return true;
    if (searched_ < pos_)
        searched_ = pos_;
    for (;;) {
        const void* feed = std::memchr(buffer_.get() + searched_, '\n', end_ - searched_);
        if (feed != nullptr) {
            lineEnd_ = static_cast<std::size_t>(static_cast<const char*>(feed) - buffer_.get());
            return true;
        }
        searched_ = end_;
        if (eof_) {
            if (pos_ == end_)
                return false;
            lineEnd_ = end_;
            return true;
        }
        fill();
        if (failed_)
            return false;
    }
}

std::size_t LogStream::textEnd() const
{
    return lineEnd_ > pos_ && buffer_[lineEnd_ - 1] == '\r' ? lineEnd_ - 1 : lineEnd_;
}

void LogStream::endLine()
{
    pos_ = lineEnd_ < end_ ? lineEnd_ + 1 : end_;
    lineEnd_ = NoLine;
}

bool LogStream::readField(std::string& field)
{
    if (!haveLine())
        return false;
    const char* const data = buffer_.get();
    std::size_t b = pos_;
    const std::size_t text = textEnd();
    while (b < text && data[b] == ' ')
        ++b;
    std::size_t e;
    const void* comma = std::memchr(data + b, ',', text - b);
    if (comma != nullptr) {
        e = static_cast<std::size_t>(static_cast<const char*>(comma) - data);
        pos_ = e + 1;
    } else {
        e = text;
        endLine();
    }
    while (e > b && data[e - 1] == ' ')
        --e;
    field.assign(data + b, e - b);
    return true;
}

bool LogStream::readRestOfLine(std::string& rest)
{
    std::string_view line;
    if (!readLine(line))
        return false;
    rest.assign(line);
    return true;
}

bool LogStream::peekLine(std::string_view& rest)
{
    if (!haveLine())
        return false;
    rest = std::string_view(buffer_.get() + pos_, textEnd() - pos_);
    return true;
}

bool LogStream::readLine(std::string_view& line)
{
    if (!haveLine())
        return false;
    const std::size_t text = textEnd();
    line = std::string_view(buffer_.get() + pos_, text - pos_);
    endLine();
    return true;
}

} // namespace zandolt
