// What the editing windows make of the texts in their boxes: blanks trimmed, and the text forms of
// a resistance limit. A limit of 0 or below is automatic: the tester's own DIP-switch limit is in
// force, shown as "DipSw".
#pragma once

#include <optional>
#include <string>

namespace zandolt {

// The text without the blanks around it.
std::string Trimmed(const std::string& text);
// True when the text holds nothing but blanks.
bool IsBlank(const std::string& text);

inline const std::string DipSwText = "DipSw";

// The text a box shows for a limit: the number without a leading blank, or "DipSw".
std::string LimitBoxText(float limit);
// The limit that a box's text stores: the number when the whole text is one above 0; -1 for
// anything else, "DipSw", 0, a negative number or a text that is no number.
float StoredLimit(const std::string& text);
// The limit that a box's text asks for when every row is to take it: -1 for "DipSw", the number as
// typed otherwise (0 or below is automatic all the same); nothing when the text is neither.
std::optional<float> RequestedLimit(const std::string& text);

} // namespace zandolt
