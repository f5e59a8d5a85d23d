// The station's texts by number, in the language of the process locale.
#pragma once

#include "platform/locale.h"

#include <string>

namespace zandolt {

class App;

// The text of `id` in `language`; an id outside the table gives "". A language without a block of
// its own gets the English of the United States.
std::string LoadResString(Language language, int id);
// The same in the language the App chose at its start.
std::string LoadResString(const App& app, int id);

} // namespace zandolt
