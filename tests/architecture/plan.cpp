#include "architecture/plan.h"

#include <string>

namespace tarvex::tests
{

const std::vector<Room>& Plan()
{
    static const std::vector<Room> plan = {
        {"src/core", {}},
        {"src/link", {"core/"}},
        {"src/blocks", {"core/", "link/"}},
        {"src/download", {"core/", "link/"}},
        {"src/settings", {"core/", "link/"}},
        {"src/database", {"core/"}},
        {"src/panel/rules", {"core/"}}, // rules over the panel's boxes, without any window
        {"src/panel/widgets", {"core/", "platform/text/"}, true},
        {"src/panel/window",
         {"core/", "link/", "blocks/", "download/", "settings/", "database/", "panel/rules/",
          "panel/widgets/", "platform/text/"},
         true},
        {"src/panel/dialogs",
         {"core/", "link/", "settings/", "panel/rules/", "panel/widgets/", "panel/window/"},
         true},
        {"src/panel/forms",
         {"core/", "link/", "panel/widgets/", "panel/window/", "panel/dialogs/", "platform/text/"},
         true},
        {"src/panel/survey", {"core/", "database/", "panel/widgets/"}, true},
        {"src/platform/text", {"core/"}, true}, // the program's texts as the toolkit's
        {"src/platform", {"core/", "platform/text/"}, true},
        {"src/platform/sqlite",
         {"core/", "database/criterion.h", "database/record_set.h", "database/survey_fields.h",
          "database/value.h"},
         true},
        {"src/program",
         {"core/", "link/", "blocks/", "download/", "settings/", "database/", "panel/widgets/",
          "panel/window/", "panel/forms/", "panel/survey/", "platform/", "platform/sqlite/",
          "platform/text/"},
         true},
        {"unit", {}, true},
        {"survey/model", {}},
        {"survey/reports", {"survey/model/"}},
        {"survey/files", {"survey/model/", "survey/reports/"}},
        {"survey/figures", {"survey/model/"}},
        {"survey/checks", {"survey/model/", "survey/figures/"}},
        {"survey/comparison", {"survey/model/", "survey/figures/"}},
        {"survey/export",
         {"survey/model/", "survey/files/", "survey/figures/", "survey/checks/",
          "survey/comparison/"}},
        {"survey/window",
         {"survey/model/", "survey/files/", "survey/figures/", "survey/checks/",
          "survey/comparison/", "survey/export/"},
         true},
        {"survey/program",
         {"survey/model/", "survey/files/", "survey/checks/", "survey/comparison/",
          "survey/export/", "survey/window/"},
         true},
    };
    return plan;
}

const std::vector<Door>& Doors()
{
    static const std::vector<Door> doors = {
        {"survey/files/report_file.", kSystem},
        {"survey/files/held_folder.", kSystem},
        {"survey/export/json", "nlohmann/json.hpp"},
        {"survey/export/xlsx", "xlsxwriter.h"},
    };
    return doors;
}

const Room* RoomOf(std::string_view path)
{
    const Room* innermost = nullptr;
    for (const Room& room : Plan())
        if (path.starts_with(std::string(room.folder) + "/") &&
            (innermost == nullptr || innermost->folder.size() < room.folder.size()))
            innermost = &room;
    return innermost;
}

} // namespace tarvex::tests
