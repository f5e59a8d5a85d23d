// The comma-separated fields of one line of a data file, taken from the left one at a time.
// A comma from the second character of the remainder on ends a field, which is handed out
// without its surrounding blanks. Without such a comma, or with a comma in front, the field is
// the whole remainder and the last of the line.
//
// The line is the text up to its first line feed, without it and without a carriage return
// right in front of it; the text may go on with further lines, and where the line ended is
// known once it has been read, so that a reader of a whole file never searches a line twice.
//
// A station reads thousands of these lines at every change of the employee file, so the commas
// and the line feed are found 64 bytes at a time, a line's fields before the attendance in two
// or three steps.
//
// What holds, and what its users rely on:
// - No byte outside the text is ever read, so the text may be a view into a larger buffer (the
//   pieces of the test log); the fields and rest() are views into the text and live as long as it.
// - A field never reaches past its line: it holds no line feed, nor the carriage return in front
//   of one. Only the blank ' ' is trimmed; a tab stays part of the field.
// - Whether a field is the line's last is known when it is taken: `last` is set exactly when the
//   remainder has no comma before the line's end, or its first comma is its first character (the
//   field is then the whole remainder, later commas and all). Once the last field is taken,
//   next() hands out empty last fields and done() holds.
// - The text of each field is the trimmed text in front of its comma, nothing more; rest() is
//   the untouched remainder, so that a reader may stop splitting and take the tail as it stands.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zandolt {

// One field: its text without blanks around it, and whether the line ends with it.
struct LineField
{
    std::string_view text;
    bool last;
};

class LineFields
{
public:
    // The fields of the first line of `text`.
    explicit LineFields(std::string_view text)
        : begin_(text.data()), cur_(text.data()), end_(text.data() + text.size()), block_(text.data()),
          mask_(text.empty() ? 0 : markMask(block_))
    {
    }

    LineField next()
    {
        // Nearly every field ends at the next comma of the block in hand, and has one behind it.
        if (mask_ != 0) [[likely]] {
            const char* e = block_ + std::countr_zero(mask_);
            if (*e == ',' && e != cur_) [[likely]]
                return takeUpTo(e);
        }
        return nextAfterBlock();
    }

    // Nothing at all is left of the line.
    bool done() const { return atLineEnd(cur_); }

    // What is left of the line as it stands, without the carriage return in front of its end.
    std::string_view rest()
    {
        const char* e = lineEnd();
        if (e > cur_ && e[-1] == '\r')
            --e;
        return std::string_view(cur_, static_cast<size_t>(e - cur_));
    }

    // Where the line ends: at its line feed, or at the end of the text.
    const char* lineEnd()
    {
        if (lineEnd_ == nullptr) {
            const void* feed = std::memchr(cur_, '\n', static_cast<size_t>(end_ - cur_));
            lineEnd_ = feed != nullptr ? static_cast<const char*>(feed) : end_;
        }
        return lineEnd_;
    }

private:
    static constexpr std::ptrdiff_t Block = 64;

    // True when the line ends at p: a line feed, the end of the text, or a carriage return that
    // stands in front of either.
    bool atLineEnd(const char* p) const
    {
        if (p == end_ || *p == '\n')
            return true;
        return *p == '\r' && (p + 1 == end_ || p[1] == '\n');
    }

    // One bit for each comma and line feed among the 64 bytes from p on, none beyond the text.
    std::uint64_t markMask(const char* p) const
    {
        const auto left = end_ - p;
        if (left >= Block)
            return markMask64(p);
        // The last bytes of the text: the 64 that end with it, when the text is that long,
        // rather than a copy, which would stall the loads that follow it.
        if (end_ - begin_ >= Block)
            return markMask64(end_ - Block) >> (Block - left);
        char tail[Block] = {};
        std::memcpy(tail, p, static_cast<size_t>(left));
        return markMask64(tail);
    }

    static std::uint64_t markMask64(const char* p)
    {
#if defined(__SSE2__)
        const __m128i comma = _mm_set1_epi8(',');
        const __m128i feed = _mm_set1_epi8('\n');
        std::uint64_t mask = 0;
        for (int i = 0; i < 4; ++i) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16 * i));
            const __m128i marks = _mm_or_si128(_mm_cmpeq_epi8(bytes, comma), _mm_cmpeq_epi8(bytes, feed));
            mask |= static_cast<std::uint64_t>(static_cast<std::uint32_t>(_mm_movemask_epi8(marks))) << (16 * i);
        }
        return mask;
#else
        std::uint64_t mask = 0;
        for (int i = 0; i < Block; ++i)
            mask |= static_cast<std::uint64_t>(p[i] == ',' || p[i] == '\n') << i;
        return mask;
#endif
    }

    // The field from cur_ up to the comma at e, which is not the first character.
    LineField takeUpTo(const char* e)
    {
        const char* b = cur_;
        cur_ = e + 1;
        mask_ &= mask_ - 1; // that comma is used
        // The comma at e is no blank, so the search for the first character needs no bound; once
        // b stands on a character that is no blank, the search back from e stops there.
        while (*b == ' ')
            ++b;
        if (b < e) {
            while (e[-1] == ' ')
                --e;
        }
        return {std::string_view(b, static_cast<size_t>(e - b)), false};
    }

    // The field when the block in hand has no mark left, or its next mark is a line feed or a
    // comma in front: the comma from the next blocks on, or the rest of the line as its last
    // field. Kept out of line, so that the common path of each field stays small enough to be
    // inlined at every field.
    [[gnu::noinline]] LineField nextAfterBlock()
    {
        if (cur_ == lineEnd_) // the line has been read to its end
            return {std::string_view(cur_, 0), true};
        const char* const b = cur_;
        const char* const c = mask_ != 0 ? block_ + std::countr_zero(mask_) : nextMark();
        const bool comma = c != end_ && *c == ',';
        if (comma && c != b)
            return takeUpTo(c);
        // The last field: all up to the line's end, which is c unless a comma stands in front.
        if (!comma)
            lineEnd_ = c;
        const char* first = b;
        const char* e = lineEnd();
        cur_ = e;
        mask_ = 0;
        if (first < e && e[-1] == '\r')
            --e;
        while (first < e && *first == ' ')
            ++first;
        while (first < e && e[-1] == ' ')
            --e;
        return {std::string_view(first, static_cast<size_t>(e - first)), true};
    }

    // The first comma or line feed from the block after the one at block_ on, or end_; mask_
    // holds the marks of its block.
    const char* nextMark()
    {
        do {
            if (end_ - block_ <= Block)
                return block_ = end_;
            block_ += Block;
            mask_ = markMask(block_);
        } while (mask_ == 0);
        return block_ + std::countr_zero(mask_);
    }

    const char* begin_;
    const char* cur_;
    const char* end_;
    const char* block_;
    std::uint64_t mask_;
    const char* lineEnd_ = nullptr;
};

} // namespace zandolt
