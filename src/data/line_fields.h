// The comma-separated fields of one line of a data file, taken from the left one at a time.
// A comma from the second character of the remainder on ends a field, which is handed out
// without its surrounding blanks. Without such a comma, or with a comma in front, the field is
// the whole remainder and the last of the line.
//
// A station reads thousands of these lines at every change of the employee file, so the commas
// are found 64 bytes at a time, a line's fields before the attendance in two or three steps, and
// a long stretch without one, like the attendance, is left to the library's search.
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
    explicit LineFields(std::string_view line)
        : begin_(line.data()), cur_(line.data()), end_(line.data() + line.size()), block_(line.data()),
          mask_(line.empty() ? 0 : commaMask(block_))
    {
    }

    LineField next()
    {
        // Nearly every field ends at the next comma of the block in hand, and has one behind it.
        const char* b = cur_;
        if (mask_ != 0) [[likely]] {
            const char* e = block_ + std::countr_zero(mask_);
            if (e != b) [[likely]]
                return takeUpTo(e);
        }
        return nextAfterBlock();
    }

    // Nothing at all is left of the line.
    bool done() const { return cur_ == end_; }

private:
    static constexpr std::ptrdiff_t Block = 64;

    // One bit for each comma among the 64 bytes from p on, none beyond the line's end.
    std::uint64_t commaMask(const char* p) const
    {
        const auto left = end_ - p;
        if (left >= Block)
            return commaMask64(p);
        // The last bytes of the line: the 64 that end with it, when the line is that long,
        // rather than a copy, which would stall the loads that follow it.
        if (end_ - begin_ >= Block)
            return commaMask64(end_ - Block) >> (Block - left);
        char tail[Block] = {};
        std::memcpy(tail, p, static_cast<size_t>(left));
        return commaMask64(tail);
    }

    static std::uint64_t commaMask64(const char* p)
    {
#if defined(__SSE2__)
        const __m128i comma = _mm_set1_epi8(',');
        std::uint64_t mask = 0;
        for (int i = 0; i < 4; ++i) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16 * i));
            mask |=
                static_cast<std::uint64_t>(static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, comma))))
                << (16 * i);
        }
        return mask;
#else
        std::uint64_t mask = 0;
        for (int i = 0; i < Block; ++i)
            mask |= static_cast<std::uint64_t>(p[i] == ',') << i;
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

    // The field when the block in hand has no comma left or one in front: the comma from the next
    // blocks on, or the rest of the line as its last field. Kept out of line, so that the common
    // path of each field stays small enough to be inlined at every field.
    [[gnu::noinline]] LineField nextAfterBlock()
    {
        const char* const b = cur_;
        const char* const c = mask_ != 0 ? block_ + std::countr_zero(mask_) : nextComma();
        if (c != end_ && c != b)
            return takeUpTo(c);
        // The last field; the fields after it are empty and last too.
        cur_ = block_ = end_;
        mask_ = 0;
        const char* first = b;
        const char* e = end_;
        while (first < e && *first == ' ')
            ++first;
        while (first < e && e[-1] == ' ')
            --e;
        return {std::string_view(first, static_cast<size_t>(e - first)), true};
    }

    // The first comma from the block after the one at block_ on, or end_; mask_ holds its commas.
    const char* nextComma()
    {
        if (end_ - block_ <= Block)
            return block_ = end_;
        block_ += Block;
        mask_ = commaMask(block_);
        if (mask_ == 0) {
            // A long stretch without a comma, like the attendance.
            const void* comma = end_ - block_ > Block
                                    ? std::memchr(block_ + Block, ',', static_cast<size_t>(end_ - block_ - Block))
                                    : nullptr;
            if (comma == nullptr)
                return block_ = end_;
            block_ = static_cast<const char*>(comma);
            mask_ = commaMask(block_);
        }
        return block_ + std::countr_zero(mask_);
    }

    const char* begin_;
    const char* cur_;
    const char* end_;
    const char* block_;
    std::uint64_t mask_;
};

} // namespace zandolt
