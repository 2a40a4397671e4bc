#include "unit/faults.h"

namespace tarvex::unit
{

std::vector<Reply> ApplyFaults(const std::vector<Fault>& /*faults*/, Moment /*moment*/,
                               int /*count*/, std::string_view answer)
{
    if (answer.empty()) return {};
    return {{Time{0}, std::string(answer), false}};
}

} // namespace tarvex::unit
