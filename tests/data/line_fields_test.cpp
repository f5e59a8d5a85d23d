#include "data/line_fields.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace zandolt {
namespace {

struct Field
{
    std::string text;
    bool last;
    bool operator==(const Field&) const = default;
};

std::string trimmed(std::string s)
{
    const size_t b = s.find_first_not_of(' ');
    if (b == std::string::npos)
        return {};
    return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

// The rule written plainly: the first comma of the remainder ends the field, unless it is the
// remainder's first character or there is none; then the whole remainder is the last field.
std::vector<Field> plainFields(const std::string& line)
{
    std::vector<Field> fields;
    size_t pos = 0;
    for (;;) {
        const std::string rest = line.substr(pos);
        const size_t comma = rest.find(',');
        if (comma == std::string::npos || comma == 0) {
            fields.push_back({trimmed(rest), true});
            return fields;
        }
        fields.push_back({trimmed(rest.substr(0, comma)), false});
        pos += comma + 1;
    }
}

// The line in memory of exactly its length, so that a read past its end is caught by the
// address sanitizer.
std::vector<Field> fieldsOf(const std::string& line)
{
    const auto memory = std::make_unique<char[]>(line.size() + (line.empty() ? 1 : 0));
    std::memcpy(memory.get(), line.data(), line.size());
    LineFields fields(std::string_view(memory.get(), line.size()));
    std::vector<Field> out;
    for (;;) {
        const LineField f = fields.next();
        out.push_back({std::string(f.text), f.last});
        if (f.last)
            return out;
        if (out.size() > line.size() + 1) {
            ADD_FAILURE() << "more fields than characters";
            return out;
        }
    }
}

TEST(LineFields, AnyLineSplitsAsTheRuleSays)
{
    // Lines of every length up to three search blocks and a half, mostly blanks and commas, so
    // that commas fall on every position of a block, at the line's start and end, and side by
    // side; and long stretches without one, like the attendance.
    std::mt19937 random(20261123);
    const char alphabet[] = {',', ' ', 'a', 'b', ' ', ','};
    for (size_t length = 0; length <= 230; ++length) {
        for (int sample = 0; sample < 40; ++sample) {
            std::string line(length, 'A');
            const bool sparse = sample % 4 == 3;
            for (char& c : line)
                c = sparse ? (random() % 50 == 0 ? ',' : 'A') : alphabet[random() % sizeof alphabet];
            ASSERT_EQ(fieldsOf(line), plainFields(line)) << '"' << line << '"';
        }
    }
}

TEST(LineFields, DoneWhenNothingIsLeft)
{
    const std::string line = "a, b,";
    LineFields fields(line);
    EXPECT_EQ(fields.next().text, "a");
    EXPECT_FALSE(fields.done());
    const LineField b = fields.next();
    EXPECT_EQ(b.text, "b");
    EXPECT_FALSE(b.last);
    EXPECT_TRUE(fields.done());
    // The empty field after the trailing comma ends the line, and so does anything asked after.
    for (int i = 0; i < 2; ++i) {
        const LineField after = fields.next();
        EXPECT_EQ(after.text, "");
        EXPECT_TRUE(after.last);
    }
}

TEST(LineFields, NothingFollowsTheLastField)
{
    // A comma in front makes the rest the last field, though the block still holds that comma.
    LineFields fields(",a, b");
    const LineField rest = fields.next();
    EXPECT_EQ(rest.text, ",a, b");
    EXPECT_TRUE(rest.last);
    const LineField after = fields.next();
    EXPECT_EQ(after.text, "");
    EXPECT_TRUE(after.last);
}

} // namespace
} // namespace zandolt
