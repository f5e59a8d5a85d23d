#include "admin/field_text.h"

#include "data/number_text.h"

namespace zandolt {

namespace {

bool sameTextIgnoringCase(const std::string& a, const std::string& b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
        if (fold(a[i]) != fold(b[i]))
            return false;
    }
    return true;
}

} // namespace

std::string Trimmed(const std::string& text)
{
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool IsBlank(const std::string& text)
{
    return text.find_first_not_of(' ') == std::string::npos;
}

bool CommasToBlanks(std::string& text)
{
    bool found = false;
    for (char& c : text)
        if (c == ',') {
            c = ' ';
            found = true;
        }
    return found;
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
    if (sameTextIgnoringCase(Trimmed(text), DipSwText))
        return -1.0f;
    if (!IsNumeric(text))
        return std::nullopt;
    return static_cast<float>(Val(text));
}

} // namespace zandolt
