#pragma once

#include "survey/model/survey.h"
#include "survey/reports/records.h"

#include <string>
#include <vector>

namespace tarvex::survey
{

/// Collects what is odd in one file; a hostile file does not make it grow without bound.
class AnomalyList
{
public:
    /// A value is lost or in doubt.
    void Add(const Record& record, std::string text);

    /// Nothing is lost.
    void AddHarmless(const Record& record, std::string text);

    /// Takes the list, in order of the records; its last entry says how many more there were.
    std::vector<Anomaly> Take();

private:
    void Put(const Record& record, std::string text, bool harmless);

    std::vector<Anomaly> list_;
    std::size_t more_ = 0;
};

} // namespace tarvex::survey
