#include "survey/window/picture.h"

#include "survey/load.h"
#include "survey/report_file.h"
#include "survey/sheet.h"
#include "survey/text.h"
#include "survey/window/plotter.h"

#include <QCryptographicHash>
#include <QFile>
#include <QPdfWriter>

#include <qcustomplot.h>

#include <algorithm>
#include <stdexcept>

namespace tarvex::survey
{

namespace
{
// All lengths are in 1/96 inch, as a screen has them.
constexpr double kUnits = 96;
constexpr double kPlotHeight = 500;
constexpr double kFootHeight = 90;
constexpr double kLine = 13;

QString Text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

/// A painter that goes down one sheet.
class PaperSheet
{
public:
    PaperSheet(QCPPainter& painter, QSizeF size) : painter_(painter), size_(size) {}

    void SetFont(double pixels, bool bold = false)
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(100); // whole numbers only, so the painter scales it
        font.setBold(bold);
        painter_.setFont(font);
        scale_ = pixels / 100;
    }
    void TextAt(double x, double y, const QString& text)
    {
        painter_.save();
        painter_.translate(x, y);
        painter_.scale(scale_, scale_);
        painter_.drawText(QPointF(0, 0), text);
        painter_.restore();
    }
    void Line(const QString& text)
    {
        down_ += kLine;
        TextAt(0, down_, text);
    }
    void Skip(double height) { down_ += height; }
    double Down() const { return down_; }
    double Width() const { return size_.width(); }
    double Height() const { return size_.height(); }
    QCPPainter& Painter() { return painter_; }

private:
    QCPPainter& painter_;
    QSizeF size_;
    double scale_ = 1;
    double down_ = 0;
};

void DrawHead(PaperSheet& sheet, const PictureSubject& subject)
{
    sheet.SetFont(15, true);
    sheet.Skip(6);
    if (!subject.survey.head) {
        sheet.Line(QStringLiteral("Survey without a head report"));
        return;
    }
    const auto& head = *subject.survey.head;
    sheet.Line(Text(head.client + "  " + head.site + "  " + head.tube));
    sheet.Skip(4);
    sheet.SetFont(10);
    QStringList fields;
    for (const auto& field : kHeadFields)
        fields += Text(std::string(field.label) + ": " + head.*(field.value));
    sheet.Line(fields.mid(0, 5).join(QStringLiteral("     ")));
    sheet.Line(fields.mid(5).join(QStringLiteral("     ")));
}

void DrawVerdict(PaperSheet& sheet, const Verdict& verdict)
{
    constexpr std::size_t kMostReasons = 6;
    sheet.Skip(4);
    sheet.SetFont(12, true);
    sheet.Line(QStringLiteral("Verdict: ") + Text(verdict.Line()));
    sheet.SetFont(9);
    for (std::size_t i = 0; i < std::min(verdict.findings.size(), kMostReasons); ++i)
        sheet.Line(Text(verdict.findings[i].check + ": " + verdict.findings[i].text));
    if (verdict.findings.size() > kMostReasons)
        sheet.Line(
            QStringLiteral("and %1 reasons more").arg(verdict.findings.size() - kMostReasons));
}

void DrawPlots(PaperSheet& sheet, const PictureSubject& subject)
{
    QCustomPlot plot;
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    plot.setFont(font);
    Draw(plot, PagesOf(subject), {}, 2);
    for (auto* const rect : plot.axisRects())
        for (auto* const axis : rect->axes()) {
            axis->setLabelFont(font);
            axis->setTickLabelFont(font);
        }
    sheet.Skip(8);
    auto& painter = sheet.Painter();
    painter.save();
    // Drawn larger and then made smaller, so that lines and letters are fine enough for paper.
    constexpr double kFiner = 1.6;
    painter.translate(0, sheet.Down());
    painter.scale(1 / kFiner, 1 / kFiner);
    plot.toPainter(&painter, static_cast<int>(sheet.Width() * kFiner),
                   static_cast<int>(kPlotHeight * kFiner));
    painter.restore();
    sheet.Skip(kPlotHeight + 4);
}

/// The table in as many blocks side by side as fit, as large as the room lets it be.
void DrawTable(PaperSheet& sheet, const Survey& survey)
{
    constexpr double kCell = 36;    // at a font of 8
    constexpr double kLargest = 10; // height of a row
    const auto columns = ColumnsOf(survey) + 1;
    const double room = sheet.Height() - kFootHeight - sheet.Down() - kLine;
    const auto blocks = static_cast<std::size_t>(
        std::max(1.0, std::floor(sheet.Width() / (kCell * static_cast<double>(columns)))));
    const auto rows = (survey.rows.size() + blocks - 1) / blocks + 1;
    const double height =
        std::min(kLargest, room / static_cast<double>(std::max<std::size_t>(rows, 1)));
    const auto table = SheetOf(survey);
    sheet.SetFont(std::min(8.0, height * 0.9));
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const auto block = i / (rows - 1);
        const auto line = i % (rows - 1);
        const double left = static_cast<double>(block) * kCell * static_cast<double>(columns);
        for (std::size_t column = 0; column < columns; ++column) {
            const double x = left + kCell * static_cast<double>(column);
            if (line == 0) sheet.TextAt(x, sheet.Down() + height, Text(table.titles[column]));
            const auto& cell = table.rows[i][column];
            const double y = sheet.Down() + height * static_cast<double>(line + 2);
            sheet.TextAt(x, y,
                         cell.value ? QString::number(*cell.value, 'f', cell.decimals)
                                    : QStringLiteral("-"));
        }
    }
}

QString Sha256(const std::string& path)
{
    const auto file = ReadBytes(path);
    return QString::fromLatin1(
        QCryptographicHash::hash(
            QByteArrayView(file.bytes.data(), static_cast<qsizetype>(file.bytes.size())),
            QCryptographicHash::Sha256)
            .toHex());
}

void DrawFoot(PaperSheet& sheet, const PictureSubject& subject)
{
    sheet.Skip(sheet.Height() - kFootHeight - sheet.Down());
    sheet.SetFont(10);
    if (!subject.remark.empty())
        sheet.Line(QStringLiteral("Remark: ") + Text(Readable(subject.remark, Encoding::Utf8)));
    sheet.SetFont(8);
    for (const auto& file : subject.survey.files)
        sheet.Line(Text(Shown(std::filesystem::path(file).filename())) +
                   QStringLiteral("   SHA-256 ") + Sha256(file));
    sheet.Line(QStringLiteral("Counts as the unit stored them. Signs are those of guides 1 and 3 "
                              "(2 and 4); the reports do not say which way they lean."));
}
} // namespace

void PrintSheet(const PictureSubject& subject, QPagedPaintDevice& device)
{
    QCPPainter painter;
    if (!painter.begin(&device)) throw std::runtime_error("the sheet cannot be begun");
    painter.setMode(QCPPainter::pmVectorized);
    const double scale = device.logicalDpiX() / kUnits;
    painter.scale(scale, scale);
    PaperSheet sheet(painter, QSizeF(device.width() / scale, device.height() / scale));
    DrawHead(sheet, subject);
    DrawVerdict(sheet, subject.verdict);
    DrawPlots(sheet, subject);
    DrawTable(sheet, subject.survey);
    DrawFoot(sheet, subject);
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
