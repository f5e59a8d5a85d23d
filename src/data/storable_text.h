// The one rule for text that a person types into a field of the employee or settings file. Both
// separate their fields by commas and their lines by line ends, and neither can escape them.
#pragma once

#include "platform/text_encoding.h"

#include <string>

namespace zandolt {

// Makes typed text fit to be stored in a file of the given encoding: commas and line ends become
// blanks, and the text takes the file's encoding. True when a comma or a line end had to go, so
// that the window can say so.
bool MakeStorable(std::string& text, TextEncoding file);

} // namespace zandolt
