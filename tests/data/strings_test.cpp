#include "data/strings.h"

#include <gtest/gtest.h>

namespace zandolt {
namespace {

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
