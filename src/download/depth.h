#pragma once

#include "core/header_boxes.h"

#include <string>

namespace tarvex
{

/// The depth of a header in metres, "015.5". The point is there without any digits too.
inline std::string DepthWithPoint(const HeaderTexts& header)
{
    return header[HeaderBox::DepthMetres] + "." + header[HeaderBox::DepthTenths];
}

} // namespace tarvex
