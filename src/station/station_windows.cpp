// The station's side of StationWindows: each request goes to the window that answers it.
#include "station_windows.h"

#include "app.h"
#include "reports/disp_form.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "station/rs232_form.h"

namespace zandolt {

namespace {

class StationForms final : public StationWindows
{
public:
    explicit StationForms(App& app) : app_(app) {}

    void ShowTimedError(const std::string& message, int seconds) override
    {
        app_.errMsgFrm().ShowTimed(message, seconds);
    }
    void ShowErrorOnDefaults(const std::string& title, const std::string& text) override
    {
        app_.errMsgFrm().ShowOnDefaults(title, text);
    }
    void FillNameList() override { app_.nameForm().FillNameList(); }
    void RestartPasswordExpiry() override { app_.nameForm().RestartPasswordExpiry(); }
    void FollowOfflineTesting() override { app_.nameForm().FollowOfflineTesting(); }
    void CloseTestWindow() override { zandolt::CloseTestWindow(app_); }
    void ShowInViewer(const std::string& title, const std::string& hook, const std::string& text,
                      double fontSize) override
    {
        zandolt::ShowInViewer(app_, title, hook, text, fontSize);
    }

private:
    App& app_;
};

} // namespace

StationWindows& App::stationWindows()
{
    if (!stationWindows_)
        stationWindows_ = std::make_unique<StationForms>(*this);
    return *stationWindows_;
}

} // namespace zandolt
