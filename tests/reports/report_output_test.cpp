// A report file is written whole with CR LF line ends, or not at all with its phase's message.
#include "reports/report_output.h"

#include "support/station_fixture.h"

#include <gtest/gtest.h>

namespace zandolt {
namespace {

class ReportOutput : public testing::StationTest
{
};

TEST_F(ReportOutput, AFileReplacesTheOldOneWholeOrLeavesItWithTheMessage)
{
    write("REPORT.TXT", "old\r\n");
    ReportFile file;
    file.add("a").add(2, ' ').line("b").line();
    EXPECT_TRUE(file.write(*app_, path("report.txt"), "unused"));
    EXPECT_EQ(read("REPORT.TXT"), "a  b\r\n\r\n");
    EXPECT_TRUE(ui().messages().empty());

    ui().setBusy(true);
    EXPECT_FALSE(file.write(*app_, path("no-such-dir/REPORT.TXT"), " Error opening report file to write"));
    ASSERT_EQ(ui().messages().size(), 1u);
    EXPECT_EQ(ui().messages()[0].prompt, " Error opening report file to write");
    EXPECT_FALSE(ui().busy());

    backend_->files.failReplaces(1, FileResult::Busy); // another station holds the file: no retry
    EXPECT_FALSE(file.write(*app_, path("REPORT.TXT"), "held"));
    EXPECT_EQ(ui().messages().back().prompt, "held");
    EXPECT_EQ(backend_->files.replaceAttempts(), 3);
}

} // namespace
} // namespace zandolt
