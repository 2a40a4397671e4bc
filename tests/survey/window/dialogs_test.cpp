#include "survey/window/window_test.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <functional>

namespace tarvex::survey
{
namespace
{

using ::testing::EndsWith;
using ::testing::HasSubstr;
namespace fs = std::filesystem;

/// Answers the dialogs of a command, one after the other, as the operator does.
class DialogsTest : public WindowTest
{
protected:
    using Answer = std::function<void(QDialog&)>;

    DialogsTest()
    {
        fs::create_directory(dati_);
        report_ = tests::Download(dati_, "4:depth=20,client=NEW");
        window_.Open({report_});
    }

    /// Triggers the entry of the menu that begins so, and gives each dialog its answer.
    void Command(const char* entry, std::vector<Answer> answers)
    {
        std::size_t next = 0;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &window_, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || next == answers.size()) return;
            answers[next++](*dialog);
        });
        look.start(10);
        for (auto* const action : window_.findChildren<QAction*>())
            if (action->text().startsWith(QLatin1String(entry))) action->trigger();
        EXPECT_EQ(next, answers.size()) << "dialogs that came";
    }

    /// Types a name into the dialog for a file.
    static Answer Name(const fs::path& path)
    {
        return [path](QDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(path.native()));
            dialog.accept();
        };
    }

    static void Accept(QDialog& dialog) { dialog.accept(); }

    /// Does something to the files, and accepts when the window has taken notice of it.
    Answer AcceptAfter(const std::function<void()>& work, const std::string& verdict)
    {
        return [this, work, verdict](QDialog& dialog) {
            work();
            EXPECT_TRUE(QTest::qWaitFor(
                [&] { return Verdict().find(verdict) != std::string::npos; }, 60'000));
            dialog.accept();
        };
    }

    std::string Status() { return window_.statusBar()->currentMessage().toStdString(); }

    const fs::path dati_ = folder_ / "dati";
    fs::path report_;
    const fs::path sheet_ = folder_ / "sheet.pdf";
};

TEST_F(DialogsTest, WriteNothingOfASurveyThatHasGoneMeanwhile)
{
    const auto gone = AcceptAfter([&] { fs::rename(dati_, folder_ / "away"); }, "No survey");
    Command("&Export", {Name(sheet_), gone});
    EXPECT_FALSE(fs::exists(sheet_));
    EXPECT_THAT(Status(), HasSubstr("-dat.dat is no longer shown"));
}

TEST_F(DialogsTest, WriteNothingOfTheOtherSurveyThatIsShownNow)
{
    const auto later = tests::Download(dati_, "4:depth=20,client=NEW,spike=12.5,nlet=09");
    window_.Open({report_, later});
    const auto gone = AcceptAfter(
        [&] {
            fs::remove(later);
            fs::remove(tests::DataReportOf(later));
        },
        "Verdict: good");
    Command("&Export", {Name(sheet_), gone});
    EXPECT_FALSE(fs::exists(sheet_));
}

TEST_F(DialogsTest, AskBeforeTheyReplaceAFileWhoseEndingWasNotTyped)
{
    tests::WriteFile(sheet_, "a letter");
    const auto typed = Name(folder_ / "sheet");
    Command("&Export", {typed, [](QDialog& question) { question.reject(); }});
    EXPECT_EQ(tests::FileBytes(sheet_), "a letter");
    const auto yes = [](QDialog& question) {
        static_cast<QMessageBox&>(question).button(QMessageBox::Yes)->click();
    };
    Command("&Export", {typed, yes, Accept});
    EXPECT_THAT(Status(), EndsWith("Written: " + sheet_.native()));
}

TEST_F(DialogsTest, TakeAnEndingInCapitals)
{
    Command("&Export", {Name(folder_ / "SHEET.PDF"), Accept});
    EXPECT_TRUE(fs::exists(folder_ / "SHEET.PDF")) << Status();
}

} // namespace
} // namespace tarvex::survey
