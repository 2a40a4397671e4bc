#include "survey/window/paper_parts.h"

#include "survey/files/report_file.h"
#include "survey/files/report_names.h"
#include "survey/model/readable.h"
#include "survey/window/window_text.h"

#include <QCryptographicHash>
#include <QStringList>

#include <algorithm>
#include <stdexcept>

namespace tarvex::survey
{

namespace
{
QString Sha256(const std::string& path)
{
    const auto file = ReadBytes(path);
    if (!file.refusal.empty()) throw std::runtime_error(Shown(path) + ": " + file.refusal);
    return QString::fromLatin1(
        QCryptographicHash::hash(
            QByteArrayView(file.bytes.data(), static_cast<qsizetype>(file.bytes.size())),
            QCryptographicHash::Sha256)
            .toHex());
}

QString RemarkOf(const PictureSubject& subject)
{
    if (subject.remark.empty()) return {};
    return QStringLiteral("Remark: ") + Text(Readable(subject.remark, Encoding::Utf8));
}

constexpr double kRemarkLetters = 10;
constexpr qsizetype kMostOfRemark = 4;
} // namespace

void DrawHead(Paper& paper, const PictureSubject& subject)
{
    paper.SetFont(15, true);
    paper.Skip(6);
    if (!subject.survey.head) {
        paper.Lines(QStringLiteral("Survey without a head report"));
        return;
    }
    const auto& head = *subject.survey.head;
    paper.Lines(Text(head.client + "  " + head.site + "  " + head.tube));
    paper.Skip(4);
    paper.SetFont(10);
    QStringList fields;
    for (const auto& field : kHeadFields)
        fields += Text(std::string(field.label) + ": " + head.*(field.value));
    paper.Lines(fields.mid(0, 5).join(QStringLiteral("     ")));
    paper.Lines(fields.mid(5).join(QStringLiteral("     ")));
}

void DrawVerdict(Paper& paper, const Verdict& verdict)
{
    constexpr std::size_t kMostReasons = 6;
    paper.Skip(4);
    paper.SetFont(12, true);
    paper.Lines(QStringLiteral("Verdict: ") + Text(verdict.Line()));
    paper.SetFont(9);
    for (std::size_t i = 0; i < std::min(verdict.findings.size(), kMostReasons); ++i)
        paper.Lines(Text(verdict.findings[i].check + ": " + verdict.findings[i].text));
    if (verdict.findings.size() > kMostReasons)
        paper.Lines(
            QStringLiteral("and %1 more reasons").arg(verdict.findings.size() - kMostReasons));
}

QStringList FileLines(const Survey& survey)
{
    QStringList lines;
    for (const auto& file : survey.files)
        lines += Text(Shown(std::filesystem::path(file).filename())) +
                 QStringLiteral("   SHA-256 ") + Sha256(file);
    return lines;
}

double FootHeight(Paper& paper, const PictureSubject& subject)
{
    paper.SetFont(kRemarkLetters);
    const auto remark = paper.Wrapped(RemarkOf(subject), kMostOfRemark).size();
    const auto lines = static_cast<std::size_t>(remark) + subject.survey.files.size() + 2;
    return kLineHeight * static_cast<double>(lines);
}

void DrawFoot(Paper& paper, const PictureSubject& subject, const QStringList& files)
{
    paper.Skip(paper.Height() - FootHeight(paper, subject) - paper.Down());
    paper.SetFont(kRemarkLetters);
    paper.Lines(RemarkOf(subject), kMostOfRemark);
    paper.SetFont(8);
    for (const auto& file : files)
        paper.Lines(file, 1);
    paper.Lines(QStringLiteral("Counts as the unit stored them; bold rows are depths that the "
                               "verdict names. Signs are those of guides 1 and 3 (2 and 4); the "
                               "reports do not say which way they lean."));
}

} // namespace tarvex::survey
