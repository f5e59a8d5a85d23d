// No two controls of a window, nor two entries of a menu level, may share an Alt key.
#include "admin/cert_ex_form.h"
#include "admin/config_form.h"
#include "admin/config_reader_form.h"
#include "admin/dir_form.h"
#include "admin/limits_form.h"
#include "admin/mod_form.h"
#include "admin/pass_form.h"
#include "admin/sel_config_form.h"
#include "admin/sick_form.h"
#include "admin/title_form.h"
#include "admin/unknown_form.h"
#include "automation/auto_frm.h"
#include "automation/log_sort_form.h"
#include "automation/names_form.h"
#include "reports/disp_form.h"
#include "reports/help_form.h"
#include "reports/individual_employee_selection_form.h"
#include "station/cartoon_form.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "station/press_form.h"
#include "station/printer_check_form.h"
#include "station/rs232_form.h"
#include "station/sim_form.h"
#include "support/scenario.h"

#include <cctype>
#include <map>

namespace zandolt::testing {
namespace {

// Who holds each Alt key in one scope (a window, or one menu level).
using KeyHolders = std::map<char, std::vector<std::string>>;

// The character behind a single "&" of a caption counts; "&&" is a plain "&".
void Hold(KeyHolders& holders, const std::string& name, const std::string& caption)
{
    for (size_t i = 0; i + 1 < caption.size(); ++i)
        if (caption[i] == '&' && caption[++i] != '&') {
            holders[static_cast<char>(std::toupper(static_cast<unsigned char>(caption[i])))].push_back(name);
            return;
        }
}

void Report(const KeyHolders& holders, const std::string& where, std::vector<std::string>& clashes)
{
    for (const auto& [key, names] : holders)
        if (names.size() > 1)
            clashes.push_back(where + ": Alt+" + key + " is " + names[0] + " and " + names[1]);
}

void CheckMenuLevel(const std::string& where, const std::vector<MenuItem*>& items, std::vector<std::string>& clashes)
{
    KeyHolders level;
    for (const MenuItem* item : items) {
        Hold(level, item->name(), item->caption());
        CheckMenuLevel(where + " > " + item->name(), item->children(), clashes);
    }
    Report(level, where, clashes);
}

using AccessKeys = ScenarioTest;

TEST_F(AccessKeys, NoWindowHasTwoControlsOrMenuEntriesOnOneKey)
{
    startStation();
    App& a = *app_;
    std::vector<std::string> clashes;
    for (const Form* w : std::initializer_list<const Form*>{
             &a.nameForm(),      &a.rs232Form(),        &a.pressForm(),
             &a.cartoonForm(),   &a.simForm(),          &a.errMsgFrm(),
             &a.passForm(),      &a.titleForm(),        &a.printerCheckForm(),
             &a.unKnowFo(),      &a.certExForm(),       &a.limitsForm(),
             &a.sickForm(),      &a.modForm(),          &a.configform(),
             &a.selConfigForm(), &a.conFigReaderForm(), &a.dirForm(),
             &a.dispForm(),      &a.helpForm(),         &a.individualEmployeeSelectionForm(),
             &a.autoFrm(),       &a.logSortForm(),      &a.namesForm()}) {
        // The menu bar's titles answer Alt in the window as its controls do.
        KeyHolders window;
        for (const Control* c : w->controls())
            Hold(window, c->name(), c->caption());
        for (const MenuItem* top : w->menus()) {
            Hold(window, top->name(), top->caption());
            CheckMenuLevel(w->name() + " > " + top->name(), top->children(), clashes);
        }
        Report(window, w->name(), clashes);
    }
    EXPECT_EQ(clashes, std::vector<std::string>{});
}

} // namespace
} // namespace zandolt::testing
