#include "station/printer_check_form.h"

#include "app.h"

namespace zandolt {

PrinterCheckForm::PrinterCheckForm(App& app) : Form(app.ui, "PrinterCheckForm"), Label1(*this, "Label1")
{
    finishConstruction();
}

PrinterCheckForm& App::printerCheckForm()
{
    return ensureForm<PrinterCheckForm>(printerCheckForm_);
}

void PrinterCheckForm::design()
{
    setCaption("Printer check");
    setSize(6000, 1500);
    setFixedDialog(true);
    Label1.move(240, 240, 5520, 1020);
    Label1.setFontSize(10);
    Label1.setCaption("Checking printer.  If there is a problem, please make sure that a printer and printer driver "
                      "are installed.");
}

} // namespace zandolt
