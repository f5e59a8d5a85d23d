// The small window that stands on the screen while the station asks its printer whether it is there.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class PrinterCheckForm : public Form
{
public:
    explicit PrinterCheckForm(App& app);
    Label Label1;

protected:
    void design() override;
};

} // namespace zandolt
