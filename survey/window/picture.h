#pragma once

#include "survey/checks/verdict.h"
#include "survey/model/survey.h"
#include "survey/window/plot_page.h"

#include <filesystem>
#include <string>

class QPagedPaintDevice;

namespace tarvex::survey
{

/// What an export shows: a survey, what it is held against (null for nothing) and its verdict.
struct PictureSubject {
    const Survey& survey;
    const Survey* base;
    const Verdict& verdict;
    Limits limits;
    std::string remark; ///< UTF-8
};

/// The pages that an export shows: all kinds, the change only with a base.
std::vector<PlotPage> PagesOf(const PictureSubject& subject);

/// The plots as a drawing or a picture. Both need a QApplication and throw std::runtime_error when
/// the file cannot be written.
void WriteSvg(const PictureSubject& subject, const std::filesystem::path& path);
void WritePng(const PictureSubject& subject, const std::filesystem::path& path);

/// One sheet of paper: head, verdict, plots, table, remark, and the files with their SHA-256.
void WritePdf(const PictureSubject& subject, const std::filesystem::path& path);

/// The same sheet on a printer.
void PrintSheet(const PictureSubject& subject, QPagedPaintDevice& device);

} // namespace tarvex::survey
