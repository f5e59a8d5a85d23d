#include "admin/field_text.h"

#include "data/blanks.h"
#include "data/number_text.h"
#include "platform/text_encoding.h"

namespace zandolt {

std::string Trimmed(const std::string& text)
{
    return std::string(TrimBlanks(text));
}

bool IsBlank(const std::string& text)
{
    return text.find_first_not_of(' ') == std::string::npos;
}

std::string LimitBoxText(float limit)
{
    if (limit <= 0)
        return DipSwText;
    return Trimmed(NumberText(static_cast<double>(limit)));
}

float StoredLimit(const std::string& text)
{
    if (!IsNumeric(text))
        return -1;
    const auto value = static_cast<float>(Val(text));
    return value > 0 ? value : -1;
}

std::optional<float> RequestedLimit(const std::string& text)
{
    if (EqualIgnoringCase(Trimmed(text), DipSwText))
        return -1.0f;
    if (!IsNumeric(text))
        return std::nullopt;
    return static_cast<float>(Val(text));
}

} // namespace zandolt
