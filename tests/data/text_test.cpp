// The station's texts: the two encodings of its files (the decision for a whole file, the
// conversions of typed text, the rule for text stored in a comma-separated file), joined copies,
// and the resource strings of each language.
#include "data/storable_text.h"
#include "data/strings.h"
#include "data/text_join.h"
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <string>

namespace zandolt {
namespace {

constexpr auto Utf8 = TextEncoding::Utf8;
constexpr auto Cp1252 = TextEncoding::Windows1252;

TEST(TextEncoding, AFileIsUtf8OnlyWhenItIsValidUtf8Throughout)
{
    EXPECT_EQ(EncodingOfFile("# header\r\nM\xC3\xBCller, J\xC3\xB6rg"), Utf8);
    // A stray byte behind the ASCII that is checked eight bytes at a time, and a UTF-8 character
    // cut short at the very end.
    EXPECT_EQ(EncodingOfFile(std::string(37, 'a') + "\xE9" + std::string(20, 'b')), Cp1252);
    EXPECT_EQ(EncodingOfFile(std::string(16, 'a') + "\xC3"), Cp1252);
    for (const char* text : {"", "Jos\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"})
        EXPECT_EQ(EncodingOfFile(text), Utf8) << text;
    // A Windows-1252 e acute, a lone continuation byte, overlong forms in two and three bytes, a
    // surrogate, and a character past U+10FFFF.
    for (const char* text : {"Jos\xE9", "\x80", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
        EXPECT_EQ(EncodingOfFile(text), Cp1252) << text;
}

TEST(TextEncoding, EveryWindows1252ByteSurvivesTheWayToUtf8AndBack)
{
    std::string all;
    for (int b = 1; b < 256; ++b)
        all += static_cast<char>(b);
    bool exact = false;
    EXPECT_EQ(ConvertText(ConvertText(all, Cp1252, Utf8), Utf8, Cp1252, &exact), all);
    EXPECT_TRUE(exact);
    // 0x80 is the euro sign U+20AC, 0x9F is Y with diaeresis U+0178, 0xFC is u with diaeresis; the
    // five holes of the code page, such as 0x81, keep their control codes.
    EXPECT_EQ(ConvertText("\x80\x9F\xFC\x81", Cp1252, Utf8), "\xE2\x82\xAC\xC5\xB8\xC3\xBC\xC2\x81");
}

TEST(TextEncoding, TypedTextTakesTheFilesEncodingWhatItLacksMatchesNothingAndStoredTextHasNoCommas)
{
    EXPECT_EQ(InEncoding("M\xC3\xBCller", Cp1252), "M\xFCller");
    EXPECT_EQ(InEncoding("M\xFCller", Cp1252), "M\xFCller"); // already the file's bytes
    EXPECT_EQ(InEncoding("M\xFCller", Utf8), "M\xC3\xBCller");
    // L with stroke (U+0141) and z with acute (U+017A) are not in the code page; o acute is.
    EXPECT_EQ(InEncoding("\xC5\x81\xC3\xB3\x64\xC5\xBA", Cp1252), "?\xF3\x64?");
    EXPECT_EQ(ComparableText("\xC5\x81\xC3\xB3\x64\xC5\xBA", Cp1252), std::nullopt);
    // A status letter or certification type is one character, never half of one.
    EXPECT_EQ(FirstCharacter("\xC3\xBC\x62\x65r", Utf8), "\xC3\xBC");
    EXPECT_EQ(FirstCharacter("\xFC\x62\x65r", Cp1252), "\xFC");
    // Text stored in a comma-separated file: commas and line ends become blanks.
    std::string text = "Smith,Jr\r\nM\xC3\xBCller";
    EXPECT_TRUE(MakeStorable(text, Cp1252));
    EXPECT_EQ(text, "Smith Jr  M\xFCller");
}

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

TEST(Strings, TheCanadianBlockIsTheUnitedStatesOneAndEveryBlockHasTheSameIds)
{
    // 66 ids between 101 and 180, the same in every block, Canada word for word the US texts.
    int ids = 0;
    for (int id = 100; id <= 181; ++id) {
        EXPECT_EQ(LoadResString(Language::EnglishCanada, id), LoadResString(Language::EnglishUS, id)) << id;
        EXPECT_EQ(LoadResString(Language::EnglishUS, id).empty(), LoadResString(Language::SpanishMexico, id).empty())
            << id;
        ids += LoadResString(Language::EnglishUS, id).empty() ? 0 : 1;
    }
    EXPECT_EQ(ids, 66);
    // A trailing blank is part of the text; German (0x407) has no block of its own.
    EXPECT_EQ(LoadResString(Language::EnglishUS, 160), "Welcome to ");
    EXPECT_EQ(LoadResString(Language::SpanishMexico, 160), "Bienvenidos a");
    EXPECT_EQ(LoadResString(static_cast<Language>(0x407), 159), "Welcome");
}

} // namespace
} // namespace zandolt
