#pragma once

#include "program/operator.h"

#include <QObject>
#include <QStringList>

#include <ostream>
#include <span>

namespace tarvex::tests
{

/// A window of the program that takes keys, and how its operator brings it up from the panel.
struct ProgramWindow {
    const char* name;
    void (*open)(Operator& panel); ///< works with the mouse
};

/// All of them, the main form first.
std::span<const ProgramWindow> ProgramWindows();

/// The name of a window that a test makes itself.
constexpr const char* kForeignWindow = "ofTheTest";

/// Remembers every window and box that comes up while it lives.
class SeenWindows : public QObject
{
public:
    SeenWindows();

    /// Those that nobody has listed: neither among the ProgramWindows, nor as a box of the toolkit
    /// whose keys are its own, nor as a window that takes none.
    QStringList Unlisted() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QStringList names_;
};

inline void PrintTo(const ProgramWindow& window, std::ostream* out)
{
    *out << window.name;
}

} // namespace tarvex::tests
