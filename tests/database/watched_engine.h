#pragma once

#include "database/record_set.h"

#include <functional>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// An engine that writes down what is asked of another one, in order, and can be made to fail.
class WatchedEngine : public SurveyEngine
{
public:
    explicit WatchedEngine(SurveyEngine& inner) : inner_(inner) {}

    /// Every operation by its name, with a field's name after it: "OpenTable", "MoveFirst",
    /// "Fields b", "SetField nlet".
    std::vector<std::string> calls;

    /// Asked before each operation, with its number (from 1) and its name: true makes it fail
    /// without being done.
    std::function<bool(int, const std::string&)> fails = [](int, const std::string&) {
        return false;
    };

    std::unique_ptr<RecordSet> OpenTable(const std::filesystem::path& file) override;

    /// Writes a call down, and raises its failure.
    void Note(std::string call);

private:
    SurveyEngine& inner_;
};

} // namespace tarvex::tests
