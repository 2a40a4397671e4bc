#include "survey/reports/anomalies.h"

#include "survey/reports/reader.h"

#include <algorithm>
#include <utility>

namespace tarvex::survey
{

void AnomalyList::Put(const Record& record, std::string text, bool harmless)
{
    if (list_.size() + 1 < kMostAnomalies)
        list_.push_back({{}, record.number, record.offset, std::move(text), harmless});
    else
        ++more_;
}

void AnomalyList::Add(const Record& record, std::string text)
{
    Put(record, std::move(text), false);
}

void AnomalyList::AddHarmless(const Record& record, std::string text)
{
    Put(record, std::move(text), true);
}

std::vector<Anomaly> AnomalyList::Take()
{
    std::ranges::stable_sort(list_, {}, &Anomaly::record);
    if (more_ > 0) {
        const auto last = list_.back();
        list_.push_back(
            {{},
             last.record,
             last.offset,
             "after this record " + std::to_string(more_) + " more are not as they should be",
             false});
        more_ = 0;
    }
    return std::exchange(list_, {});
}

} // namespace tarvex::survey
