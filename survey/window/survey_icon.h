#pragma once

#include <QIcon>

namespace tarvex::survey
{

/// The icon of the program, as the desktop's menu shows it.
QIcon SurveyIcon();

} // namespace tarvex::survey
