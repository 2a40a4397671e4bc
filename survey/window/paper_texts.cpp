#include "survey/window/paper_parts.h"

#include "survey/files/report_file.h"
#include "survey/files/report_names.h"
#include "survey/model/readable.h"
#include "survey/window/window_text.h"

#include <QCryptographicHash>
#include <QStringList>

#include <algorithm>

namespace tarvex::survey
{

namespace
{
QString Sha256(const std::string& path)
{
    const auto file = ReadBytes(path);
    return QString::fromLatin1(
        QCryptographicHash::hash(
            QByteArrayView(file.bytes.data(), static_cast<qsizetype>(file.bytes.size())),
            QCryptographicHash::Sha256)
            .toHex());
}
} // namespace

void DrawHead(Paper& paper, const PictureSubject& subject)
{
    paper.SetFont(15, true);
    paper.Skip(6);
    if (!subject.survey.head) {
        paper.Line(QStringLiteral("Survey without a head report"));
        return;
    }
    const auto& head = *subject.survey.head;
    paper.Line(Text(head.client + "  " + head.site + "  " + head.tube));
    paper.Skip(4);
    paper.SetFont(10);
    QStringList fields;
    for (const auto& field : kHeadFields)
        fields += Text(std::string(field.label) + ": " + head.*(field.value));
    paper.Line(fields.mid(0, 5).join(QStringLiteral("     ")));
    paper.Line(fields.mid(5).join(QStringLiteral("     ")));
}

void DrawVerdict(Paper& paper, const Verdict& verdict)
{
    constexpr std::size_t kMostReasons = 6;
    paper.Skip(4);
    paper.SetFont(12, true);
    paper.Line(QStringLiteral("Verdict: ") + Text(verdict.Line()));
    paper.SetFont(9);
    for (std::size_t i = 0; i < std::min(verdict.findings.size(), kMostReasons); ++i)
        paper.Line(Text(verdict.findings[i].check + ": " + verdict.findings[i].text));
    if (verdict.findings.size() > kMostReasons)
        paper.Line(
            QStringLiteral("and %1 reasons more").arg(verdict.findings.size() - kMostReasons));
}

void DrawFoot(Paper& paper, const PictureSubject& subject)
{
    paper.Skip(paper.Height() - kFootHeight - paper.Down());
    paper.SetFont(10);
    if (!subject.remark.empty())
        paper.Line(QStringLiteral("Remark: ") + Text(Readable(subject.remark, Encoding::Utf8)));
    paper.SetFont(8);
    for (const auto& file : subject.survey.files)
        paper.Line(Text(Shown(std::filesystem::path(file).filename())) +
                   QStringLiteral("   SHA-256 ") + Sha256(file));
    paper.Line(QStringLiteral("Counts as the unit stored them. Signs are those of guides 1 and 3 "
                              "(2 and 4); the reports do not say which way they lean."));
}

} // namespace tarvex::survey
