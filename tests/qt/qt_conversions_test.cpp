// The pure conversions of the Qt backend: key codes, colours, fonts, the locale's date forms,
// message box answers and the pages of a printout. (The text bytes are the data layer's encodings.)
#include "data/dates.h"
#include "platform/qt/picture_view.h"
#include "platform/qt/qt_clock_locale.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_keys.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_style.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace zandolt::qt {
namespace {

TEST(QtKeys, QtKeysBecomeTheClassicCodes)
{
    // Key codes name the key; the character code names what it types.
    EXPECT_EQ(ToClassicKey(Qt::Key_Enter, Qt::KeypadModifier, "\r").keyAscii, 13);
    EXPECT_EQ(ToClassicKey(Qt::Key_Backspace, {}, "\b").keyAscii, 8);
    EXPECT_EQ(ToClassicKey(Qt::Key_Escape, {}, "\x1b").keyCode, 27);
    const ClassicKey a = ToClassicKey(Qt::Key_A, {}, "a");
    EXPECT_EQ(a.keyCode, 65);
    EXPECT_EQ(a.keyAscii, 97);
    const ClassicKey ctrlShiftZ = ToClassicKey(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "\x1a");
    EXPECT_EQ(ctrlShiftZ.keyCode, 90);
    EXPECT_EQ(ctrlShiftZ.shift, 3);
    EXPECT_EQ(ctrlShiftZ.keyAscii, 26);
    const ClassicKey altF = ToClassicKey(Qt::Key_F, Qt::AltModifier, "f");
    EXPECT_EQ(altF.keyCode, 70);
    EXPECT_EQ(altF.shift, 4);
    EXPECT_EQ(altF.keyAscii, 0);
    EXPECT_EQ(ToClassicKey(Qt::Key_7, {}, "7").keyCode, 55);
    EXPECT_EQ(ToClassicKey(Qt::Key_7, Qt::KeypadModifier, "7").keyCode, 103);
    EXPECT_EQ(ToClassicKey(Qt::Key_F12, {}, "").keyCode, 123);
    EXPECT_EQ(ToClassicKey(Qt::Key_Down, {}, "").keyCode, 40);
    EXPECT_EQ(ToClassicKey(Qt::Key_Delete, {}, "\x7f").keyAscii, 0);
    EXPECT_EQ(ToClassicKey(Qt::Key_Tab, {}, "\t").keyAscii, 0);
    EXPECT_EQ(ToClassicKey(Qt::Key_Comma, {}, ",").keyCode, 188);
    EXPECT_EQ(ToClassicKey(Qt::Key_Eacute, {}, QString::fromUtf8("\xC3\xA9")).keyAscii, 233);
    EXPECT_EQ(KeyAsciiText(0x80), QString::fromUtf8("\xE2\x82\xAC"));
    EXPECT_TRUE(KeyAsciiText(0).isEmpty());
}

TEST(QtStyle, ColoursAreBgrTheDefaultFaceIsTheDesktopsAndPlacesArePixelsKeepingThePicturesShape)
{
    // 255 is red; the top bit picks a palette role.
    const QPalette p = QApplication::palette();
    EXPECT_EQ(ToQColor(0x0000FF, p), QColor(255, 0, 0));
    EXPECT_EQ(ToQColor(0xFF8000, p), QColor(0, 128, 255));
    EXPECT_EQ(ToQColor(colors::SysWindow, p), p.color(QPalette::Active, QPalette::Base));
    EXPECT_EQ(ToQColor(colors::SysWindowText, p), p.color(QPalette::Active, QPalette::Text));
    EXPECT_EQ(ToQColor(colors::SysButtonFace, p), p.color(QPalette::Active, QPalette::Button));
    EXPECT_EQ(SystemColorRole(colors::SysButtonText), QPalette::ButtonText);

    // "MS Sans Serif" stands for the application's face; other faces are asked for by name.
    QFont base(QStringLiteral("DejaVu Sans"), 9);
    const QFont def = ModelFont("MS Sans Serif", 8.25, false, base);
    EXPECT_EQ(def.family(), "DejaVu Sans");
    EXPECT_DOUBLE_EQ(def.pointSizeF(), 8.25);
    const QFont mono = ModelFont("Courier New", 14, true, base);
    EXPECT_EQ(mono.families().value(0), "Courier New");
    EXPECT_EQ(mono.styleHint(), QFont::TypeWriter);
    EXPECT_TRUE(mono.bold());

    // Twips are pixels times fifteen, rounded to the nearest pixel, negative places too.
    EXPECT_EQ(TwipsToPixels(7), 0);
    EXPECT_EQ(TwipsToPixels(8), 1);
    EXPECT_EQ(TwipsToPixels(-1500), -100);
    // A picture keeps its shape in the middle of its control: a wide picture in a square area
    // fills its width, a tall one its height.
    EXPECT_EQ(FitKeepingAspect(QSizeF(20, 10), QRect(0, 0, 100, 100)), QRect(0, 25, 100, 50));
    EXPECT_EQ(FitKeepingAspect(QSizeF(10, 40), QRect(10, 10, 100, 100)), QRect(47, 10, 25, 100));
}

TEST(QtLocaleForms, TheLanguageDatesAndTimesFollowTheLocaleWithFourDigitYearsOrUsForms)
{
    // Only Mexico's Spanish and Canada's English have their own strings.
    EXPECT_EQ(QtLocale(QLocale("es_MX")).language(), Language::SpanishMexico);
    EXPECT_EQ(QtLocale(QLocale("en_CA")).language(), Language::EnglishCanada);
    EXPECT_EQ(QtLocale(QLocale("es_ES")).language(), Language::EnglishUS);
    EXPECT_EQ(QtLocale(QLocale::c()).language(), Language::EnglishUS);

    // Dates and times come from the locale with four-digit years, or in US forms.
    // 22 November 2026 was a Sunday; 22:01:02 is 10 PM.
    const DateTime t{2026, 11, 22, 22, 1, 2, 0};
    QtLocale us{QLocale("en_US")};
    EXPECT_EQ(us.shortDate(t), "11/22/2026");
    EXPECT_EQ(us.longDate(t), "Sunday, November 22, 2026");
    EXPECT_EQ(us.longTime(t), "10:01:02 PM");
    QtLocale de{QLocale("de_DE")};
    EXPECT_EQ(de.shortDate(t), "22.11.2026");
    EXPECT_EQ(de.longTime(t), "22:01:02");
    // The C locale has no forms: month first with leading zeros, and a spelled-out date.
    QtLocale c{QLocale::c()};
    const DateTime m{2026, 3, 5, 9, 4, 0, 0};
    EXPECT_EQ(c.shortDate(m), "03/05/2026");
    EXPECT_EQ(c.longDate(m), "Thursday, March 5, 2026");
    EXPECT_EQ(c.longTime(m), "9:04:00 AM");

    // Typed dates take the locale's forms first.
    QtLocale gb{QLocale("en_GB")};
    const Date april3 = DateSerial(2026, 4, 3);
    EXPECT_EQ(ReadTypedDate(us, "Wednesday, March 4, 2026", 2026), DateSerial(2026, 3, 4)); // the long form
    EXPECT_EQ(ReadTypedDate(gb, "03/04/2026", 2026), april3);
    EXPECT_EQ(ReadTypedDate(gb, "31/12/45", 2026), DateSerial(2045, 12, 31));
    EXPECT_EQ(ReadTypedDate(de, "03.04.26", 2026), april3);
    EXPECT_EQ(ReadTypedDate(de, "3.4.2026", 2026), april3);
    EXPECT_EQ(ReadTypedDate(de, "2026-04-03", 2026), april3); // typed, not the locale's
    EXPECT_EQ(ReadTypedDate(gb, "31/02/2026", 2026), 0);
}

TEST(QtDialogs, ButtonSetsGiveTheirClassicAnswers)
{
    // Each set in order, with the answer of each button; closing picks Cancel where there is one.
    // (No of Yes/No/Cancel answering 7: the message box on the real loop.)
    ASSERT_EQ(MessageBoxButtons(msgbox::YesNoCancel | msgbox::Question).size(), 3u);
    const auto abortRetryIgnore = MessageBoxButtons(msgbox::AbortRetryIgnore);
    EXPECT_EQ(abortRetryIgnore[2].second, 5);
    EXPECT_EQ(MessageBoxIcon(msgbox::Exclamation), QMessageBox::Warning);
    EXPECT_EQ(MessageBoxIcon(msgbox::Critical | msgbox::OKCancel), QMessageBox::Critical);
    EXPECT_EQ(MessageBoxDismissAnswer(msgbox::OKCancel), msgbox::Cancel);
    EXPECT_EQ(MessageBoxDismissAnswer(msgbox::YesNo), msgbox::No);
    EXPECT_EQ(MessageBoxDismissAnswer(msgbox::OKOnly), msgbox::OK);
}

TEST(QtPrinting, LinesFallIntoPagesAndAFormFeedStartsOne)
{
    // Three lines per page: five lines make two pages; a form feed line opens the next page.
    const auto pages = PaginateLines({"1", "2", "3", "4", "5"}, 3);
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[1], (std::vector<std::string>{"4", "5"}));
    const auto fed = PaginateLines({"a", "\fb", "c"}, 10);
    ASSERT_EQ(fed.size(), 2u);
    EXPECT_EQ(fed[0], (std::vector<std::string>{"a"}));
    EXPECT_EQ(fed[1], (std::vector<std::string>{"b", "c"}));
    EXPECT_EQ(PaginateLines({"\f", "x"}, 10).size(), 1u);
}

} // namespace
} // namespace zandolt::qt
