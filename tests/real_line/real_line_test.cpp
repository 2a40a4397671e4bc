#include "real_line/real_line_test.h"

#include "real_line/ftdi_adapter.h"
#include "real_line/uart.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHelpEvent>

#include <fstream>
#include <stdexcept>
#include <sys/resource.h>

namespace tarvex::tests
{

namespace
{

namespace fs = std::filesystem;

constexpr int kLookIn = 100;         // milliseconds
constexpr int kWatch = 2000;         // milliseconds
constexpr int kPatience = 30'000;    // milliseconds
constexpr int kLongestTest = 50'000; // milliseconds; on a quiet machine none takes ten

/// The machine says of itself what it is for, when it is started.
bool IsTheMachine()
{
    std::ifstream stream("/proc/cmdline");
    std::string words;
    std::getline(stream, words);
    return words.find("tarvex.real_line") != std::string::npos;
}

double ProcessorSeconds()
{
    rusage used{};
    ::getrusage(RUSAGE_THREAD, &used);
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
           1e-6 * static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
}

template <class Line>
std::unique_ptr<RealLine> Make()
{
    return std::make_unique<Line>();
}

} // namespace

RealLineTest::RealLineTest()
{
    if (!IsTheMachine()) throw std::runtime_error("to be run by scripts/test-real-line alone");
}

void RealLineTest::StartOn(const fs::path& device)
{
    fs::create_symlink(device, folder / "com1");
    StartAlone();
    LimitTheTest();
}

void RealLineTest::StartWithoutLinks()
{
    StartIn(folder.Path());
    LimitTheTest();
}

/// Closing the panel ends every wait of a command, also one that would go on for ever.
void RealLineTest::LimitTheTest()
{
    QTimer::singleShot(kLongestTest, program->MainForm(), [this] {
        ADD_FAILURE() << "the test is not over after " << kLongestTest / 1000 << " s";
        program->MainForm()->close();
    });
}

std::string RealLineTest::TipOf(int number)
{
    const std::string name = "ssOption1_" + std::to_string(number - 1);
    auto* option = AtPanel().Find<QAbstractButton>(name.c_str());
    QHelpEvent asked(QEvent::ToolTip, {}, {});
    QCoreApplication::sendEvent(option, &asked);
    return option->accessibleDescription().toStdString();
}

void RealLineTest::ExpectBlockRead()
{
    AtPanel().Type("Text2", "01");
    AtPanel().Click("Command3");
    EXPECT_EQ(AtPanel().Text("Text3"), "DELVALLE");
    EXPECT_EQ(AtPanel().Text("Text4"), "FRANA 02");
    EXPECT_EQ(AtPanel().Text("Text5"), "T01 ");
    EXPECT_EQ(AtPanel().Text("Text6"), "030");
    EXPECT_EQ(AtPanel().Text("Text13"), "0");
    EXPECT_EQ(AtPanel().Text("Text7"), "0");
    EXPECT_EQ(AtPanel().Text("Text8"), "2");
    EXPECT_EQ(AtPanel().Text("Text9"), "+045");
    EXPECT_EQ(AtPanel().Text("Text10"), "03");
    EXPECT_EQ(AtPanel().Text("Text11"), "120426");
    EXPECT_EQ(AtPanel().Text("Text12"), "093015");
    EXPECT_FALSE(AtPanel().IsShown("Label34"));
}

double RealLineTest::LoadOfWait(const char* button, std::function<bool()> begun,
                                std::function<void()> leave)
{
    double used = 1e9; // as long as nobody has looked
    QElapsedTimer watch;
    QTimer lookIn;
    QElapsedTimer patience;
    patience.start();
    QObject::connect(&lookIn, &QTimer::timeout, [&] {
        if (!begun() && patience.elapsed() < kPatience) return;
        lookIn.stop();
        used = ProcessorSeconds();
        watch.start();
        QTimer::singleShot(kWatch, program->MainForm(), [&] {
            used = (ProcessorSeconds() - used) * 1000 / static_cast<double>(watch.elapsed());
            leave();
        });
    });
    lookIn.start(kLookIn);
    AtPanel().Click(button);
    EXPECT_TRUE(watch.isValid()) << "the command did not wait";
    EXPECT_LT(patience.elapsed(), kPatience);
    return used;
}

std::vector<Driver> Drivers()
{
    return {{"Uart", &Make<Uart>}, {"Ftdi", &Make<FtdiAdapter>}};
}

std::string DriverName(const ::testing::TestParamInfo<Driver>& driver)
{
    return driver.param.name;
}

} // namespace tarvex::tests
