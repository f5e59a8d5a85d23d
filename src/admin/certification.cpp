#include "admin/certification.h"

#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "data/number_text.h"
#include "platform/text_encoding.h"
#include "station_windows.h"

namespace zandolt {

int CheckCertification(App& app)
{
    const int row = app.CurrentEmployee;
    const size_t r = static_cast<size_t>(row);
    const long daysLeft = static_cast<long>(app.CertExpiry.at(r)) - static_cast<long>(TodayDate(app.clock.now()));

    if (daysLeft < 0) {
        switch (app.CertAccessMode) {
        case 1:
            app.stationWindows().ShowErrorOnDefaults(
                "Certificate Expired", "Sorry, your training certification has expired.  Please see your supervisor.");
            return 0;
        case 2: {
            // A blank answer is the input box's cancel, and it ends without a message.
            const std::string answer = app.ui.inputBox(
                "Sorry, your training certification has expired.  Please see your supervisor for a password.",
                "Enter password for expired certificates", "");
            if (InEncoding(answer, app.IniEncoding) == app.CertAccessPassword)
                return 1;
            if (!answer.empty())
                ShowTimedError(app, "Incorrect password");
            return 0;
        }
        default:
            return 1;
        }
    }

    if (app.CertWarnAdvanceDays <= 0 || daysLeft >= app.CertWarnAdvanceDays) {
        // Outside the warning period; a renewal of the date ends a running sequence.
        if (app.CertWarning[r] == 0)
            return 1;
        app.CertWarning[r] = 0;
        app.UpdateFlag[r] = True;
    } else {
        if (app.CertWarning[r] <= 0) {
            app.CertWarning[r] = app.CertWarnAdvanceDays;
            app.UpdateFlag[r] = True;
        }
        if (app.CertWarning[r] <= daysLeft)
            return 1; // the next warning is not due yet
        app.CertWarning[r] = static_cast<int16>(app.CertWarning[r] - app.CertWarnIntervalDays);
        app.UpdateFlag[r] = True;
        if (app.CertWarning[r] < 0)
            app.CertWarning[r] = 0;
        app.stationWindows().ShowErrorOnDefaults("Certificate Will Expire Soon",
                                                 "Your training certification will expire in " +
                                                     NumberText(static_cast<int>(daysLeft)) +
                                                     " days.  Please see your supervisor for recertification.");
        // With no interval the countdown is not saved, so the warning comes at every login.
        if (app.CertWarnIntervalDays < 1)
            return 1;
    }

    const int16 kept = app.CurrentEmployee;
    SaveNamesFile(app);
    ReadNamesFile(app);
    app.CurrentEmployee = kept;
    return 1;
}

} // namespace zandolt
