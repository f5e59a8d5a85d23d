#include "automation/names_merge.h"

#include "automation/station_dirs.h"
#include "data/employee_table.h"
#include "data/number_text.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace zandolt {

NameLinePieces CutNameLine(std::string_view line)
{
    NameLinePieces p;
    std::string_view* pieces[3] = {&p.last, &p.first, &p.id};
    std::string_view rest = line;
    for (int i = 0; i < 3; ++i) {
        // A piece ends at a comma from the second character on.
        const size_t comma = rest.find(',');
        if (comma == std::string_view::npos || comma == 0)
            return p;
        *pieces[i] = TrimBlanks(rest.substr(0, comma));
        if (i == 0 && p.last.empty())
            return p;
        rest = rest.substr(comma + 1);
        p.count = i + 1;
    }
    p.rest = rest;
    p.count = 4;
    return p;
}

size_t FlagComma(std::string_view rest)
{
    size_t at = std::string_view::npos; // in front of the rest's first character
    for (int i = 0; i < 14; ++i) {
        const size_t from = at + 1;
        if (from >= rest.size())
            return std::string_view::npos;
        at = rest.find(',', from);
        if (at == std::string_view::npos)
            return at;
    }
    return at;
}

namespace {

std::string FixedRest(std::string_view rest)
{
    std::string fixed(rest.substr(0, std::min(rest.size(), MergedRestLength)));
    fixed.resize(MergedRestLength, ' ');
    return fixed;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Removes every row whose key repeats the key of an earlier row; `told` is given the removed row
// and the row that stays.
template <typename Key>
void RemoveRepeats(MergedNames& n, Key key, const std::function<void(int removed, int kept)>& told)
{
    std::unordered_map<std::string, int> firstOf;
    firstOf.reserve(static_cast<size_t>(n.MergedCount) * 2);
    int kept = 0;
    std::vector<int> origin; // the original row of each kept row, for the message of a later repeat
    for (int row = 0; row < n.MergedCount; ++row) {
        const auto [it, isNew] = firstOf.emplace(key(row), kept);
        if (!isNew) {
            told(row, origin[static_cast<size_t>(it->second)]);
            continue;
        }
        origin.push_back(row);
        ++kept;
    }
    if (kept == n.MergedCount)
        return;
    // The kept rows move up, in their order.
    for (int to = 0; to < kept; ++to) {
        const auto from = static_cast<size_t>(origin[static_cast<size_t>(to)]);
        if (from == static_cast<size_t>(to))
            continue;
        for (auto* column : {&n.LastName, &n.FirstName, &n.IDNum, &n.MergedRest})
            (*column)[static_cast<size_t>(to)] = std::move((*column)[from]);
    }
    n.MergedCount = static_cast<int16>(kept);
}

std::string UpperAscii(const std::string& text)
{
    std::string upper = text;
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 32);
    return upper;
}

} // namespace

MergedNames::MergedNames(EmployeeTable& table)
    : LastName(table.LastName), FirstName(table.FirstName), IDNum(table.IDNum),
      MergedRest(EmployeeRows, std::string(MergedRestLength, ' '))
{
}

bool AddServerRow(MergedNames& n, std::string_view line)
{
    const NameLinePieces p = CutNameLine(line);
    if (p.count == 0)
        return true;
    if (n.MergedCount > MaxEmployeeIndex)
        return false;
    const auto row = static_cast<size_t>(n.MergedCount);
    n.LastName[row] = std::string(p.last);
    n.FirstName[row] = p.count >= 2 ? std::string(p.first) : "zzz";
    n.IDNum[row] = p.count >= 3 ? std::string(p.id) : NumberText(static_cast<int>(row));
    std::string rest(p.rest);
    // The server's rows lose their flags: a digit written with one blank in front becomes 0.
    const size_t flag = FlagComma(rest);
    if (flag != std::string::npos && flag + 2 < rest.size() && IsDigit(rest[flag + 2]))
        rest.replace(flag + 1, 2, " 0");
    n.MergedRest[row] = FixedRest(rest);
    ++n.MergedCount;
    return true;
}

StationMerge::StationMerge(MergedNames& names) : names_(names)
{
    for (int row = 0; row < names.MergedCount; ++row) {
        const auto r = static_cast<size_t>(row);
        insert(byName_, nameKey(names.LastName[r], names.FirstName[r]), row);
        insert(byId_, names.IDNum[r], row);
    }
}

// A comma can stand in no field, so it parts the two names.
std::string StationMerge::nameKey(std::string_view last, std::string_view first)
{
    std::string key(last);
    key.append(",").append(first);
    return key;
}

void StationMerge::insert(Index& index, const std::string& key, int row)
{
    std::vector<int>& rows = index[key];
    rows.insert(std::lower_bound(rows.begin(), rows.end(), row), row);
}

void StationMerge::erase(Index& index, const std::string& key, int row)
{
    const auto it = index.find(key);
    if (it == index.end())
        return;
    std::vector<int>& rows = it->second;
    rows.erase(std::remove(rows.begin(), rows.end(), row), rows.end());
}

int StationMerge::firstRow(const Index& index, const std::string& key)
{
    const auto it = index.find(key);
    return it == index.end() || it->second.empty() ? -1 : it->second.front();
}

StationRow StationMerge::add(std::string_view line)
{
    MergedNames& n = names_;
    const NameLinePieces p = CutNameLine(line);
    if (p.count < 4)
        return StationRow::Passed;
    std::string rest(p.rest);
    bool update = false;
    const size_t flag = FlagComma(rest);
    if (flag != std::string::npos && flag + 1 < rest.size()) {
        const size_t next = rest.find(',', flag + 1);
        const std::string text(TrimBlanks(std::string_view(rest).substr(flag + 1, next - flag - 1)));
        if (IsNumeric(text)) {
            update = Val(text) != 0;
            rest = rest.substr(0, flag + 1) + " 0" + (next == std::string::npos ? "" : rest.substr(next));
        }
    }

    const std::string last(p.last), first(p.first), id(p.id), key = nameKey(last, first);
    const int byName = firstRow(byName_, key);
    const int byId = firstRow(byId_, id);
    // The first row in order that matches either way; on one row the name goes first.
    if (byName >= 0 && (byId < 0 || byName <= byId)) {
        if (!update)
            return StationRow::Known;
        const auto r = static_cast<size_t>(byName);
        erase(byId_, n.IDNum[r], byName);
        n.IDNum[r] = id;
        insert(byId_, id, byName);
        n.MergedRest[r] = FixedRest(rest);
        return StationRow::Updated;
    }
    if (byId >= 0) {
        if (!update)
            return StationRow::Known;
        const auto r = static_cast<size_t>(byId);
        erase(byName_, nameKey(n.LastName[r], n.FirstName[r]), byId);
        n.LastName[r] = last;
        n.FirstName[r] = first;
        insert(byName_, key, byId);
        n.MergedRest[r] = FixedRest(rest);
        return StationRow::Updated;
    }
    if (n.MergedCount > MaxEmployeeIndex)
        return StationRow::Full;
    const int row = n.MergedCount++;
    const auto r = static_cast<size_t>(row);
    n.LastName[r] = last;
    n.FirstName[r] = first;
    n.IDNum[r] = id;
    n.MergedRest[r] = FixedRest(rest);
    insert(byName_, key, row);
    insert(byId_, id, row);
    return StationRow::Added;
}

void RemoveDuplicateNames(MergedNames& n, const std::function<void(const std::string&)>& show)
{
    if (n.MergedCount < 2)
        return;
    RemoveRepeats(
        n,
        [&n](int row) {
            const auto r = static_cast<size_t>(row);
            return n.LastName[r] + "," + n.FirstName[r];
        },
        [&](int removed, int) {
            const auto r = static_cast<size_t>(removed);
            show("Removing duplicate name " + n.LastName[r] + ", " + n.FirstName[r]);
        });
    show("");
}

void RemoveDuplicateIds(MergedNames& n, const std::function<void(const std::string&)>& show)
{
    if (n.MergedCount < 2)
        return;
    const auto described = [&n](int row) {
        const auto r = static_cast<size_t>(row);
        return n.LastName[r] + ", " + n.FirstName[r] + ", " + n.IDNum[r];
    };
    RemoveRepeats(
        n, [&n](int row) { return n.IDNum[static_cast<size_t>(row)]; },
        [&](int removed, int kept) {
            show("Removing the duplicate ID employee: " + described(removed) + "\r\n and leaving \r\n" +
                 described(kept));
        });
    show("");
}

std::vector<int> SortedNameOrder(const std::vector<std::string>& lastNames, const std::vector<std::string>& firstNames,
                                 int count)
{
    std::vector<std::pair<std::string, std::string>> keys;
    keys.reserve(static_cast<size_t>(count));
    std::vector<int> order;
    order.reserve(static_cast<size_t>(count));
    for (int row = 0; row < count; ++row) {
        keys.emplace_back(UpperAscii(lastNames[static_cast<size_t>(row)]),
                          UpperAscii(firstNames[static_cast<size_t>(row)]));
        order.push_back(row);
    }
    std::stable_sort(order.begin(), order.end(),
                     [&keys](int a, int b) { return keys[static_cast<size_t>(a)] < keys[static_cast<size_t>(b)]; });
    return order;
}

std::vector<int> SortedRowsToKeep(const EmployeeTable& t)
{
    const std::vector<int> order = SortedNameOrder(t.LastName, t.FirstName, t.EmployeeCount);
    std::vector<int> kept;
    kept.reserve(order.size());
    const auto sameName = [&t](int a, int b) {
        const auto x = static_cast<size_t>(a), y = static_cast<size_t>(b);
        return UpperAscii(t.LastName[x]) == UpperAscii(t.LastName[y]) &&
               UpperAscii(t.FirstName[x]) == UpperAscii(t.FirstName[y]);
    };
    std::unordered_set<std::string> ids;
    for (size_t k = 0; k < order.size(); ++k) {
        if (k > 0 && sameName(order[k], order[k - 1]))
            continue;
        if (k > 0 && t.EmployeeCount > 3 && !ids.insert(t.IDNum[static_cast<size_t>(order[k])]).second)
            continue;
        kept.push_back(order[k]);
    }
    return kept;
}

std::string FormatMergedNameLine(const MergedNames& n, int row)
{
    const auto r = static_cast<size_t>(row);
    std::string line = n.LastName[r] + ", " + n.FirstName[r] + ", ";
    if (line.size() < 21)
        line.resize(21, ' ');
    line.append(n.IDNum[r]).append(", ").append(n.MergedRest[r]);
    return line;
}

} // namespace zandolt
