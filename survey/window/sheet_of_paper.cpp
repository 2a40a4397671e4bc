#include "survey/window/picture.h"

#include "survey/window/paper_parts.h"
#include "survey/window/window_text.h"

#include <QFile>
#include <QPdfWriter>

#include <qcustomplot.h>

#include <stdexcept>

namespace tarvex::survey
{

void PrintSheet(const PictureSubject& subject, QPagedPaintDevice& device)
{
    QCPPainter painter;
    if (!painter.begin(&device)) throw std::runtime_error("the sheet cannot be begun");
    painter.setMode(QCPPainter::pmVectorized);
    const double scale = device.logicalDpiX() / kPaperUnits;
    painter.scale(scale, scale);
    Paper paper(painter, QSizeF(device.width() / scale, device.height() / scale));
    DrawHead(paper, subject);
    DrawVerdict(paper, subject.verdict);
    DrawPlots(paper, subject);
    DrawTable(paper, subject.survey);
    DrawFoot(paper, subject);
    painter.end();
}

void WritePdf(const PictureSubject& subject, const std::filesystem::path& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("the file system refuses it");
    {
        QPdfWriter pdf(&file);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageMargins(QMarginsF(12, 10, 12, 10), QPageLayout::Millimeter);
        pdf.setResolution(300);
        pdf.setTitle(Text(subject.survey.head
                              ? subject.survey.head->client + " " + subject.survey.head->site +
                                    " " + subject.survey.head->tube
                              : "Survey"));
        PrintSheet(subject, pdf);
    }
    if (!file.flush() || file.error() != QFile::NoError)
        throw std::runtime_error("the file system refuses it");
}

} // namespace tarvex::survey
