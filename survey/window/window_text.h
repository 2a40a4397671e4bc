#pragma once

#include <QString>

#include <string>

namespace tarvex::survey
{

/// A text of the survey, which is UTF-8, as the window shows it.
inline QString Text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

/// The way back.
inline std::string Bytes(const QString& text)
{
    return text.toStdString();
}

} // namespace tarvex::survey
