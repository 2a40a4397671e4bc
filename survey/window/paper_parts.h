#pragma once

#include "survey/window/paper.h"
#include "survey/window/picture.h"

namespace tarvex::survey
{

/// The parts of a sheet from the top down, each below what is there already.
void DrawHead(Paper& paper, const PictureSubject& subject);
void DrawVerdict(Paper& paper, const Verdict& verdict);

/// The plots over the whole width: a column for each kind, A above B.
void DrawPlots(Paper& paper, const PictureSubject& subject, double height);

/// How the table of a survey is set: in blocks side by side, as large as its room lets it be.
struct TableForm {
    std::size_t columns; ///< of a block
    std::size_t rows;    ///< of a block, without its titles
    double letters;      ///< their height
    double cell;         ///< width of a column
    double line;         ///< height of a row
    double Height() const { return line * static_cast<double>(rows + 1); }
};

/// The form of the table of a survey on a sheet of that width, `height` high at most.
TableForm TableFormOf(const Survey& survey, double width, double height);

/// The table; the rows of depths that the verdict names are bold.
void DrawTable(Paper& paper, const PictureSubject& subject, const TableForm& form);

/// The height of what DrawFoot draws.
double FootHeight(Paper& paper, const PictureSubject& subject);

/// The names of a survey's files with their SHA-256. Throws std::runtime_error for one that can no
/// longer be read.
QStringList FileLines(const Survey& survey);

/// The remark, and those lines; at the bottom.
void DrawFoot(Paper& paper, const PictureSubject& subject, const QStringList& files);

} // namespace tarvex::survey
