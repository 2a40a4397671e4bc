#include "survey/window/picture.h"

#include "survey/files/output_file.h"
#include "survey/window/plotter.h"
#include "survey/window/window_text.h"

#include <QBuffer>
#include <QSvgGenerator>

#include <qcustomplot.h>

#include <stdexcept>

namespace tarvex::survey
{

namespace
{
constexpr int kHeight = 800;
constexpr int kPageWidth = 480; // pixels of two plots side by side

void RequireDrawn(bool drawn)
{
    if (!drawn) throw std::runtime_error("the picture cannot be drawn");
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
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(), size));
    generator.setTitle(Text(subject.verdict.Line()));
    QCPPainter painter;
    RequireDrawn(painter.begin(&generator));
    plot.toPainter(&painter, size.width(), size.height());
    painter.end();
    PutBytes(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

void WritePng(const PictureSubject& subject, const std::filesystem::path& path)
{
    constexpr double kScale = 2; // sharp on paper too
    const auto pages = PagesOf(subject);
    QCustomPlot plot;
    Draw(plot, pages, {});
    const auto picture =
        plot.toPixmap(kPageWidth * static_cast<int>(pages.size()), kHeight, kScale);
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    RequireDrawn(picture.save(&device, "PNG"));
    PutBytes(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace tarvex::survey
