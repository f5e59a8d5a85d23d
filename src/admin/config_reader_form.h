// The parameters of the card readers: which characters of a keyboard-wedge or RS232 read are
// used, the reader's port, and the bits of a proximity card.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class ConFigReaderForm : public Form
{
public:
    explicit ConFigReaderForm(App& app);

    Frame UseCharsFrame;
    OptionButton OptionAll, OptionFirst, OptionMiddle, OptionLast;
    TextBox UseLastCharsTextBox;
    Frame SkipCharsFrame;
    OptionButton SkipOptionFirst, SkipOptionLast;
    TextBox SkipCharsTextBox;
    Label ProxComPortLabel;
    TextBox ProxComPortTextBox;
    Label ProxComPortNote;
    Label ProxSkipLabel, ProxSkipUnit;
    TextBox ProxSkipCharsTextBox;
    Label ProxMiddleLabel, ProxMiddleUnit;
    TextBox ProxUseMiddleCharsTextBox;
    CommandButton OKBut;
    CommandButton CancelBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    // The skip elements are for a middle part only; "all" uses no count either.
    void ApplyChoice();
    void OKBut_Click();

    App& app_;
};

} // namespace zandolt
