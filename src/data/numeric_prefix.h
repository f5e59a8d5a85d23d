// The numeric prefix of a field (Val) without building a text first. The names file holds
// thousands of plain numbers like "010.50" and "-1"; those are read here directly, and anything
// less plain (blanks inside the number, an exponent, very many digits) is left to Val.
#pragma once

#include <string_view>

namespace zandolt {

double NumericPrefix(std::string_view text);

} // namespace zandolt
