// One line of the employee file read into a row, its fields taken by the fast splitter, which must
// agree field by field with the plain rule it stands for.
#include "data/dates.h"
#include "data/names_line.h"
#include "fuzz_station.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static qt::QtLocale locale(QLocale(QLocale::English, QLocale::UnitedStates));
    static const auto table = std::make_unique<EmployeeTable>();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string_view line = text.substr(0, text.find('\n'));
    std::string_view rest = LineText(line);
    LineFields fields(text);
    for (RuleField rule{{}, false}; !rule.last;) {
        rule = TakeField(rest);
        if (const LineField f = fields.next(); f.text != rule.text || f.last != rule.last)
            PropertyFailed("a field is [" + std::string(f.text) + "] (last " + std::to_string(f.last) +
                           "), the rule gives [" + std::string(rule.text) + "]");
    }
    if (const LineField after = fields.next();
        !fields.done() || !after.last || !after.text.empty() || fields.lineEnd() != line.data() + line.size())
        PropertyFailed("the line does not end at its line feed or at the end of the text");
    LineFields again(text);
    int row = -1;
    ReadNameLine(again, *table, row, NameLineContext{DateSerial(2026, 6, 15), 2026, &locale});
    return 0;
}
