#pragma once

#include "faults/chance.h"
#include "faults/checks.h"
#include "faults/manager.h"
#include "faults/survey_checks.h"
#include "support/header_table.h"
#include "unit/running_unit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// The whole program at a desk of its own, with a unit that is a process too and outlives it.
class FaultTest : public ::testing::Test
{
protected:
    FaultTest();
    ~FaultTest() override;

    /// A unit with the three surveys of the demonstration, as fast as it can, at "com1".
    void StartUnit(const std::vector<std::string>& options = {});

    /// The moment after which a manager is killed that has just begun what takes so long.
    std::chrono::microseconds Moment(std::chrono::microseconds whole);

    /// Kills a manager that has just begun what takes so long, at some moment of it.
    void KillInside(Manager& manager, std::chrono::microseconds whole);

    /// A manager starts on what there is, with its thirty headers, reads one from the unit and
    /// ends. `client` is the one in block 2 of the unit, which no test changes but with a header
    /// never used.
    void ExpectNextStartWorks();

    /// Counts what has been done to a manager; printed at the end of the test.
    void Note(const std::string& what, int count = 1) { notes_[what] += count; }

    /// A table never used, and what Read All Blocks makes of it at the unit's start.
    static std::vector<std::string> DefaultTable();
    static std::vector<std::string> DemoTable();

    const Sandbox desk;
    Chance chance;
    std::optional<unit::RunningUnit> unit;

private:
    ::testing::ScopedTrace seed_;
    std::map<std::string, int> notes_;
};

} // namespace tarvex::tests
