#pragma once

#include "core/control_state.h"
#include "core/exchange_progress.h"
#include "core/header_boxes.h"

namespace tarvex
{

/// The six boxes of the unit's clock, two digits each.
struct ClockBoxes {
    TextBox day{2};
    TextBox month{2};
    TextBox year{2};
    TextBox hours{2};
    TextBox minutes{2};
    TextBox seconds{2};
};

/// What is shown while an exchange with the unit runs: a text on its ground, which fills.
struct WaitIndicator {
    Control label{false, true};
    Control ground{false, true};
    ExchangeProgress progress; ///< of the operations that show the indicator

    /// Show and hide the text and its ground together.
    void Show();
    void Hide();
};

/// The state of the main form. Its boxes are no view of the header table but working state of their
/// own: commands read and write them, and frames are built from them.
///
/// Everything here has the name of what it is for. The names of the controls on the screen are
/// given in the tables that tie the two together: those of the header and the calibration in
/// core/header_boxes.h, all others in the window's table of controls.
struct ControlPanel {
    // The header of one block.
    TextBox blockNumber{2, "01"};
    HeaderBoxes header;
    TextBox headerFile = TextBox::Hidden(); ///< the header file's path

    /// Carried out of sight, and out of the operator's reach.
    CalibrationBoxes calibration;

    // The download.
    TextBox downloadBlock{2, "01"};
    TextBox reportFile;  ///< the report file in work
    TextBox readAddress; ///< the address of the page being read
    Picture drawing;

    // The unit's settings.
    ClockBoxes clock;
    TextBox cycleDelay{6, "3"};
    OptionGroup portOptions; ///< "Com 1" to "Com 4"

    WaitIndicator waitIndicator;

    // The frames of the three tabs.
    Control headerFrame;
    Control downloadFrame{false, true};
    Control setupFrame{false, true};

    // Buttons that commands enable or disable, or that start hidden.
    Control previousRecordButton{true, false};
    Control nextRecordButton{true, false};
    Control setAllButton;
    Control readBlockButton;
    Control setBlockButton;
    Control writeCalibrationButton{false, true};
    Control resetBlockButton;
    Control downloadButton{true, false};
    Control computeGainButton{false, true};
    Control databaseButton{false, true};
    Control enableDownloadButton{false, true};
    Control openHeaderFileButton{false, true};
    Control defaultHeaderFileButton{false, true};
    Control startClockButton{false, true};
};

} // namespace tarvex
