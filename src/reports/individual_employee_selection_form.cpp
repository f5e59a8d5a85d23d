#include "reports/individual_employee_selection_form.h"

#include "app.h"

#include <algorithm>

namespace zandolt {

namespace {

const char* const HelpText =
    "If a report is desired for a single employee then click the arrow in the selection box, choose the emplyee, "
    "and press the OK button.  If all employees are desired, then either click the All button or do not select any "
    "employee and click the OK button.  To cancel the report press the Cancel button.";

char FoldCase(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

} // namespace

IndividualEmployeeSelectionForm::IndividualEmployeeSelectionForm(App& app)
    : Form(app.ui, "IndividualEmployeeSelectionForm"), HelpLab(*this, "HelpLab"),
      EmployeeSelectionCombo(*this, "EmployeeSelectionCombo"), OKBut(*this, "OKBut"), AllBut(*this, "AllBut"),
      CancelBut(*this, "CancelBut"), app_(app)
{
    finishConstruction();
}

IndividualEmployeeSelectionForm& App::individualEmployeeSelectionForm()
{
    return ensureForm<IndividualEmployeeSelectionForm>(individualEmployeeSelectionForm_);
}

void IndividualEmployeeSelectionForm::design()
{
    setCaption("Individual Employee Selection Window");
    setSize(6600, 3900);
    setFixedDialog(true);
    HelpLab.move(240, 180, 6000, 1380);
    HelpLab.setCaption(HelpText);
    HelpLab.setFontSize(9.75);
    EmployeeSelectionCombo.move(240, 1740, 6000, 360);
    EmployeeSelectionCombo.setStyle(2);
    EmployeeSelectionCombo.setFontSize(9.75);
    OKBut.move(600, 2640, 1455, 495);
    OKBut.setCaption("OK");
    OKBut.setDefault(true);
    AllBut.move(2520, 2640, 1455, 495);
    AllBut.setCaption("All");
    CancelBut.move(4440, 2640, 1455, 495);
    CancelBut.setCaption("Cancel");
    CancelBut.setCancel(true);
}

void IndividualEmployeeSelectionForm::wire()
{
    OKBut.Click = [this] { OKBut_Click(); };
    AllBut.Click = [this] { AllBut_Click(); };
    CancelBut.Click = [this] { CancelBut_Click(); };
}

std::vector<int> SortedEmployeeRows(const App& app)
{
    std::vector<int> rows(static_cast<size_t>(std::max(0, app.EmployeeCount)));
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i] = static_cast<int>(i);
    std::stable_sort(rows.begin(), rows.end(), [&app](int a, int b) {
        return std::lexicographical_compare(app.FullName[a].begin(), app.FullName[a].end(), app.FullName[b].begin(),
                                            app.FullName[b].end(), [](char x, char y) {
                                                return static_cast<unsigned char>(FoldCase(x)) <
                                                       static_cast<unsigned char>(FoldCase(y));
                                            });
    });
    return rows;
}

void IndividualEmployeeSelectionForm::Form_Load()
{
    itemIndexes_ = SortedEmployeeRows(app_);
    std::vector<std::string> names;
    names.reserve(itemIndexes_.size());
    for (int row : itemIndexes_)
        names.push_back(app_.FullName[row]);
    EmployeeSelectionCombo.setItems(std::move(names));
}

void IndividualEmployeeSelectionForm::OKBut_Click()
{
    const int entry = EmployeeSelectionCombo.listIndex();
    if (!EmployeeSelectionCombo.text().empty() && entry >= 0 && entry < static_cast<int>(itemIndexes_.size())) {
        app_.ReportEmployeeName = EmployeeSelectionCombo.text();
        app_.ReportEmployeeIndex = static_cast<int16>(itemIndexes_[entry]);
    } else {
        app_.ReportEmployeeName = " ";
        app_.ReportEmployeeIndex = -1;
    }
    Unload();
}

void IndividualEmployeeSelectionForm::AllBut_Click()
{
    app_.ReportEmployeeName = " ";
    app_.ReportEmployeeIndex = -1;
    Unload();
}

void IndividualEmployeeSelectionForm::CancelBut_Click()
{
    app_.ReportEmployeeName.clear();
    app_.ReportEmployeeIndex = -1;
    Unload();
}

void ChooseEmployee(App& app, bool allowAll)
{
    IndividualEmployeeSelectionForm& f = app.individualEmployeeSelectionForm();
    // Closing the window by its close box is a cancel.
    app.ReportEmployeeName.clear();
    app.ReportEmployeeIndex = -1;
    f.Load();
    if (!allowAll) {
        f.AllBut.setEnabled(false);
        f.HelpLab.setCaption("Click on the arrow and select an Employee.");
        if (f.EmployeeSelectionCombo.listCount() > 0)
            f.EmployeeSelectionCombo.setListIndex(0);
    }
    f.ShowModal();
}

} // namespace zandolt
