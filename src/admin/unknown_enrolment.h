// Enrolment of badges the employee table doesn't know: a new row made from the station's defaults,
// a known name taking over a new badge, and the renaming of the employee in the test window.
#pragma once

#include "platform/text_encoding.h"

#include <string>

namespace zandolt {

class App;

// The bits of AddUnknownFlag.
namespace enrol {
constexpr int Allowed = 1;
constexpr int AskName = 2;
constexpr int AllowRename = 4;
constexpr int AllowBadgeTakeOver = 8;
} // namespace enrol

// The question of the name, for a new badge and for a rename.
extern const char* const NewNamePrompt;

// A typed name split at its last blank, both parts trimmed and in the employee file's encoding:
// "Mary Ann Smith" gives the first name "Mary Ann" and the last name "Smith"; a name of one word is
// a last name alone. Commas, which the employee file can't hold, count as blanks.
struct NameParts
{
    std::string first, last;
};
NameParts SplitNameAnswer(const std::string& answer, TextEncoding file = TextEncoding::Utf8);

// Asks whether the unknown badge is to be added and, as AddUnknownFlag allows, for the name; then
// makes the new row (or gives an existing name the badge) and saves the employee file. Returns the
// row of the employee for the badge, or -1 when nobody was enrolled.
int AddUnknownEmployee(App& app, const std::string& badge);

// The key handler of the test window's Cancel button: with renaming allowed it offers a new name
// for the employee under test. Every answer ends the visit.
void CancelButton_KeyDown(App& app);

} // namespace zandolt
