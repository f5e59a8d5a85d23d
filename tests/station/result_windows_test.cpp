// The two timer-driven windows of a test: the press-button animation and the flashing cartoon.
#include "station/cartoon_form.h"
#include "station/press_form.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

using ResultWindows = StationTest;

TEST_F(ResultWindows, ThePressAnimationGoesDownHoldsAndComesBackUpAndOnlyWhoWearsNoStrapIsAskedForTheSwitch)
{
    // Ticks of 100 ms: frames 1..9 shown as 1,2,3,4 and then held on 4, back down from 8 to -1,
    // where the first picture stands for the frame before the turn, and up again. Label168 asks
    // for the switch position, which matters only when no strap is required.
    app_->CurrentEmployee = 0;
    app_->WristEnable[0] = False;
    app_->FootEnable[0] = False;
    PressForm& press = app_->pressForm();
    press.Load();
    EXPECT_TRUE(press.Label168.visible());
    EXPECT_EQ(app_->TestWindowOpenFlag, 1);
    EXPECT_EQ(press.MainImage.picture(), "press0");
    std::string frames; // the pictures' numbers, press0 to press4
    for (int tick = 0; tick < 21; ++tick) {
        ui().advance(100);
        ASSERT_EQ(press.MainImage.picture().substr(0, 5), "press");
        frames += press.MainImage.picture().substr(5);
    }
    EXPECT_EQ(frames, "123444444444443210001");

    press.Unload();
    EXPECT_EQ(app_->TestWindowOpenFlag, 0);
    app_->FootEnable[0] = True;
    press.Load();
    EXPECT_FALSE(press.Label168.visible());
}

TEST_F(ResultWindows, SeveralFailedContactsFlashTogetherAndTheOthersStayWhole)
{
    // Left foot high and right foot low: every second both are marked, the wrist never.
    app_->WristCode = "Wok";
    app_->LeftCode = "Lhi";
    app_->RightCode = "Rlo";
    CartoonForm& c = app_->cartoonForm();
    c.Load();
    ui().advance(500); // counter 1: whole figure
    EXPECT_TRUE(c.ImageLOK.visible() && c.ImageROK.visible() && c.ImageWOK.visible());
    EXPECT_FALSE(c.ImageLHI.visible() || c.ImageRLO.visible());
    ui().advance(500); // counter 2: marked
    EXPECT_TRUE(c.ImageLHI.visible());
    EXPECT_TRUE(c.ImageRLO.visible());
    EXPECT_FALSE(c.ImageLOK.visible() || c.ImageROK.visible());
    EXPECT_TRUE(c.ImageWOK.visible());
    EXPECT_FALSE(c.ImageWLO.visible() || c.ImageWHI.visible() || c.ImageLLO.visible() || c.ImageRHI.visible());
    ui().advance(500); // counter 3: whole again
    EXPECT_TRUE(c.ImageLOK.visible() && c.ImageROK.visible());
    EXPECT_FALSE(c.ImageLHI.visible() || c.ImageRLO.visible());
}

} // namespace
} // namespace zandolt::testing
