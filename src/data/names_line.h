// One line of the names file read into the employee table, and the split of the ID field into ID
// and badge. Each line is consumed from the left on one running remainder.
#pragma once

#include "data/employee_table.h"
#include "data/line_fields.h"
#include "platform/locale.h"

#include <string>
#include <string_view>

namespace zandolt {

// What a short line falls back on besides the table's fixed defaults, and the locale that reads a
// date standing last on a line.
struct NameLineContext
{
    Date today = 0;
    int presentYear = 2000;
    Locale* locale = nullptr;
};

enum class NameLineResult {
    NoRow, // no last name: the line is dropped
    Row,   // the next row was made, with the fields the line holds and defaults for the rest
    Failed // the row would lie beyond the table, or a number does not fit its column
};

// Reads the line that `fields` stands at the start of into the row after `row`, which it then
// advances; `fields` afterwards knows where the line ended. A line ends at its first field that
// is empty or does not fit; the columns after it keep the defaults.
NameLineResult ReadNameLine(LineFields& fields, EmployeeTable& table, int& row, const NameLineContext& context);

// The ID field as the file holds it, split in place: "12:34" gives ID 12 and badge 34, "12-34"
// gives ID 12-34 and badge 34, and an ID with neither is its own badge.
void SplitIdField(std::string& id, std::string& badge);

} // namespace zandolt
