// Every window of the program from the keyboard: no two controls of one window, and no two entries
// of one menu level, may share an Alt shortcut, or the key reaches neither of them.
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

#include <gtest/gtest.h>

#include <cctype>
#include <map>

namespace zandolt::testing {
namespace {

// The character behind a single "&" of a caption, in upper case ("&&" is a plain "&"); 0 for none.
char AccessKey(const std::string& caption)
{
    for (size_t i = 0; i + 1 < caption.size(); ++i)
        if (caption[i] == '&') {
            if (caption[i + 1] != '&')
                return static_cast<char>(std::toupper(static_cast<unsigned char>(caption[i + 1])));
            ++i;
        }
    return 0;
}

// Collects who holds which key in one scope (a window, or one menu level) and says where two do.
class KeyScope
{
public:
    explicit KeyScope(std::string where) : where_(std::move(where)) {}
    void add(const std::string& holder, const std::string& caption)
    {
        if (const char key = AccessKey(caption))
            holders_[key].push_back(holder);
    }
    void report(std::vector<std::string>& clashes) const
    {
        for (const auto& [key, names] : holders_)
            if (names.size() > 1) {
                std::string line = where_ + ": Alt+" + key + " is";
                for (const std::string& n : names)
                    line += " " + n;
                clashes.push_back(line);
            }
    }

private:
    std::string where_;
    std::map<char, std::vector<std::string>> holders_;
};

void CheckMenuLevel(const std::string& where, const std::vector<MenuItem*>& items, std::vector<std::string>& clashes)
{
    KeyScope level(where);
    for (const MenuItem* item : items) {
        level.add(item->name(), item->caption());
        if (!item->children().empty())
            CheckMenuLevel(where + " > " + item->name(), item->children(), clashes);
    }
    level.report(clashes);
}

class AccessKeys : public ScenarioTest
{
};

TEST_F(AccessKeys, NoWindowHasTwoControlsOrMenuEntriesOnOneKey)
{
    EXPECT_EQ(AccessKey("e&Xpired"), 'X');
    EXPECT_EQ(AccessKey("Save && &quit"), 'Q');
    EXPECT_EQ(AccessKey("Misc Abs"), 0);

    startStation();
    App& a = *app_;
    const std::vector<Form*> windows = {
        &a.nameForm(),      &a.rs232Form(),        &a.pressForm(),
        &a.cartoonForm(),   &a.simForm(),          &a.errMsgFrm(),
        &a.passForm(),      &a.titleForm(),        &a.printerCheckForm(),
        &a.unKnowFo(),      &a.certExForm(),       &a.limitsForm(),
        &a.sickForm(),      &a.modForm(),          &a.configform(),
        &a.selConfigForm(), &a.conFigReaderForm(), &a.dirForm(),
        &a.dispForm(),      &a.helpForm(),         &a.individualEmployeeSelectionForm()};
    std::vector<std::string> clashes;
    for (const Form* w : windows) {
        // The menu bar's titles answer Alt in the window as its controls do.
        KeyScope window(w->name());
        for (const Control* c : w->controls())
            if (c->kind() != ControlKind::TextBox && c->kind() != ControlKind::ComboBox)
                window.add(c->name(), c->caption());
        for (const MenuItem* top : w->menus()) {
            window.add(top->name(), top->caption());
            CheckMenuLevel(w->name() + " > " + top->name(), top->children(), clashes);
        }
        window.report(clashes);
    }
    EXPECT_EQ(clashes, std::vector<std::string>{});
}

} // namespace
} // namespace zandolt::testing
