#include "program/line_programs.h"
#include "program/line_session.h"
#include "program/operator_steps.h"
#include "program/program_test.h"
#include "program/session_outcome.h"

#include <QCoreApplication>

#include <optional>

namespace tarvex::tests
{
namespace
{

constexpr int kLongestSession = 60'000; // milliseconds; the longest takes some 13 s

/// Instead of playing: writes the records and their outcomes anew.
bool Recording()
{
    return QCoreApplication::arguments().contains("--record");
}

/// A session of an operator at the whole program, on a line that answers as it once did.
class LinesTest : public ProgramTest, public ::testing::WithParamInterface<std::filesystem::path>
{
protected:
    void StartSession()
    {
        if (Recording()) {
            line_ = std::make_unique<TappedLine>(session.unitOptions, farEnd_.Path(),
                                                 session.Record(), folder / "com1");
        } else {
            line_ = std::make_unique<ReplayedLine>(session.Record(), folder / "com1");
        }
        StartAlone();
        steps_.emplace(program->MainForm());
        CloseWhenItTakesTooLong();
        panelBefore_ = StateOf(*program->MainForm());
        folderBefore_ = StateOf(folder.Path());
    }

    void TakeStep(const std::string& step)
    {
        if (step == "close at the end") return CloseAtTheEnd();
        steps_->Take(step);
    }

    /// The address of the page is shown a little after it has changed.
    bool ShowsItsAddress()
    {
        const auto& address = program->PanelModel().readAddress;
        return WaitFor([&] { return AtPanel().Text("Text17").toStdString() == address.Text(); });
    }

    /// What came of it. The line is ended by then.
    std::string Outcome(const QStringList& differences)
    {
        EXPECT_TRUE(ShowsItsAddress());
        std::string text =
            program->End().Ended() ? "ended " + std::to_string(program->End().Status()) + "\n" : "";
        for (const QString& box : boxes.texts)
            text += "box " + box.toStdString() + "\n";
        for (const QString& difference : differences)
            text += "line " + difference.toStdString() + "\n";
        return WithoutTheFolder(text + ChangesOnPanel(panelBefore_, StateOf(*program->MainForm())) +
                                ChangesInFolder(folderBefore_, StateOf(folder.Path())));
    }

    QStringList EndLine() { return line_->Finish(); }

    const LineSession session{GetParam()};

private:
    /// The test's own folder has another name each time.
    std::string WithoutTheFolder(std::string text) const
    {
        const std::string path = folder.Path().string();
        for (auto at = text.find(path); at != std::string::npos; at = text.find(path))
            text.replace(at, path.size(), "FOLDER");
        return text;
    }

    /// A wait that the record does not end has no limit of its own.
    void CloseWhenItTakesTooLong()
    {
        QTimer::singleShot(kLongestSession, program->MainForm(), [this] {
            ADD_FAILURE() << "the session has not ended within a minute";
            program->MainForm()->close();
        });
    }

    /// The last bytes get the time to reach the manager, who is then waiting without limit.
    void CloseAtTheEnd()
    {
        QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] {
            if (!line_->AtTheEnd()) return;
            watch_.stop();
            CloseAfter(300);
        });
        watch_.start(20);
    }

    TemporaryFolder farEnd_;
    std::unique_ptr<LinePrograms> line_;
    std::optional<OperatorSteps> steps_;
    QTimer watch_;
    PanelState panelBefore_;
    FolderState folderBefore_;
};

TEST_P(LinesTest, EndsAsItDidWhenItWasRecorded)
{
    StartSession();
    for (const std::string& step : session.steps)
        TakeStep(step);
    const auto differences = EndLine();
    const auto outcome = Outcome(differences);

    if (Recording()) session.Keep(outcome);
    EXPECT_EQ(outcome, LineSession(GetParam()).outcome);
}

std::string InOneWord(const ::testing::TestParamInfo<std::filesystem::path>& session)
{
    std::string name = session.param.stem().string();
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Kept, LinesTest, ::testing::ValuesIn(SessionsIn(TARVEX_LINES)), InOneWord);

TEST(KeptLines, AreFortyAtLeastAndEachHasItsRecord)
{
    const auto sessions = SessionsIn(TARVEX_LINES);
    EXPECT_GE(sessions.size(), 40U);
    for (const auto& session : sessions)
        EXPECT_TRUE(std::filesystem::exists(LineSession(session).Record())) << session;
}

} // namespace
} // namespace tarvex::tests
