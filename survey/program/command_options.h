#pragma once

#include "survey/program/options.h"

#include <CLI/CLI.hpp>

#include <string>

namespace tarvex::survey
{

/// Texts that become values once all of them are read.
struct Texts {
    std::string from = "bottom";
    std::string separator;
    std::string decimal;
    double constant = 0;
    double base = 0;
};

/// Adds the commands with their options, which fill `options` and `texts` when they are parsed.
void AddCommands(CLI::App& app, Options& options, Texts& texts);

} // namespace tarvex::survey
