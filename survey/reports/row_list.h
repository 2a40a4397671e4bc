#pragma once

#include "survey/model/readable.h"
#include "survey/model/reading.h"
#include "survey/reports/anomalies.h"
#include "survey/reports/records.h"

#include <cstddef>
#include <map>
#include <vector>

namespace tarvex::survey
{

/// Collects the rows of one file, each depth once.
class RowList
{
public:
    /// What is odd goes into `anomalies`.
    RowList(Encoding encoding, AnomalyList& anomalies) : encoding_(encoding), anomalies_(anomalies)
    {
    }

    /// Takes a record that is no title: a row, or blanks, or an anomaly.
    void Take(const Record& record);

    /// The rows in the order of their records.
    std::vector<Row>& List() { return rows_; }

private:
    void Put(const Row& row, const Record& record);

    Encoding encoding_;
    AnomalyList& anomalies_;
    std::vector<Row> rows_;
    std::map<int, std::size_t> places_; // by depth
};

} // namespace tarvex::survey
