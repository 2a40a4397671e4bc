#pragma once

#include "program/operator.h"
#include "program/program.h"
#include "program/unit_process.h"
#include "program/windows.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>

namespace tarvex::tests
{

/// The whole program in this process, real windows and real serial port, started in a folder of its
/// own with the simulated unit at "com1". Without a unit "com1" is a link that leads nowhere, so
/// that no device of this machine is ever opened.
class ProgramTest : public ::testing::Test
{
protected:
    ProgramTest();
    ~ProgramTest() override;

    /// Starts the unit and then the program, up to its main form.
    void Start(const QStringList& unitOptions = {});

    /// Starts the program without a unit, or on the line that "com1" leads to by then.
    void StartAlone();

    /// As StartAlone, with that as the folder that it was started in, and one that it lies in.
    void StartIn(const std::filesystem::path& startFolder,
                 const std::filesystem::path& programFolder = {});

    /// The operator at the main form.
    Operator& AtPanel() { return *operator_; }

    /// Chooses a folder for the reports as the folder chooser does.
    void ChooseFolder(const std::filesystem::path& reports);

    /// Closes the main form after that time, also from inside a wait.
    void CloseAfter(int milliseconds);

    TemporaryFolder folder;
    BoxWatcher boxes;
    std::unique_ptr<UnitProcess> unit;
    std::unique_ptr<Program> program;

private:
    SeenWindows seen_;
    std::filesystem::path formerDirectory_;
    std::optional<Operator> operator_;
};

} // namespace tarvex::tests
