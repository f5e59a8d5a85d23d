// GENREPORTS.TXT read into the schedule table in one of several locales (the input's first byte),
// then rendered as the editor shows it. A file that read whole must come back from its rendering
// as the same table, as far as the format keeps it: "ALL " and "no " lose their blank, a minute
// above 59 carries into the hour, and a stamp of no time is not written.
#include "automation/schedule_table.h"
#include "fuzz_station.h"

namespace {

// One slot as the file keeps it.
std::string Slot(const ScheduleEntry& e)
{
    if (!e.SchedCommentLine.empty())
        return "comment [" + e.SchedCommentLine + "]";
    const auto trimmedRight = [](std::string s) { return s.erase(s.find_last_not_of(' ') + 1); };
    const int minutes = (e.SchedTime / 100 * 60 + e.SchedTime % 100) % (24 * 60);
    std::string slot = "days " + std::to_string(e.SchedDays) + " at " + std::to_string(minutes) + " kind " +
                       std::to_string(e.SchedKind) + " group [" + trimmedRight(e.SchedWorkGroup) + "] to [" +
                       trimmedRight(e.SchedAddress) + "]";
    if (e.SchedLastDate > 0 && e.SchedLastTime.aboveZero())
        slot += " last " + std::to_string(e.SchedLastDate) + " " + e.SchedLastTime.shortTime();
    return slot;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const char* const names[] = {"en_US", "de_DE", "ko_KR", "ar_EG", "C"};
    static std::vector<qt::QtLocale> locales = QtLocales(names);
    static const auto first = std::make_unique<ScheduleTable>(), again = std::make_unique<ScheduleTable>();
    InputCursor input(data, size);
    const int which = input.pick(static_cast<int>(locales.size()));
    Locale& locale = locales[static_cast<std::size_t>(which)];
    const ScheduleReadEnd end = ReadScheduleText(input.rest(), *first, locale, 2026);
    const std::string shown = RenderSchedule(*first, locale);
    if (end != ScheduleReadEnd::Whole)
        return 0;
    if (ReadScheduleText(shown, *again, locale, 2026) != ScheduleReadEnd::Whole)
        PropertyFailed(std::string(names[which]) + ": the rendering does not read whole:\n" + shown);
    for (int i = 0; i <= std::max(first->SchedLastIndex, again->SchedLastIndex); ++i) {
        const std::string a = i <= first->SchedLastIndex ? Slot(first->Sched[static_cast<std::size_t>(i)]) : "none";
        const std::string b = i <= again->SchedLastIndex ? Slot(again->Sched[static_cast<std::size_t>(i)]) : "none";
        if (a != b)
            PropertyFailed(std::string(names[which]) + ": slot " + std::to_string(i) + " was " + a +
                           " and reads back as " + b + " from\n" + shown);
    }
    return 0;
}
