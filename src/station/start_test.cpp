#include "station/start_test.h"

#include "admin/passwords.h"
#include "app.h"
#include "station/cartoon_form.h"
#include "station/press_form.h"
#include "station/rs232_form.h"
#include "station/sim_form.h"
#include "station/tester_link.h"

namespace zandolt {

void StartTest(App& app)
{
    if (!AskEmployeeTestPassword(app))
        return;
    app.TestWindowOpenFlag = 1;
    app.cartoonForm().Unload();
    RS232Form& w = app.rs232Form();
    w.Show();
    ReadyForRetest(app);
    app.pressForm().Show();
    ReadyForRetest(app);
    w.CancelButton.SetFocus();
    if (app.Simulation == True)
        app.simForm().Show();
}

} // namespace zandolt
