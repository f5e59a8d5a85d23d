#include "admin/title_form.h"

#include "app.h"
#include "build_info.h"

namespace zandolt {

TitleForm::TitleForm(App& app)
    : Form(app.ui, "TitleForm"), Logo(*this, "Logo"), Label1(*this, "Label1"), MakerNameLabel(*this, "MakerNameLabel"),
      StreetLabel(*this, "StreetLabel"), CityLabel(*this, "CityLabel"), PhoneLabel(*this, "PhoneLabel"),
      NoticeLabel(*this, "NoticeLabel"), Command1(*this, "Command1"), Timer1(*this, "Timer1"), app_(app)
{
    finishConstruction();
}

TitleForm& App::titleForm()
{
    return ensureForm<TitleForm>(titleForm_);
}

void TitleForm::design()
{
    setCaption("ISO-9000 ESD PROTECTION TEST LOG");
    setSize(8400, 4920);
    setFixedDialog(true);
    setKeyPreview(true);

    Logo.move(240, 240, 2400, 2400);
    Logo.setPicture("logo");
    Label1.move(2880, 300, 5280, 720);
    Label1.setFontSize(14);
    Label1.setFontBold(true);
    Label1.setCaption("ISO-9000 ESD Protection Test Log Ver ");
    MakerNameLabel.move(2880, 1200, 5280, 480);
    MakerNameLabel.setFontSize(14);
    MakerNameLabel.setCaption(build_info::MakerName);
    StreetLabel.move(2880, 1740, 5280, 330);
    StreetLabel.setFontSize(10);
    StreetLabel.setCaption(build_info::MakerStreet);
    CityLabel.move(2880, 2070, 5280, 330);
    CityLabel.setFontSize(10);
    CityLabel.setCaption(build_info::MakerCity);
    PhoneLabel.move(2880, 2400, 5280, 330);
    PhoneLabel.setFontSize(10);
    PhoneLabel.setCaption(build_info::MakerPhone);
    NoticeLabel.move(240, 3000, 7920, 720);
    NoticeLabel.setFontSize(8);
    NoticeLabel.setCaption(build_info::MakerNotice);
    Command1.move(6720, 3960, 1440, 495);
    Command1.setCaption("OK");
    Command1.setDefault(true);
    Timer1.setInterval(5000);
    Timer1.setEnabled(true);
}

void TitleForm::wire()
{
    Command1.Click = [this] { Unload(); };
    Timer1.Tick = [this] {
        Timer1.setEnabled(false);
        Unload();
    };
}

void TitleForm::Form_Load()
{
    // The brand chooses the block and the letter behind the version.
    char letter = 's';
    const char* altName = nullptr;
    switch (app_.BrandIndex) {
    case 2:
        letter = 'b';
        altName = build_info::AltBlock2Name;
        MakerNameLabel.setFontName("Helvetica");
        MakerNameLabel.setFontSize(48);
        break;
    case 3:
        letter = 'c';
        altName = build_info::AltBlock3Name;
        break;
    case 4:
        letter = 'd';
        altName = build_info::AltBlock4Name;
        break;
    case 5:
        letter = 'e';
        altName = build_info::AltBlock5Name;
        break;
    default:
        break;
    }
    if (altName) {
        MakerNameLabel.setCaption(altName);
        StreetLabel.setCaption(build_info::AltBlockLine);
        CityLabel.setCaption("");
        PhoneLabel.setCaption("");
    }
    Label1.setCaption("ISO-9000 ESD Protection Test Log Ver " + app_.VersionText + letter);
}

void TitleForm::Form_KeyPress(int& keyAscii)
{
    keyAscii = 0;
    Unload();
}

void TitleForm::Form_Click()
{
    Unload();
}

void ShowTitleScreen(App& app)
{
    // The second title window of the original brands belongs to a brand this build does not have:
    // BrandIndex is fixed at 1, so the title form is always the one shown.
    app.titleForm().ShowModal();
}

} // namespace zandolt
