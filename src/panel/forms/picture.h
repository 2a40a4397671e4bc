#pragma once

#include <QIcon>
#include <QString>
#include <QSvgRenderer>
#include <QWidget>

namespace tarvex::panel
{

/// The program's own drawings.
inline constexpr const char* kProgramPicture = ":/tarvex/program.svg";
inline constexpr const char* kSurveyPicture = ":/tarvex/survey.svg";

/// The program's icon, for windows and task lists.
QIcon ProgramIcon();

/// A drawing, sharp at every scale of the screen. It keeps its proportions.
class PictureBox : public QWidget
{
public:
    /// `width` in the window's own units; the height follows from the drawing.
    PictureBox(const char* picture, int width, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSvgRenderer drawing_;
};

} // namespace tarvex::panel
