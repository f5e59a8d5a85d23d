// The pass tag: the generic tag's lines, the template's comments and markers, and what happens
// when the template or the printer fails.
#include "automation/tag_printing.h"
#include "station/err_msg_frm.h"
#include "support/station_fixture.h"

#include <filesystem>

namespace zandolt::testing {
namespace {

class TagPrinting : public StationTest
{
protected:
    TagPrinting()
    {
        app_->CurrentEmployee = 3;
        app_->FirstName[3] = "Jane";
        app_->LastName[3] = "Doe";
        app_->ZebraPath = path("ZEBRA.TXT");
        // The timed error window closes by itself; each showing records its text.
        for (int i = 0; i < 4; ++i)
            ui().onModal("ErrMsgFrm", [&](Form&) { errors.push_back(app_->errMsgFrm().LabelText.caption()); });
    }
    const std::vector<headless::PrintedDocument>& documents() { return backend_->printer.documents(); }

    std::vector<std::string> errors;
};

TEST_F(TagPrinting, TheGenericTagIsSixLinesWithTimeDateAndNameAndOtherTypesPrintNothing)
{
    // Type 0 and unknown types print nothing, even when the template is missing.
    for (int16 type : {0, 3, -1}) {
        app_->TagType = type;
        PrintTag(*app_);
    }
    EXPECT_TRUE(documents().empty());
    EXPECT_TRUE(errors.empty());
    // Type 2 needs no template: heading, PASS, time and short date, first and last name, two blanks.
    app_->TagType = 2;
    PrintTag(*app_);
    ASSERT_EQ(documents().size(), 1u);
    EXPECT_EQ(documents()[0].lines,
              (std::vector<std::string>{"ESD FOOTWEAR TEST", "   PASS", "08:00:00 11/22/2026", "Jane Doe", "", ""}));
    EXPECT_TRUE(documents()[0].ended);
    backend_->printer.failPrint = true;
    PrintTag(*app_);
    EXPECT_EQ(errors, std::vector<std::string>{"Error printing the pass tag"});
}

TEST_F(TagPrinting, TheTemplateDropsCommentsAndFillsOneMarkerPerLineAndAnEmptyOneEndsAnEmptyDocument)
{
    // Comments go whole; blanks before a marker vanish, those after stay; date wins over name;
    // markers are case-sensitive.
    app_->TagType = 1;
    write("ZEBRA.TXT", "^XA\r\n"
                       "   Tested: ---date---  ok\r\n"
                       "^FO10 ---name---\r\n"
                       "^FD---name--- ; the employee\r\n"
                       "---date--- by ---name---\r\n"
                       "---Date---\r\n"
                       "^XZ\r\n");
    PrintTag(*app_);
    ASSERT_EQ(documents().size(), 1u);
    EXPECT_EQ(documents()[0].lines,
              (std::vector<std::string>{"^XA", "Tested:08:00:00 11/22/2026  ok", "^FO10Jane Doe",
                                        "08:00:00 11/22/2026 by ---name---", "---Date---", "^XZ"}));
    EXPECT_TRUE(documents()[0].ended);

    // An empty template has nothing to print, but its document is ended all the same.
    write("ZEBRA.TXT", "");
    PrintTag(*app_);
    ASSERT_EQ(documents().size(), 2u);
    EXPECT_TRUE(documents()[1].lines.empty());
    EXPECT_TRUE(documents()[1].ended);
}

TEST_F(TagPrinting, ATemplateThatCannotBeReadOrPrintedIsSaidAndPrintingStops)
{
    // Missing, or a folder: the path follows the message without a blank, and nothing is printed.
    app_->TagType = 1;
    PrintTag(*app_);
    std::filesystem::create_directory(path("ZEBRA.TXT"));
    PrintTag(*app_);
    const std::string opening = "Error opening file" + path("ZEBRA.TXT");
    EXPECT_EQ(errors, (std::vector<std::string>{opening, opening}));
    EXPECT_TRUE(documents().empty());

    // The read breaks inside the third line: two lines are printed and the document stays open.
    std::filesystem::remove(path("ZEBRA.TXT"));
    write("ZEBRA.TXT", "^XA\r\n^FD---name---\r\n^XZ\r\n");
    backend_->files.breakReadAfter(22);
    PrintTag(*app_);
    EXPECT_EQ(errors.back(), "Error reading file" + path("ZEBRA.TXT"));
    ASSERT_EQ(documents().size(), 1u);
    EXPECT_EQ(documents()[0].lines, (std::vector<std::string>{"^XA", "^FDJane Doe"}));
    EXPECT_FALSE(documents()[0].ended);

    // A failing printer leaves the document open too.
    backend_->printer.failPrint = true;
    PrintTag(*app_);
    EXPECT_EQ(errors.back(), "Error printing to Zebra printer");
    EXPECT_FALSE(documents().back().ended);
}

} // namespace
} // namespace zandolt::testing
