#pragma once

#include "panel/widgets/drawing.h"

#include <QIcon>
#include <QWidget>

namespace tarvex::panel
{

/// The program's own drawings.
inline constexpr const char* kProgramPicture = ":/tarvex/program.svg";
inline constexpr const char* kSurveyPicture = ":/tarvex/survey.svg";

/// The program's icon, for windows and task lists.
QIcon ProgramIcon();

/// A drawing, sharp at every scale of the screen. It is read when it is first painted, so that no
/// window waits for it.
class PictureBox : public QWidget
{
public:
    /// `size` in the window's own units, in the proportions of the drawing.
    PictureBox(const char* picture, QSize size, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const char* picture_;
    Drawing drawing_;
};

} // namespace tarvex::panel
