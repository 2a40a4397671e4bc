#include "platform/time_of_day.h"

#include <array>
#include <ctime>

namespace tarvex::platform
{

std::string TimeOfDay()
{
    const std::time_t now = std::time(nullptr);
    std::array<char, sizeof "14:02"> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%H:%M", std::localtime(&now))};
}

} // namespace tarvex::platform
