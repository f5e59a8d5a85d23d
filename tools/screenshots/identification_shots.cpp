// Pictures of the Setup menu's identification windows: unknown badges and the certification gate,
// each shown without modality on the demo station's settings, as an administrator opens it.
#include "admin/cert_ex_form.h"
#include "admin/unknown_form.h"
#include "shots.h"

namespace zandolt::screenshots {

bool ShootUnknownIdWindow(ShotContext& ctx, const QString& file)
{
    // A station that enrols new badges and asks for their names, with a work group for them.
    ctx.app.AddUnknownFlag = 3;
    ctx.app.DefaultWorkGroup = "NEW";
    return ShowAndSave(ctx, ctx.app.unKnowFo(), file);
}

bool ShootCertificationWindow(ShotContext& ctx, const QString& file)
{
    // A month's notice, a weekly reminder, and a password for the expired.
    ctx.app.CertWarnAdvanceDays = 30;
    ctx.app.CertWarnIntervalDays = 7;
    ctx.app.CertAccessMode = 2;
    ctx.app.CertAccessPassword = "recert";
    return ShowAndSave(ctx, ctx.app.certExForm(), file);
}

} // namespace zandolt::screenshots
