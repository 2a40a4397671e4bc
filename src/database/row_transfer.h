#pragma once

#include "core/block_header.h"
#include "database/survey_database.h"
#include "database/value.h"

#include <cstddef>
#include <string_view>

namespace tarvex
{

/// One marked row on its way into the working header. A step that fails leaves its field as it was.
class RowTransfer
{
public:
    /// Takes from the current row of the handle.
    RowTransfer(SurveyHandle& row, BlockHeader& header) : row_(row), header_(header) {}

    /// Client, site and tube reach the header whatever becomes of the checks. Null fits no field of
    /// fixed width: it leaves the field as it was.
    void TakeTube();

    /// Depth, step, guides and north, each checked. Returns the text of the box that stops the
    /// walk, or an empty one.
    std::string_view TakeChecked();

    /// The first slot never filled; without one the header's number stays.
    void TakeNextReading();

private:
    Value TubeText(std::string_view name, std::size_t width);
    std::string_view TakeDepth();
    std::string_view TakeStep();
    std::string_view TakeGuides();
    std::string_view TakeNorth();
    bool IsOneOf(std::string_view name, double first, double second);

    SurveyHandle& row_;
    BlockHeader& header_;
};

} // namespace tarvex
