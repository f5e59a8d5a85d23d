#include "app.h"

namespace zandolt {

App::App(Services services)
    : ui(services.ui), clock(services.clock), serial(services.serial), printer(services.printer), files(services.files),
      programs(services.programs), locale(services.locale), mail(services.mail), language(locale.language())
{
}

App::~App()
{
    // The backend lets go of the windows while their controls still exist.
    for (auto* slot : {&nameForm_, &rs232Form_, &pressForm_, &cartoonForm_, &simForm_, &errMsgFrm_, &passForm_,
                       &titleForm_, &printerCheckForm_})
        if (*slot)
            (*slot)->discard();
    for (auto* slot : {&dispForm_, &helpForm_, &individualEmployeeSelectionForm_, &autoFrm_})
        if (*slot)
            (*slot)->discard();
    for (auto* slot : {&logSortForm_, &namesForm_})
        if (*slot)
            (*slot)->discard();
}

} // namespace zandolt
