#include "survey/program/pictures.h"

#include "survey/files/load.h"
#include "survey/files/output_file.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/window/picture.h"

#include <QApplication>

namespace tarvex::survey
{

namespace
{
std::optional<Survey> BaseOf(const Options& options, const Survey& survey)
{
    if (options.base.empty()) return std::nullopt;
    auto base = Load(options.base);
    const auto refusal = Compare(base, survey, SumFrom::Bottom).refusal;
    if (!refusal.empty()) throw Refusal(Shown(options.base) + " is of another tube: " + refusal);
    return base;
}
} // namespace

void WritePictures(const Options& options, const Survey& survey, const Verdict& verdict)
{
    // A picture needs no display, and looks the same on every machine.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the toolkit has to say of the machine is nothing to the operator; failures are thrown.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    int count = 1;
    char name[] = "tarvex-survey";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);

    const auto base = BaseOf(options, survey);
    const PictureSubject subject{survey, base ? &*base : nullptr, verdict, options.limits,
                                 options.remark};
    const auto write = [&](const std::string& path, auto writer) {
        if (!path.empty())
            WriteOutput(path, {survey.files.begin(), survey.files.end()},
                        [&](const std::filesystem::path& part) { writer(subject, part); });
    };
    write(options.exports.svg, WriteSvg);
    write(options.exports.png, WritePng);
    write(options.exports.pdf, WritePdf);
}

} // namespace tarvex::survey
