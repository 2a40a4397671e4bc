#include "survey/files/listing_text.h"

#include "survey/files/report_names.h"

namespace tarvex::survey
{

std::string TextOf(const std::vector<ListedSurvey>& surveys)
{
    std::string text;
    const Head* before = nullptr;
    for (const auto& listed : surveys) {
        const auto& head = listed.head;
        const bool client = before == nullptr || before->client != head.client;
        const bool site = client || before->site != head.site;
        const bool tube = site || before->tube != head.tube;
        if (client) text += head.client + "\n";
        if (site) text += "  " + head.site + "\n";
        if (tube) text += "    " + head.tube + "\n";
        text += "      " + head.readout + "  " + head.date + "  " + head.time + "  " + head.depth +
                " m  " + Shown(listed.path) +
                (listed.hasData ? "" : "  (without its data report)") +
                (listed.hasHead ? "" : "  (without its head report)") + "\n";
        before = &head;
    }
    return text;
}

} // namespace tarvex::survey
