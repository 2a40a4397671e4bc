#include "survey/window/picture.h"

#include "survey/window/plotter.h"

#include <QFile>
#include <QSvgGenerator>

#include <qcustomplot.h>

#include <stdexcept>

namespace tarvex::survey
{

namespace
{
constexpr int kHeight = 800;
constexpr int kPageWidth = 480; // pixels of two plots side by side

void RequireWritten(bool written)
{
    if (!written) throw std::runtime_error("the file system refuses it");
}
} // namespace

std::vector<PlotPage> PagesOf(const PictureSubject& subject)
{
    std::vector<PlotPage> pages;
    for (const auto& [kind, name] : kPlotKinds)
        if (kind != PlotKind::Change || subject.base != nullptr)
            pages.push_back(PageOf(kind, {&subject.survey}, subject.base, subject.limits));
    return pages;
}

void WriteSvg(const PictureSubject& subject, const std::filesystem::path& path)
{
    const auto pages = PagesOf(subject);
    const QSize size(kPageWidth * static_cast<int>(pages.size()), kHeight);
    QCustomPlot plot;
    Draw(plot, pages, {});
    QFile file(path);
    RequireWritten(file.open(QIODevice::WriteOnly));
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(), size));
    generator.setTitle(QString::fromStdString(subject.verdict.Line()));
    QCPPainter painter;
    RequireWritten(painter.begin(&generator));
    plot.toPainter(&painter, size.width(), size.height());
    painter.end();
    RequireWritten(file.flush() && file.error() == QFile::NoError);
}

void WritePng(const PictureSubject& subject, const std::filesystem::path& path)
{
    constexpr double kScale = 2; // sharp on paper too
    const auto pages = PagesOf(subject);
    QCustomPlot plot;
    Draw(plot, pages, {});
    const auto picture =
        plot.toPixmap(kPageWidth * static_cast<int>(pages.size()), kHeight, kScale);
    QFile file(path);
    RequireWritten(file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.flush());
}

} // namespace tarvex::survey
