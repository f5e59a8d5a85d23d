// The process-wide state of the system in one object, so that a test can build a fresh one: the
// settings, the employee table, the test record, the receive state of the tester link, the few
// other process-wide values, the platform services, and the windows, which exist once each.
#pragma once

#include "data/employee_table.h"
#include "data/settings.h"
#include "platform/services.h"
#include "reports/report_parameters.h"
#include "station/test_record.h"

#include <memory>
#include <string>

namespace zandolt {

class NameForm;
class RS232Form;
class PressForm;
class CartoonForm;
class SimForm;
class ErrMsgFrm;
class PassForm;
class TitleForm;
class PrinterCheckForm;
class UnKnowFo;
class CertExForm;
class LimitsForm;
class SickForm;
class ModForm;
class Configform;
class SelConfigForm;
class ConFigReaderForm;
class DirForm;
class DispForm;
class HelpForm;
class IndividualEmployeeSelectionForm;
class AutoFrm;
class LogSortForm;
class NamesForm;

class App : public Settings, public EmployeeTable, public TestRecord, public TesterLinkState, public ReportParameters
{
public:
    explicit App(Services services);
    ~App();
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    Ui& ui;
    Clock& clock;
    Serial& serial;
    Printer& printer;
    Files& files;
    Programs& programs;
    Locale& locale;
    Mail& mail;

    // The language of the string table, chosen once from the locale.
    Language language;

    // Who tested last; -1 for nobody yet.
    int16 LastPersonIndex = -1;
    // Identification state of the main window.
    int16 NameListDirtyFlag = 0;
    std::string TypedText;
    int16 TypedNumber = 0;
    std::string ProxText;
    // The request of ticks for the timed error window: 0 none, above 0 asked, -1 taken.
    int16 ErrorTicksRequest = 0;
    int16 ErrorBeepFlag = True;
    // What was typed last into the password window; equal to AdminPassword while the gate is open.
    std::string EnteredPassword;

    // The windows. Each exists once; the first call creates it, unloaded. Each accessor is defined
    // beside its window.
    NameForm& nameForm();
    RS232Form& rs232Form();
    PressForm& pressForm();
    CartoonForm& cartoonForm();
    SimForm& simForm();
    ErrMsgFrm& errMsgFrm();
    PassForm& passForm();
    TitleForm& titleForm();
    PrinterCheckForm& printerCheckForm();
    UnKnowFo& unKnowFo();
    CertExForm& certExForm();
    LimitsForm& limitsForm();
    SickForm& sickForm();
    ModForm& modForm();
    Configform& configform();
    SelConfigForm& selConfigForm();
    ConFigReaderForm& conFigReaderForm();
    DirForm& dirForm();
    DispForm& dispForm();
    HelpForm& helpForm();
    IndividualEmployeeSelectionForm& individualEmployeeSelectionForm();
    AutoFrm& autoFrm();
    LogSortForm& logSortForm();
    NamesForm& namesForm();

    // True when the window exists and is loaded, without creating it.
    bool isLoaded(const Form* form) const { return form && form->loaded(); }

protected:
    template <class F> F& ensureForm(std::unique_ptr<Form>& slot)
    {
        if (!slot)
            slot = std::make_unique<F>(*this);
        return static_cast<F&>(*slot);
    }

private:
    std::unique_ptr<Form> nameForm_, rs232Form_, pressForm_, cartoonForm_, simForm_, errMsgFrm_, passForm_, titleForm_,
        printerCheckForm_;
    std::unique_ptr<Form> unKnowFo_;
    std::unique_ptr<Form> certExForm_;
    std::unique_ptr<Form> limitsForm_;
    std::unique_ptr<Form> sickForm_;
    std::unique_ptr<Form> modForm_;
    std::unique_ptr<Form> configform_;
    std::unique_ptr<Form> selConfigForm_;
    std::unique_ptr<Form> conFigReaderForm_;
    std::unique_ptr<Form> dirForm_;
    std::unique_ptr<Form> dispForm_;
    std::unique_ptr<Form> helpForm_;
    std::unique_ptr<Form> individualEmployeeSelectionForm_;
    std::unique_ptr<Form> autoFrm_;
    std::unique_ptr<Form> logSortForm_;
    std::unique_ptr<Form> namesForm_;
};

} // namespace zandolt
