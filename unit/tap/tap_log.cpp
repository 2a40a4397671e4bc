#include "unit/tap/tap_log.h"

namespace tarvex::unit
{

void TapLog::Passed(Speaker speaker, std::string_view bytes, Time at)
{
    Write(joiner_.Take(speaker, bytes, at));
}

void TapLog::Happened(Speaker speaker, std::string_view note, Time at)
{
    Write(joiner_.Note(speaker, note, at));
}

void TapLog::WriteDue(Time now)
{
    Write(joiner_.TakeDue(now));
}

void TapLog::Finish()
{
    Write(joiner_.TakeRest());
}

void TapLog::Write(const std::vector<LogLine>& lines)
{
    for (const auto& line : lines)
        stream_ << TextOf(line) << '\n';
    if (!lines.empty()) stream_.flush();
}

} // namespace tarvex::unit
