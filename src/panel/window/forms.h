#pragma once

namespace tarvex
{

/// The windows other than the main one, as its commands reach them. Every call returns at once; a
/// form that is open already is raised.
class Forms
{
public:
    virtual ~Forms() = default;

    /// `aboutus`.
    virtual void ShowAbout() = 0;

    /// `Form6`, which sets the `reportFolder` and enables the panel's `command3d1`.
    virtual void ShowFolderChooser() = 0;

    /// The manual, in whatever the desktop opens a web address with; no window of ours.
    virtual void OpenManual() = 0;

    /// `Form1`, "Serial port RS232".
    virtual void ShowPortDialog() = 0;

    /// `Form2`, "Set Clock".
    virtual void ShowClockDialog() = 0;

    /// `Form3`, "Delay for Automatic Cycle".
    virtual void ShowDelayDialog() = 0;

    /// `Form4`, the survey database's panel.
    virtual void ShowDatabasePanel() = 0;
};

} // namespace tarvex
