// What the test window shows after the tester's standard passing message, on any backend.
#pragma once

#include "station/rs232_form.h"

#include <gtest/gtest.h>

namespace zandolt::testing {

inline void ExpectPassReadingsShown(const RS232Form& window)
{
    EXPECT_EQ(window.InsTitleLabel.caption(), "OK");
    EXPECT_EQ(window.InsLabel.caption(), "Readings OK thank you.  Please press the Enter key or click on Cancel.");
    EXPECT_EQ(window.WristResultLabel.caption(), "  OK     = 3.5 Meg");
    EXPECT_EQ(window.LeftResultLabel.caption(), "  OK     = 12 Meg");
    EXPECT_EQ(window.RightResultLabel.caption(), "  OK     = 11.2 Meg");
    // The top of the 100-megohm range reads as the round figure.
    EXPECT_EQ(window.WristLoLabel.caption(), " .75 Meg");
    EXPECT_EQ(window.WristHiLabel.caption(), " 10 Meg");
    EXPECT_EQ(window.FootHiLabel.caption(), "100 Meg");
}

} // namespace zandolt::testing
