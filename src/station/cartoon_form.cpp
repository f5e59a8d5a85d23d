#include "station/cartoon_form.h"

#include "app.h"

namespace zandolt {

CartoonForm::CartoonForm(App& app)
    : Form(app.ui, "CartoonForm"), ImageWOK(*this, "ImageWOK"), ImageWLO(*this, "ImageWLO"),
      ImageWHI(*this, "ImageWHI"), ImageLOK(*this, "ImageLOK"), ImageLLO(*this, "ImageLLO"),
      ImageLHI(*this, "ImageLHI"), ImageROK(*this, "ImageROK"), ImageRLO(*this, "ImageRLO"),
      ImageRHI(*this, "ImageRHI"), Timer1(*this, "Timer1"), app_(app)
{
    finishConstruction();
}

CartoonForm& App::cartoonForm()
{
    return ensureForm<CartoonForm>(cartoonForm_);
}

void CartoonForm::design()
{
    setCaption("Results");
    setSize(5160, 6360);
    setFixedDialog(true);
    const std::pair<Image*, const char*> images[] = {
        {&ImageWOK, "cartoon_wok"}, {&ImageWLO, "cartoon_wlo"}, {&ImageWHI, "cartoon_whi"},
        {&ImageLOK, "cartoon_lok"}, {&ImageLLO, "cartoon_llo"}, {&ImageLHI, "cartoon_lhi"},
        {&ImageROK, "cartoon_rok"}, {&ImageRLO, "cartoon_rlo"}, {&ImageRHI, "cartoon_rhi"}};
    // The nine pictures lie on each other and together make one figure.
    for (const auto& [image, picture] : images) {
        image->move(180, 180, 4800, 6000);
        image->setPicture(picture);
        image->setVisible(image == &ImageWOK || image == &ImageLOK || image == &ImageROK);
    }
    Timer1.setInterval(500);
    Timer1.setEnabled(true);
}

void CartoonForm::wire()
{
    Timer1.Tick = [this] { Timer1_Timer(); };
}

void CartoonForm::Form_Load()
{
    counter_ = 1;
}

void CartoonForm::Timer1_Timer()
{
    if (counter_ % 2 == 1) {
        for (Image* ok : {&ImageWOK, &ImageLOK, &ImageROK})
            ok->setVisible(true);
        for (Image* marked : {&ImageWLO, &ImageWHI, &ImageLLO, &ImageLHI, &ImageRLO, &ImageRHI})
            marked->setVisible(false);
    } else {
        struct Channel
        {
            const std::string& code;
            const char* low;
            const char* high;
            Image& ok;
            Image& lo;
            Image& hi;
        };
        const Channel channels[] = {{app_.WristCode, "Wlo", "Whi", ImageWOK, ImageWLO, ImageWHI},
                                    {app_.LeftCode, "Llo", "Lhi", ImageLOK, ImageLLO, ImageLHI},
                                    {app_.RightCode, "Rlo", "Rhi", ImageROK, ImageRLO, ImageRHI}};
        for (const Channel& c : channels) {
            if (c.code == c.low || c.code == c.high) {
                c.ok.setVisible(false);
                (c.code == c.low ? c.lo : c.hi).setVisible(true);
            }
        }
    }
    ++counter_;
}

} // namespace zandolt
