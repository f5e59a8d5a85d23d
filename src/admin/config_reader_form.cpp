#include "admin/config_reader_form.h"

#include "admin/field_text.h"
#include "app.h"
#include "data/number_text.h"

#include <cstdlib>
#include <optional>

namespace zandolt {

ConFigReaderForm::ConFigReaderForm(App& app)
    : Form(app.ui, "ConFigReaderForm"), UseCharsFrame(*this, "UseCharsFrame"), OptionAll(*this, "OptionAll"),
      OptionFirst(*this, "OptionFirst"), OptionMiddle(*this, "OptionMiddle"), OptionLast(*this, "OptionLast"),
      UseLastCharsTextBox(*this, "UseLastCharsTextBox"), SkipCharsFrame(*this, "SkipCharsFrame"),
      SkipOptionFirst(*this, "SkipOptionFirst"), SkipOptionLast(*this, "SkipOptionLast"),
      SkipCharsTextBox(*this, "SkipCharsTextBox"), ProxComPortLabel(*this, "ProxComPortLabel"),
      ProxComPortTextBox(*this, "ProxComPortTextBox"), ProxComPortNote(*this, "ProxComPortNote"),
      ProxSkipLabel(*this, "ProxSkipLabel"), ProxSkipUnit(*this, "ProxSkipUnit"),
      ProxSkipCharsTextBox(*this, "ProxSkipCharsTextBox"), ProxMiddleLabel(*this, "ProxMiddleLabel"),
      ProxMiddleUnit(*this, "ProxMiddleUnit"), ProxUseMiddleCharsTextBox(*this, "ProxUseMiddleCharsTextBox"),
      OKBut(*this, "OKBut"), CancelBut(*this, "CancelBut"), app_(app)
{
    finishConstruction();
}

ConFigReaderForm& App::conFigReaderForm()
{
    return ensureForm<ConFigReaderForm>(conFigReaderForm_);
}

void ConFigReaderForm::design()
{
    setCaption("Configure key board wedge and RS232 readers");
    setSize(8400, 5400);
    setFixedDialog(true);

    UseCharsFrame.move(120, 60, 3960, 1860);
    UseCharsFrame.setCaption("Characters to use");
    int top = 300;
    for (auto [option, caption] : {std::pair{&OptionAll, "all"}, std::pair{&OptionFirst, "first"},
                                   std::pair{&OptionMiddle, "middle"}, std::pair{&OptionLast, "last"}}) {
        option->setContainer(&UseCharsFrame);
        option->move(240, top, 1560, 330);
        option->setCaption(caption);
        top += 360;
    }
    UseLastCharsTextBox.setContainer(&UseCharsFrame);
    UseLastCharsTextBox.move(2040, 660, 1200, 330);

    SkipCharsFrame.move(4260, 60, 3960, 1860);
    SkipCharsFrame.setCaption("Characters to skip");
    SkipOptionFirst.setContainer(&SkipCharsFrame);
    SkipOptionFirst.move(240, 300, 1560, 330);
    SkipOptionFirst.setCaption("first");
    SkipOptionLast.setContainer(&SkipCharsFrame);
    SkipOptionLast.move(240, 660, 1560, 330);
    SkipOptionLast.setCaption("last");
    SkipCharsTextBox.setContainer(&SkipCharsFrame);
    SkipCharsTextBox.move(2040, 480, 1200, 330);

    ProxComPortLabel.move(120, 2100, 6360, 330);
    ProxComPortLabel.setCaption("Comm Port for all HID, Cassi Rusco, and general RS232 readers:");
    ProxComPortTextBox.move(6600, 2070, 840, 330);
    ProxComPortNote.move(120, 2460, 8040, 480);
    ProxComPortNote.setCaption("( Ususlly 1-4 depending on which comm board.)  Must be a different number than the "
                               "combo meter port.");
    ProxComPortNote.setFontSize(7.5);
    ProxSkipLabel.move(120, 3165, 1200, 285);
    ProxSkipLabel.setCaption("Skip first");
    ProxSkipLabel.setAlignment(1);
    ProxSkipCharsTextBox.move(1440, 3120, 840, 330);
    ProxSkipUnit.move(2400, 3165, 600, 285);
    ProxSkipUnit.setCaption("bits");
    ProxMiddleLabel.move(3240, 3165, 1320, 285);
    ProxMiddleLabel.setCaption("Use middle");
    ProxMiddleLabel.setAlignment(1);
    ProxUseMiddleCharsTextBox.move(4680, 3120, 840, 330);
    ProxMiddleUnit.move(5640, 3165, 600, 285);
    ProxMiddleUnit.setCaption("bits");

    OKBut.move(4800, 4320, 1560, 450);
    OKBut.setCaption("OK");
    OKBut.setDefault(true);
    CancelBut.move(6600, 4320, 1560, 450);
    CancelBut.setCaption("Cancel");
    CancelBut.setCancel(true);
}

void ConFigReaderForm::wire()
{
    for (OptionButton* o : {&OptionAll, &OptionFirst, &OptionMiddle, &OptionLast})
        o->Click = [this] { ApplyChoice(); };
    OKBut.Click = [this] { OKBut_Click(); };
    CancelBut.Click = [this] { Unload(); };
}

void ConFigReaderForm::Form_Load()
{
    UseLastCharsTextBox.setText(std::to_string(std::abs(app_.UseLastChars)));
    SkipCharsTextBox.setText(std::to_string(std::abs(app_.SkipChars)));
    ProxComPortTextBox.setText(std::to_string(app_.ProximityComport));
    ProxSkipCharsTextBox.setText(std::to_string(std::abs(app_.SkipProxBits)));
    ProxUseMiddleCharsTextBox.setText(std::to_string(std::abs(app_.UseProxMiddleBits)));
    OptionButton& choice = app_.SkipChars != 0     ? OptionMiddle
                           : app_.UseLastChars > 0 ? OptionLast
                           : app_.UseLastChars < 0 ? OptionFirst
                                                   : OptionAll;
    choice.setValue(True);
    if (app_.SkipChars >= 1)
        SkipOptionFirst.setValue(True);
    else if (app_.SkipChars < 0)
        SkipOptionLast.setValue(True);
    ApplyChoice();
}

void ConFigReaderForm::ApplyChoice()
{
    const bool middle = OptionMiddle.value() != 0;
    for (Control* c :
         std::initializer_list<Control*>{&SkipCharsFrame, &SkipOptionFirst, &SkipOptionLast, &SkipCharsTextBox})
        c->setEnabled(middle);
    if (OptionAll.value() != 0) {
        UseLastCharsTextBox.setText("0");
        UseLastCharsTextBox.setEnabled(false);
    } else {
        UseLastCharsTextBox.setEnabled(true);
    }
}

void ConFigReaderForm::OKBut_Click()
{
    // Every box is read before any setting changes: a box that holds no whole number is told and
    // changes nothing.
    const struct
    {
        TextBox& box;
        const char* what;
    } boxes[] = {{UseLastCharsTextBox, "characters to use"},
                 {SkipCharsTextBox, "characters to skip"},
                 {ProxComPortTextBox, "reader's comm port"},
                 {ProxSkipCharsTextBox, "bits to skip"},
                 {ProxUseMiddleCharsTextBox, "middle bits to use"}};
    int16 values[5] = {};
    for (size_t i = 0; i < 5; ++i) {
        const std::optional<int16> v =
            IsNumeric(boxes[i].box.text()) ? RoundToInt16(Val(boxes[i].box.text())) : std::nullopt;
        if (!v || (i < 2 && *v == -32768)) {
            app_.ui.msgBox(std::string("Please type a whole number for the ") + boxes[i].what + ". \"" +
                               boxes[i].box.text() + "\" is not one. Nothing was changed.",
                           msgbox::OKOnly | msgbox::Exclamation, "");
            boxes[i].box.SetFocus();
            return;
        }
        values[i] = *v;
    }

    app_.UseLastChars = static_cast<int16>(std::abs(values[0]));
    app_.SkipChars = static_cast<int16>(std::abs(values[1]));
    if (OptionFirst.value() != 0) {
        app_.UseLastChars = static_cast<int16>(-app_.UseLastChars);
        app_.SkipChars = 0;
    } else if (OptionAll.value() != 0) {
        app_.UseLastChars = 0;
        app_.SkipChars = 0;
    } else if (OptionLast.value() != 0) {
        app_.SkipChars = 0;
    }
    if (SkipOptionLast.value() != 0)
        app_.SkipChars = static_cast<int16>(-app_.SkipChars);
    app_.ProximityComport = values[2];
    app_.SkipProxBits = values[3];
    app_.UseProxMiddleBits = values[4];
    if (app_.ProximityComport == app_.ComboComport)
        app_.ui.msgBox("The proximity reader com port must be different than the combo meter com port.", msgbox::OKOnly,
                       "");
    Unload();
}

} // namespace zandolt
