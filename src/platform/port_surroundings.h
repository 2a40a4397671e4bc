#pragma once

#include "platform/lock_file.h"
#include "platform/low_latency.h"
#include "platform/opening_notes.h"
#include "platform/time_of_day.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace tarvex::platform
{

/// Where a port and its description find the system, and what they share.
struct PortSurroundings {
    LockFolders locks = {};
    std::filesystem::path characterDevices = "/sys/dev/char"; ///< devices by their numbers
    DriverCall driver = CallDriver;
    std::function<std::string()> timeOfDay = TimeOfDay;
    std::shared_ptr<OpeningNotes> notes = std::make_shared<OpeningNotes>();
};

} // namespace tarvex::platform
