// The test log read from its first line in large pieces. The log has no limit on its size, so only
// the piece in hand is held, and a line that reaches beyond it.
//
// Two ways of reading share the stream: a field at a time, as the reports' comma-separated reader
// takes the log without regard to where its lines end, and a line at a time.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace zandolt {

class LogStream
{
public:
    // Opens the file; opened() tells how that went.
    LogStream(Files& files, const std::string& path);
    // Reads what a reader hands out, which may stand between the file and the stream.
    explicit LogStream(std::unique_ptr<FileReader> reader);

    FileResult opened() const { return opened_; }
    // Nothing is left to read: the end of the file, or a read that failed, which failed() tells.
    bool atEnd();
    bool failed() const { return failed_; }

    // The next field from where the last one ended: blanks in front skipped, up to the next comma
    // or the end of the line, blanks behind dropped. A field that ends with its line takes the
    // line end with it, so the next field comes from the next line, and an empty line is one empty
    // field. False when nothing is left to read.
    bool readField(std::string& field);
    // What is left of the line in hand, without its line end; the next read starts on the next
    // line. False when nothing is left to read.
    bool readRestOfLine(std::string& rest);
    // The next whole line, without its line end; the view holds until the next read. False when
    // nothing is left to read.
    bool readLine(std::string_view& line);

    // What is left of the line in hand, without its line end, read nothing yet: a reader that finds
    // all it needs there takes it in one look and then moves on by advance() or nextLine(). The
    // view holds until the next read. False when nothing is left to read.
    bool peekLine(std::string_view& rest);
    // Moves on by count characters of what peekLine() showed.
    void advance(std::size_t count) { pos_ += count; }
    // Moves past the line in hand.
    void nextLine() { endLine(); }

private:
    // Makes the line from pos_ on whole in the buffer and sets lineEnd_ to its line feed, or to the
    // end of the data when the file ends without one. False when nothing is left.
    bool haveLine();
    // The end of the line's text: lineEnd_, less a carriage return in front of it.
    std::size_t textEnd() const;
    // Moves past the line in hand.
    void endLine();
    // Keeps the bytes from pos_ on, at the front of a buffer large enough for one more piece, and
    // reads the piece.
    void fill();
    // A buffer of `size` bytes that begins with the end_ bytes in hand.
    void grow(std::size_t size);

    std::unique_ptr<FileReader> reader_;
    FileResult opened_;
    // Only what was read into the buffer is ever looked at, so it is not cleared first, which
    // would cost the read of a small log more than the reading itself.
    std::unique_ptr<char[]> buffer_;
    std::size_t size_ = 0;
    std::size_t pos_ = 0, end_ = 0;
    std::size_t lineEnd_ = NoLine;
    std::size_t searched_ = 0; // the line feed was looked for up to here
    bool eof_ = false, failed_ = false;

    static constexpr std::size_t NoLine = static_cast<std::size_t>(-1);
};

} // namespace zandolt
