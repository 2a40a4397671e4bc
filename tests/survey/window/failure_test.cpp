#include "survey/window/application.h"
#include "survey/window/main_window.h"
#include "survey/window/plot_view.h"

#include "support/toolkit_leaks.h"
#include "survey/downloads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMimeData>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

#include <new>
#include <stdexcept>

namespace tarvex::survey
{
namespace
{

using ::testing::HasSubstr;
using ::testing::TestWithParam;
using ::testing::Values;

Application& TheApplication()
{
    return *static_cast<Application*>(QCoreApplication::instance());
}

/// Fails at the first event of a kind that one of these objects gets.
class FailingHandler : public QObject
{
public:
    FailingHandler(std::initializer_list<QObject*> watched, QEvent::Type kind) : kind_(kind)
    {
        for (auto* const object : watched)
            object->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (failed || event->type() != kind_) return QObject::eventFilter(watched, event);
        failed = true;
        throw std::runtime_error("the handler has failed");
    }

    bool failed = false;

private:
    QEvent::Type kind_;
};

class FailureTest : public TestWithParam<QEvent::Type>
{
protected:
    FailureTest()
    {
        TheApplication().OnFailure([this](const std::string& text) { window_.Report(text); });
        report_ = tests::Download(folder_.Path(), "1:depth=20");
        tests::Download(folder_.Path(), "2:depth=20,tube=T2");
        window_.Open({folder_.Path()});
        window_.show();
        QTest::qWait(50);
    }
    ~FailureTest() override { TheApplication().OnFailure({}); }

    PlotView& Plot() { return *window_.findChild<PlotView*>(); }

    bool Says(const char* words)
    {
        return QTest::qWaitFor(
            [&] { return window_.statusBar()->currentMessage().contains(QLatin1String(words)); },
            60'000);
    }

    /// True when the window still follows its keys.
    bool Lives()
    {
        Plot().PointTo(0);
        QTest::keyClick(&Plot(), Qt::Key_Down);
        return window_.findChild<QTableView*>("table")->currentIndex().row() == 0 &&
               window_.findChild<QLabel*>("values")->text().startsWith("Depth 0.5");
    }

    void DropReport()
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(report_.native()))});
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window_, &enter);
        QDropEvent event(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window_, &event);
    }

    void SendAllKinds()
    {
        QTest::keyClick(&Plot(), Qt::Key_Plus);
        QTest::mouseMove(&Plot(), QPoint(100, 100));
        QTest::mouseDClick(&Plot(), Qt::LeftButton, {}, QPoint(100, 100));
        DropReport();
        Plot().startTimer(1);
        Plot().repaint();
        window_.resize(window_.size() + QSize(10, 10));
        QEvent palette(QEvent::PaletteChange);
        QApplication::sendEvent(&Plot(), &palette);
        QTest::qWait(50);
    }

    tests::ToolkitMayLeak acrossIt_; // the exceptions cross the toolkit; the other tests count
    tests::TemporaryFolder folder_;
    std::filesystem::path report_;
    MainWindow window_;
};

TEST_P(FailureTest, OfAHandlerIsASentenceAndTheWindowLivesOn)
{
    FailingHandler handler({&Plot(), &window_}, GetParam());
    SendAllKinds();
    EXPECT_TRUE(handler.failed);
    EXPECT_TRUE(Says("This could not be done: the handler has failed"));
    EXPECT_TRUE(Lives());
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, FailureTest,
                         Values(QEvent::KeyPress, QEvent::MouseMove, QEvent::MouseButtonDblClick,
                                QEvent::DragEnter, QEvent::Drop, QEvent::Timer, QEvent::Paint,
                                QEvent::Resize, QEvent::PaletteChange));

TEST_F(FailureTest, OfMemoryIsNamedSo)
{
    const auto before = Plot().depthPointed;
    Plot().depthPointed = [](double) { throw std::bad_alloc(); };
    QTest::keyClick(&Plot(), Qt::Key_Down);
    EXPECT_TRUE(Says("This could not be done: there is not enough memory"));
    Plot().depthPointed = before;
    EXPECT_TRUE(Lives());
}

TEST_F(FailureTest, OfAMenuEntryIsASentence)
{
    auto* const action = window_.findChild<QAction*>();
    QObject::connect(action, &QAction::changed, &window_,
                     [] { throw std::runtime_error("the entry has failed"); });
    QMetaObject::invokeMethod(
        action, [action] { action->setText("other"); }, Qt::QueuedConnection);
    EXPECT_TRUE(Says("the entry has failed"));
    EXPECT_TRUE(Lives());
}

TEST_F(FailureTest, BeforeTheFirstEventIsCaughtToo)
{
    EXPECT_FALSE(TheApplication().Try([] { throw std::runtime_error("the start has failed"); }));
    EXPECT_TRUE(Says("the start has failed"));
}

TEST_F(FailureTest, OfAReportThatVanishesBeforeItIsChosenIsASentence)
{
    std::filesystem::remove(report_);
    std::filesystem::remove(tests::DataReportOf(report_));
    auto* const tube = window_.findChild<QTreeWidget*>("tree")->topLevelItem(0)->child(0)->child(0);
    tube->treeWidget()->setCurrentItem(tube->child(0));
    EXPECT_TRUE(Says("is no report: it cannot be read"));
}

} // namespace
} // namespace tarvex::survey

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    const tarvex::survey::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
