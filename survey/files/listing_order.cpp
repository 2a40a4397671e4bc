#include "survey/files/listing_order.h"

#include "survey/model/number_text.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace tarvex::survey
{

namespace
{
/// "16/11/26" as "26/11/16", which sorts.
std::string SortableDate(const std::string& date)
{
    constexpr std::size_t kWidth = 8;
    if (date.size() != kWidth) return date;
    return date.substr(6, 2) + date.substr(2, 4) + date.substr(0, 2);
}

auto OrderOf(const ListedSurvey& listed)
{
    const auto& head = listed.head;
    return std::tuple(head.client, head.site, head.tube, WholeNumber(head.readout).value_or(-1),
                      head.readout, SortableDate(head.date), head.time, listed.path);
}
} // namespace

/// The keys are made once: comparing makes many more of them than there are surveys.
std::vector<ListedSurvey> Sorted(std::vector<ListedSurvey> surveys)
{
    using Key = decltype(OrderOf(ListedSurvey()));
    std::vector<std::pair<Key, std::size_t>> order;
    order.reserve(surveys.size());
    for (const auto& listed : surveys)
        order.emplace_back(OrderOf(listed), order.size());
    std::ranges::sort(order);
    std::vector<ListedSurvey> sorted;
    sorted.reserve(surveys.size());
    for (const auto& [key, place] : order)
        sorted.push_back(std::move(surveys[place]));
    return sorted;
}

} // namespace tarvex::survey
