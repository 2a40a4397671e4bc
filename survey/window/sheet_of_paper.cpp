#include "survey/window/picture.h"

#include "survey/files/output_file.h"
#include "survey/window/paper_parts.h"
#include "survey/window/window_text.h"

#include <QBuffer>
#include <QPdfWriter>

#include <qcustomplot.h>

#include <stdexcept>

namespace tarvex::survey
{

namespace
{
/// The table is as large as is legible, and leaves the plots half of the sheet at least; they take
/// all that it does not need.
void DrawParts(Paper& paper, const PictureSubject& subject, const QStringList& files)
{
    constexpr double kGap = 8;
    DrawHead(paper, subject);
    DrawVerdict(paper, subject.verdict);
    paper.Skip(kGap);
    const double room = paper.Height() - FootHeight(paper, subject) - paper.Down() - 2 * kGap;
    const auto form = TableFormOf(subject.survey, paper.Width(), room / 2);
    DrawPlots(paper, subject, room - form.Height());
    paper.Skip(kGap);
    DrawTable(paper, subject, form);
    DrawFoot(paper, subject, files);
}
} // namespace

void PrintSheet(const PictureSubject& subject, QPagedPaintDevice& device)
{
    const auto files = FileLines(subject.survey); // no printer begins a sheet that cannot be ended
    QCPPainter painter;
    if (!painter.begin(&device)) throw std::runtime_error("the sheet cannot be begun");
    painter.setMode(QCPPainter::pmVectorized);
    const double scale = device.logicalDpiX() / kPaperUnits;
    painter.scale(scale, scale);
    Paper paper(painter, QSizeF(device.width() / scale, device.height() / scale));
    DrawParts(paper, subject, files);
    painter.end();
}

void WritePdf(const PictureSubject& subject, const std::filesystem::path& path)
{
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&device);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageMargins(QMarginsF(12, 10, 12, 10), QPageLayout::Millimeter);
        pdf.setResolution(300);
        pdf.setTitle(Text(subject.survey.head
                              ? subject.survey.head->client + " " + subject.survey.head->site +
                                    " " + subject.survey.head->tube
                              : "Survey"));
        PrintSheet(subject, pdf);
    }
    PutBytes(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace tarvex::survey
