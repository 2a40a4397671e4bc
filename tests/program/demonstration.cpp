#include "program/demonstration.h"

#include "panel/widgets/wait_ground.h"

#include <QApplication>
#include <QLabel>
#include <QPixmap>
#include <QTimer>

#include <iostream>
#include <stdexcept>

namespace tarvex::tests
{

namespace
{
constexpr int kSplashPatience = 10'000; // milliseconds
constexpr int kDownloadSight = 5'000;   // into the download, for its picture
constexpr int kFrameTime = 250;
} // namespace

Demonstration::Demonstration(std::filesystem::path folder, int block, bool filmed)
    : folder_(std::move(folder)),
      blockText_(QString::number(block).rightJustified(2, u'0')),
      filmed_(filmed),
      program_(folder_, folder_)
{
    clock_.start();
    std::filesystem::create_directories(folder_ / "screenshots");
    boxes_.beforeAnswer = [this](QWidget* box) {
        Say("message: " + boxes_.texts.constLast());
        Picture(box, QStringLiteral("message"));
    };
}

bool Demonstration::Run()
{
    SeeSplash();
    ReadBlock();
    ChooseFolder();
    const bool downloaded = Download();
    SeeOtherForms();
    program_.MainForm()->close();
    Say(QStringLiteral("closed the panel; messages shown: %1").arg(boxes_.texts.size()));
    return downloaded && program_.End().Ended();
}

bool Demonstration::RunIntoStall()
{
    SeeSplash();
    ReadBlock();
    ChooseFolder();
    QTimer look;
    look.callOnTimeout(program_.MainForm(), [this] { SeeStall(); });
    look.start(kFrameTime);
    AtPanel().Click("command3d1"); // returns at the end of the program only
    return program_.End().Ended();
}

void Demonstration::SeeStall()
{
    const auto* ground = program_.MainForm()->findChild<QWidget*>("Shape1");
    if (!static_cast<const panel::WaitGround*>(ground)->Progress().Now().stalled) return;
    Say("nothing comes from the unit, address " + AtPanel().Text("Text17"));
    Picture(program_.MainForm(), QStringLiteral("stalled"));
    program_.MainForm()->close();
}

void Demonstration::SeeSplash()
{
    program_.Start();
    QWidget* splash = ShownForm("preloader");
    Say("splash: " + splash->findChild<QLabel*>("Label1")->text() + ", " +
        splash->findChild<QLabel*>("Label2")->text());
    Picture(splash, QStringLiteral("splash"));
    if (!WaitFor([this] { return program_.MainForm() != nullptr; }, kSplashPatience)) {
        throw std::runtime_error("the main form does not come");
    }
    Say("the panel, with record " + AtPanel().Text("Text2") + ": " + AtPanel().Text("Text3"));
    Picture(program_.MainForm(), QStringLiteral("start"));
}

void Demonstration::ReadBlock()
{
    AtPanel().Type("Text2", blockText_);
    AtPanel().Click("Command3");
    Say("Read Block " + blockText_ + ": client \"" + AtPanel().Text("Text3") + "\", site \"" +
        AtPanel().Text("Text4") + "\", tube \"" + AtPanel().Text("Text5") + "\", depth " +
        AtPanel().Text("Text6") + "." + AtPanel().Text("Text13") + " m, guides " +
        AtPanel().Text("Text8"));
    Picture(program_.MainForm(), QStringLiteral("panel"));
}

void Demonstration::ChooseFolder()
{
    AtPanel().ShowTab(2);
    AtPanel().Type("numblocco", blockText_);
    AtPanel().Click("Command10");
    QWidget* chooser = ShownForm("Form6");
    WaitFor([chooser] { return chooser->findChild<QAbstractButton*>("command3d1")->isEnabled(); });
    Picture(chooser, QStringLiteral("folder"));
    Operator(chooser).Click("command3d1");
    Say("Folder: " + QString::fromStdString(program_.State().reportFolder.string()));
}

bool Demonstration::Download()
{
    QTimer::singleShot(kDownloadSight, program_.MainForm(), [this] {
        Say("downloading, address " + AtPanel().Text("Text17") + ", file " +
            AtPanel().Text("Text1"));
        Picture(program_.MainForm(), QStringLiteral("download"));
    });
    QTimer shutter;
    shutter.callOnTimeout([this] { TakeFrame(); });
    TakeFrame();
    if (filmed_) shutter.start(kFrameTime);
    const qint64 start = clock_.elapsed();
    AtPanel().Click("command3d1");
    shutter.stop();
    TakeFrame();
    Say(QStringLiteral("Ok: the download has ended after %1 s, last address %2")
            .arg(static_cast<double>(clock_.elapsed() - start) / 1000, 0, 'f', 1)
            .arg(AtPanel().Text("Text17")));
    return std::filesystem::exists(program_.State().reportFolder / "datiram.dat");
}

void Demonstration::SeeOtherForms()
{
    AtPanel().ShowTab(3);
    AtPanel().Click("ssCommand3");
    Say("Read Clock: " + AtPanel().Text("Text13a") + "/" + AtPanel().Text("Text1a") + "/" +
        AtPanel().Text("Text2a") + " " + AtPanel().Text("Text14a") + ":" +
        AtPanel().Text("Text3a") + ":" + AtPanel().Text("Text4a"));
    Picture(program_.MainForm(), QStringLiteral("setup"));
    AtPanel().ShowTab(1);
    AtPanel().Click("Command8");
    Say(QStringLiteral("Read All Blocks: the header file holds what the unit holds"));
    AtPanel().Click("Command11");
    QWidget* about = ShownForm("aboutus");
    Picture(about, QStringLiteral("about"));
    Operator(about).Click("btnclose");
    SeeServiceForm("Serial port RS232", "Form1", "port");
    SeeServiceForm("Set Clock", "Form2", "clock");
    SeeServiceForm("Delay for Automatic Cycle", "Form3", "delay");
    SeeDatabase();
}

void Demonstration::SeeServiceForm(const char* entry, const char* form, const char* picture)
{
    AtPanel().ChooseService(QLatin1String(entry));
    QWidget* window = ShownForm(form);
    Picture(window, QLatin1String(picture));
    window->close();
}

void Demonstration::SeeDatabase()
{
    AtPanel().ChooseService(QStringLiteral("Database Tar Vex"));
    QWidget* panel = ShownForm("Form4");
    Picture(panel, QStringLiteral("database"));
    Operator(panel).Click("ssCommand2");
    QWidget* grid = ShownForm("Form5");
    Say(QStringLiteral("Read Headers: the survey database and its grid"));
    Picture(grid, QStringLiteral("grid"));
    grid->close();
    panel->close();
}

void Demonstration::Say(const QString& what) const
{
    std::cout << QStringLiteral("%1 s  ")
                     .arg(static_cast<double>(clock_.elapsed()) / 1000, 6, 'f', 1)
                     .toStdString()
              << what.toStdString() << std::endl;
}

void Demonstration::TakeFrame()
{
    if (filmed_)
        Picture(program_.MainForm(), QStringLiteral("film-%1").arg(frames_++, 2, 10, QChar(u'0')));
}

void Demonstration::Picture(QWidget* window, const QString& name) const
{
    QCoreApplication::processEvents();
    const auto file = folder_ / "screenshots" / (name.toStdString() + ".png");
    window->grab().save(QString::fromStdString(file.string()));
}

} // namespace tarvex::tests
