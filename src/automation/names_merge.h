// The table of the names consolidation and the rules by which the stations' rows join the server's.
// A line of a names file is cut into four pieces only: last name, first name, ID and the rest as it
// stands; of the rest, only the update flag (field 18) is read and touched.
#pragma once

#include "data/types.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zandolt {

struct EmployeeTable;

// The rest of a row is kept in a fixed width, blank-padded and cut there.
constexpr std::size_t MergedRestLength = 500;

// The pieces a line yields, from the left: `count` is 0 when the line makes no row (no last name,
// or no comma behind it from the second character on), 1 to 3 when it stops after the last name,
// the first name or the ID, and 4 when a comma follows the ID and `rest` holds what is behind it.
struct NameLinePieces
{
    int count = 0;
    std::string_view last, first, id, rest;
};
NameLinePieces CutNameLine(std::string_view line);

// The index of the comma in front of the update flag: the 14th comma of the rest; npos when the
// rest has fewer.
std::size_t FlagComma(std::string_view rest);

// The consolidation's table: names, first names and IDs stand in the employee table's own columns,
// which it overwrites; the rest of each row stands here.
struct MergedNames
{
    explicit MergedNames(EmployeeTable& table);

    std::vector<std::string>& LastName;
    std::vector<std::string>& FirstName;
    std::vector<std::string>& IDNum;
    std::vector<std::string> MergedRest;
    int16 MergedCount = 0;
};

// A row of the server's file joins the table. A row needs only its last name; a first name it lacks
// is "zzz", an ID the row's number, and the rest is empty. A flag written as a digit becomes 0.
// False when the table is full, nothing joining it.
bool AddServerRow(MergedNames& names, std::string_view line);

enum class StationRow {
    Passed,  // no row: a piece is missing
    Known,   // the server has the employee and keeps its row
    Updated, // the station changed the row: it replaced the server's
    Added,   // an employee new to the server
    Full     // a new employee with no room left
};

// Finds the station's row in the table: by name first, else by ID, in row order, the first match
// ending the search. The row wins only with its update flag set (a number other than 0); its flag
// then comes out as 0, as does that of a new row. A flag that is no number is kept as it stands.
//
// The rows are found through indexes of the table's names and IDs, built when the merge begins
// and kept up to date by each station row; the table changes by nothing else meanwhile.
class StationMerge
{
public:
    explicit StationMerge(MergedNames& names);
    StationRow add(std::string_view line);

private:
    using Index = std::unordered_map<std::string, std::vector<int>>; // key to its rows, in order
    static std::string nameKey(std::string_view last, std::string_view first);
    static void insert(Index& index, const std::string& key, int row);
    static void erase(Index& index, const std::string& key, int row);
    static int firstRow(const Index& index, const std::string& key);

    MergedNames& names_;
    Index byName_, byId_;
};

// Removes each row whose last and first name, compared exactly, repeat an earlier row's; `show`
// hears of each removal, and of "" at the end.
void RemoveDuplicateNames(MergedNames& names, const std::function<void(const std::string&)>& show);
// The same for an ID that repeats an earlier row's.
void RemoveDuplicateIds(MergedNames& names, const std::function<void(const std::string&)>& show);

// Rows 0 to count - 1 in the order of their upper-cased last names, then first names; rows with
// equal names keep their order.
std::vector<int> SortedNameOrder(const std::vector<std::string>& lastNames, const std::vector<std::string>& firstNames,
                                 int count);

// The rows of the employee table in sorted order, less those that repeat the name of the row before
// them (without regard to case) and, from the second row on and only in a table of more than three
// rows, those that repeat an earlier row's ID exactly. The first row never loses its place to a
// repeated ID, and a later row with its ID stays.
std::vector<int> SortedRowsToKeep(const EmployeeTable& table);

// A row as consolidation writes it: "Last, First, " padded to 21 characters, the ID, ", " and the
// rest in its whole fixed width. The ID column is not padded, and the rest keeps its blanks.
std::string FormatMergedNameLine(const MergedNames& names, int row);

} // namespace zandolt
