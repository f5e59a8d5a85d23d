// Reading a settings file item by item, the classic comma-separated way: blanks in front of an
// item are skipped, an item ends at a comma or at the end of its line, a value in double quotes
// may hold commas, and an empty item gives 0 or a blank. Items run on from line to line, so an
// extra comma makes every later item slip by one.
#pragma once

#include "data/types.h"

#include <string>
#include <string_view>

namespace zandolt {

class IniItemReader
{
public:
    explicit IniItemReader(std::string_view text) : text_(text) {}

    // The rest of the current line, taken whole; false at the end of the text.
    bool readLine(std::string& out);
    // The next item as text; false at the end of the text, where the item is left as it was.
    bool readItem(std::string& out);
    // The next item as a number. A 16-bit value is rounded; one outside 16 bits, like a number too
    // large for single precision, is a failure that leaves the value as it was.
    bool readItem(int16& out);
    bool readItem(float& out);

private:
    // Moves past the line end at pos_, if one is there.
    void skipLineEnd();

    std::string_view text_;
    size_t pos_ = 0;
};

} // namespace zandolt
