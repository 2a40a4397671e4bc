#pragma once

#include "survey/window/paper.h"
#include "survey/window/picture.h"

namespace tarvex::survey
{

/// The parts of a sheet from the top down, each below what is there already.
void DrawHead(Paper& paper, const PictureSubject& subject);
void DrawVerdict(Paper& paper, const Verdict& verdict);

/// The plots over the whole width.
void DrawPlots(Paper& paper, const PictureSubject& subject);

/// The table in as many blocks side by side as fit, as large as the room above the foot lets it be.
void DrawTable(Paper& paper, const Survey& survey);

/// The remark, and the files with their SHA-256; at the bottom.
void DrawFoot(Paper& paper, const PictureSubject& subject);

} // namespace tarvex::survey
