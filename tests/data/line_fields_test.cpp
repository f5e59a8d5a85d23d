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
    bool done; // nothing is left of the line behind the field
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
            fields.push_back({trimmed(rest), true, true});
            return fields;
        }
        pos += comma + 1;
        fields.push_back({trimmed(rest.substr(0, comma)), false, pos == line.size()});
    }
}

// The fields up to the line's last, but no more than `most`, each with whether the line is done.
std::vector<Field> readFields(LineFields& fields, size_t most)
{
    std::vector<Field> out;
    while (out.size() < most && (out.empty() || !out.back().last)) {
        const LineField f = fields.next();
        out.push_back({std::string(f.text), f.last, fields.done()});
    }
    return out;
}

TEST(LineFields, EachLineOfAWholeTextSplitsAsThePlainRuleSays)
{
    // Texts of one to six lines, ended by LF or CR LF or not at all, with carriage returns inside
    // lines too, in memory of exactly the text's length so that a read past its end is caught by
    // the address sanitizer. Lines of up to three search blocks and a half, mostly blanks and
    // commas, so that commas fall on every position of a block, at the line's start and end, and
    // side by side; and long stretches without one, like the attendance. Each line's fields are
    // read from the running text, some to the line's end and some only in part, and the line must
    // end where the plain search for its line feed says.
    std::mt19937 random(20261124);
    const char alphabet[] = {',', ' ', 'a', ' ', ',', '\r'};
    for (int sample = 0; sample < 2500; ++sample) {
        std::string text;
        const int lines = 1 + static_cast<int>(random() % 6);
        for (int l = 0; l < lines; ++l) {
            const size_t length = random() % 231;
            const bool sparse = random() % 3 == 0; // long stretches without a comma
            for (size_t i = 0; i < length; ++i)
                text.push_back(sparse ? (random() % 60 == 0 ? ',' : 'A') : alphabet[random() % sizeof alphabet]);
            const int ending = static_cast<int>(random() % 4);
            if (l + 1 < lines || ending < 3)
                text += ending % 2 == 0 ? "\n" : "\r\n";
        }
        const auto memory = std::make_unique<char[]>(text.size());
        std::memcpy(memory.get(), text.data(), text.size());
        const char* const begin = memory.get();
        const char* const end = begin + text.size();

        for (const char* at = begin; at < end;) {
            size_t feed = text.find('\n', static_cast<size_t>(at - begin));
            if (feed == std::string::npos)
                feed = text.size();
            std::string line(at, begin + feed);
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            const std::vector<Field> expected = plainFields(line);
            // Up to all of the line's fields; none at all leaves the whole search to lineEnd().
            const size_t wanted = random() % (expected.size() + 1);

            LineFields fields(std::string_view(at, static_cast<size_t>(end - at)));
            ASSERT_EQ(readFields(fields, wanted),
                      std::vector<Field>(expected.begin(), expected.begin() + static_cast<long>(wanted)))
                << '"' << line << '"';
            ASSERT_EQ(fields.lineEnd() - begin, static_cast<long>(feed)) << '"' << line << '"';
            at = fields.lineEnd() + 1;
            // Asking on after the last field gives empty last fields, never the next line's.
            for (int i = 0; wanted == expected.size() && i < 2; ++i) {
                const LineField after = fields.next();
                ASSERT_TRUE(after.text.empty() && after.last) << '"' << line << '"';
            }
        }
    }
}

} // namespace
} // namespace zandolt
