// The employee chooser of the reports: a sorted list of every employee of the table, with All, OK
// and Cancel. Its answer is left in ReportEmployeeName and ReportEmployeeIndex.
#pragma once

#include "platform/ui.h"

#include <string>
#include <vector>

namespace zandolt {

class App;

class IndividualEmployeeSelectionForm : public Form
{
public:
    explicit IndividualEmployeeSelectionForm(App& app);

    Label HelpLab;
    ComboBox EmployeeSelectionCombo;
    CommandButton OKBut;
    CommandButton AllBut;
    CommandButton CancelBut;

    // The table index of each entry of the combo, in the combo's order.
    const std::vector<int>& itemIndexes() const { return itemIndexes_; }

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void OKBut_Click();
    void AllBut_Click();
    void CancelBut_Click();

    App& app_;
    std::vector<int> itemIndexes_;
};

// The rows of the table in the chooser's order: by full name, ignoring case, rows of one name in
// table order.
std::vector<int> SortedEmployeeRows(const App& app);

// Shows the chooser modally. Without allowAll the All button is disabled, the help says to pick
// one employee, and the first entry is chosen to start with.
void ChooseEmployee(App& app, bool allowAll);

} // namespace zandolt
