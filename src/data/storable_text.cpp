#include "data/storable_text.h"

namespace zandolt {

bool MakeStorable(std::string& text, TextEncoding file)
{
    bool replaced = false;
    for (char& c : text)
        if (c == ',' || c == '\r' || c == '\n') {
            c = ' ';
            replaced = true;
        }
    text = InEncoding(text, file);
    return replaced;
}

} // namespace zandolt
