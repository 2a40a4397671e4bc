#include "survey/checks/check.h"
#include "survey/files/load.h"
#include "survey/window/picture.h"
#include "survey/window/window_test.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QInputDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <regex>

namespace tarvex::survey
{
namespace
{

using ::testing::HasSubstr;

/// What pdftotext makes of a file of one sheet; `options` are its own.
std::string TextOfPdf(const std::filesystem::path& pdf, const std::string& options)
{
    const auto text = pdf.string() + ".txt";
    const auto command = "pdftotext " + options + " '" + pdf.string() + "' '" + text + "'";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("no text in " + pdf.string());
    return tests::FileBytes(text);
}

class SheetTest : public WindowTest
{
protected:
    /// The sheet of a survey that the unit is filled with so.
    std::filesystem::path PdfOf(const std::string& fill, const std::string& remark = {})
    {
        const auto survey = Load(tests::Download(folder_.Path(), fill));
        const auto verdict = Check(survey, {});
        WritePdf({survey, nullptr, verdict, {}, remark}, folder_ / "sheet.pdf");
        return folder_ / "sheet.pdf";
    }
};

/// How far down the page a word begins and ends, in points.
std::pair<double, double> PlaceOf(const std::string& boxes, const std::string& word)
{
    const std::regex place("yMin=\"([0-9.]+)\" xMax=\"[0-9.]+\" yMax=\"([0-9.]+)\">" + word + "<");
    std::smatch found;
    if (!std::regex_search(boxes, found, place)) throw std::runtime_error("no word " + word);
    return {std::stod(found[1]), std::stod(found[2])};
}

TEST_F(SheetTest, IsFilledByPlotsAndTableFromHeadToFoot)
{
    for (const char* fill : {"4:depth=20", "4:depth=100", "4:depth=120,guides=4"}) {
        const auto boxes = TextOfPdf(PdfOf(fill), "-bbox");
        const double head = PlaceOf(boxes, "Verdict:").second;
        const double table = PlaceOf(boxes, "Depth").first;
        const double foot = PlaceOf(boxes, "SHA-256").first;
        constexpr double kPage = 842;
        EXPECT_LT(head, 0.12 * kPage) << fill;
        EXPECT_GT(foot, 0.9 * kPage) << fill;
        EXPECT_GT(table - head, 0.4 * kPage) << fill << ": the plots";
        double lowest = 0;
        for (const char* depth : {"20.0", "100.0", "120.0"})
            try {
                lowest = std::max(lowest, PlaceOf(boxes, depth).second);
            } catch (const std::runtime_error&) { // of another survey
            }
        EXPECT_GT(lowest, table) << fill;
        EXPECT_LT(lowest, foot) << fill;
    }
}

TEST_F(SheetTest, WrapsALongRemarkAndEndsItAfterFourLines)
{
    std::string remark;
    for (int i = 0; i < 200; ++i)
        remark += "water" + std::to_string(i) + " ";
    const auto words = TextOfPdf(PdfOf("4:depth=20", remark), "-layout");
    EXPECT_THAT(words, HasSubstr("Remark: water0 water1"));
    EXPECT_THAT(words, HasSubstr("water40"));
    EXPECT_THAT(words, HasSubstr("\xE2\x80\xA6")); // an ellipsis
    EXPECT_THAT(words, HasSubstr("SHA-256 "));
    EXPECT_EQ(std::count(words.begin(), words.end(), '\f'), 1);
}

/// Prints from the window's menu into a file, with that remark.
void PrintInto(MainWindow& window, const std::filesystem::path& file, const QString& remark)
{
    int answered = 0;
    int tries = 0;
    std::function<void()> printIt = [&] {
        auto* const dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr && ++tries < 5000) return QTimer::singleShot(1, &window, printIt);
        ASSERT_NE(dialog, nullptr);
        dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog->printer()->setOutputFileName(PathText(file));
        dialog->printer()->setPageSize(QPageSize(QPageSize::A4));
        dialog->done(QDialog::Accepted);
        ++answered;
    };
    QTimer::singleShot(0, &window, [&] {
        auto* const dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->setTextValue(remark);
        QTimer::singleShot(0, &window, printIt);
        dialog->accept();
        ++answered;
    });
    for (auto* const action : window.findChildren<QAction*>())
        if (action->text().startsWith(QStringLiteral("&Print"))) action->trigger();
    ASSERT_EQ(answered, 2);
}

TEST_F(SheetTest, ComesOutOfAPrinterAsOutOfTheExport)
{
    window_.Open({tests::Download(folder_.Path(), "4:depth=20,spike=12.5")});
    PrintInto(window_, folder_ / "printed.pdf", QStringLiteral("Rain since Monday"));
    const auto words = TextOfPdf(folder_ / "printed.pdf", "-raw");
    EXPECT_THAT(words, HasSubstr("Verdict: read again at 12.5 m (A)"));
    EXPECT_THAT(words, HasSubstr("Remark: Rain since Monday"));
    EXPECT_EQ(words, TextOfPdf(PdfOf("4:depth=20,spike=12.5", "Rain since Monday"), "-raw"));
}

TEST_F(SheetTest, IsNotMadeWithTheSumOfAFileThatIsGone)
{
    const auto report = tests::Download(folder_.Path(), "4:depth=20");
    const auto survey = Load(report);
    std::filesystem::remove(report);
    EXPECT_THROW(WritePdf({survey, nullptr, Check(survey, {}), {}, {}}, folder_ / "sheet.pdf"),
                 std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "sheet.pdf"));
}

TEST_F(SheetTest, IsNeverPrintedOverAReport)
{
    const auto report = tests::Download(folder_.Path(), "4:depth=20,spike=12.5");
    std::filesystem::copy_file(report, folder_ / "copy.pdf");
    const auto before = tests::FileBytes(report);
    window_.Open({report});
    for (const auto& file : {report, folder_ / "copy.pdf"}) {
        PrintInto(window_, file, {});
        EXPECT_EQ(tests::FileBytes(file), before);
        EXPECT_THAT(window_.statusBar()->currentMessage().toStdString(),
                    HasSubstr(file.filename().string() + " is not written: "));
    }
}

} // namespace
} // namespace tarvex::survey
