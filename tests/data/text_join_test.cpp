#include "data/text_join.h"

#include <gtest/gtest.h>

#include <string>

namespace zandolt {
namespace {

TEST(TextJoin, AShortCopyWritesExactlyItsOwnBytesAndPartsOfAnyLengthFollowEachOther)
{
    // Every length across the sizes of the moves (0-3, 4-7, 8-16, then the library's copy), into
    // the middle of a guarded buffer.
    const std::string source = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmn";
    for (size_t n = 0; n <= source.size(); ++n) {
        std::string buffer(64, '#');
        CopyText(buffer.data() + 8, source.data(), n);
        EXPECT_EQ(buffer, std::string(8, '#') + source.substr(0, n) + std::string(56 - n, '#')) << n;
    }

    // Joined parts of any length: the string keeps its memory and takes the new length, longer or
    // shorter.
    std::string out = "a much longer text than the next one, kept from before";
    AssignJoined(out, std::string("Kowalski4711"), ", ", std::string_view("Anna"));
    EXPECT_EQ(out, "Kowalski4711, Anna");
    AssignJoined(out, std::string(""), ", ", std::string_view("J"));
    EXPECT_EQ(out, ", J");
    AssignJoined(out,
                 std::string("Garc\xc3\xad"
                             "a-Fern\xc3\xa1ndez de la Torre"),
                 ", ", std::string_view("Jos\xc3\xa9"));
    EXPECT_EQ(out, "Garc\xc3\xad"
                   "a-Fern\xc3\xa1ndez de la Torre, Jos\xc3\xa9");
}

} // namespace
} // namespace zandolt
