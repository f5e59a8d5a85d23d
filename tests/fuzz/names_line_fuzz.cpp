// One line of the employee file read into a row. Its fields are also taken by the plain rule that
// the fast splitter stands for, and the two must agree field by field.
#include "data/dates.h"
#include "data/names_line.h"
#include "field_rule.h"
#include "fuzz_station.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace zandolt::fuzz {
namespace {

// The fast splitter against the plain rule, on the first line of the text.
void CheckSplit(std::string_view text)
{
    std::string_view rest = LineText(text.substr(0, text.find('\n')));
    LineFields fields(text);
    for (int n = 0;; ++n) {
        const RuleField expected = TakeField(rest);
        const LineField f = fields.next();
        if (f.text != expected.text || f.last != expected.last)
            PropertyFailed("field " + std::to_string(n) + " is [" + std::string(f.text) + "] (last " +
                           std::to_string(f.last) + "), the rule gives [" + std::string(expected.text) + "]");
        if (expected.last)
            break;
    }
    const size_t feed = text.find('\n');
    const char* const end = text.data() + (feed == std::string_view::npos ? text.size() : feed);
    const LineField after = fields.next();
    if (!fields.done() || !after.last || !after.text.empty() || fields.lineEnd() != end)
        PropertyFailed("the line does not end at its line feed or at the end of the text");
}

} // namespace
} // namespace zandolt::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zandolt;
    static qt::QtLocale locale(QLocale(QLocale::English, QLocale::UnitedStates));
    static const auto table = std::make_unique<EmployeeTable>();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    fuzz::CheckSplit(text);

    LineFields fields(text);
    int row = -1;
    const NameLineContext context{DateSerial(2026, 6, 15), 2026, &locale};
    ReadNameLine(fields, *table, row, context);
    return 0;
}
