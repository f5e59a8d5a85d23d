#include "data/ini_items.h"

#include "data/number_text.h"

#include <cfloat>
#include <cmath>

namespace zandolt {

void IniItemReader::skipLineEnd()
{
    if (pos_ < text_.size() && text_[pos_] == '\r')
        ++pos_;
    if (pos_ < text_.size() && text_[pos_] == '\n')
        ++pos_;
}

bool IniItemReader::readLine(std::string& out)
{
    if (pos_ >= text_.size())
        return false;
    size_t end = text_.find_first_of("\r\n", pos_);
    if (end == std::string_view::npos)
        end = text_.size();
    out.assign(text_.substr(pos_, end - pos_));
    pos_ = end;
    skipLineEnd();
    return true;
}

bool IniItemReader::readItem(std::string& out)
{
    while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t'))
        ++pos_;
    if (pos_ >= text_.size())
        return false;

    size_t lineEnd = text_.find_first_of("\r\n", pos_);
    if (lineEnd == std::string_view::npos)
        lineEnd = text_.size();

    if (text_[pos_] == '"') {
        // A quoted value runs to its closing quote on the same line; anything between that quote
        // and the next comma is dropped.
        size_t close = text_.find('"', pos_ + 1);
        if (close == std::string_view::npos || close > lineEnd)
            close = lineEnd;
        out.assign(text_.substr(pos_ + 1, close - pos_ - 1));
        const size_t comma = text_.find(',', close);
        if (comma != std::string_view::npos && comma < lineEnd) {
            pos_ = comma + 1;
        } else {
            pos_ = lineEnd;
            skipLineEnd();
        }
        return true;
    }

    const size_t comma = text_.find(',', pos_);
    const size_t end = comma != std::string_view::npos && comma < lineEnd ? comma : lineEnd;
    std::string_view item = text_.substr(pos_, end - pos_);
    while (!item.empty() && (item.back() == ' ' || item.back() == '\t'))
        item.remove_suffix(1);
    out.assign(item);
    pos_ = end;
    if (end == comma)
        ++pos_;
    else
        skipLineEnd();
    return true;
}

bool IniItemReader::readItem(int16& out)
{
    std::string item;
    if (!readItem(item))
        return false;
    const std::optional<int16> v = RoundToInt16(Val(item));
    if (!v)
        return false;
    out = *v;
    return true;
}

bool IniItemReader::readItem(float& out)
{
    std::string item;
    if (!readItem(item))
        return false;
    const double v = Val(item);
    if (!std::isfinite(v) || std::fabs(v) > FLT_MAX)
        return false;
    out = static_cast<float>(v);
    return true;
}

} // namespace zandolt
