#include "program/demonstration.h"

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
} // namespace

Demonstration::Demonstration(std::filesystem::path folder, int block)
    : folder_(std::move(folder)),
      blockText_(QString::number(block).rightJustified(2, u'0')),
      program_(folder_, folder_)
{
    clock_.start();
    std::filesystem::create_directories(folder_ / "screenshots");
    boxes_.beforeAnswer = [this](QWidget* box) {
        Tell("message: " + boxes_.texts.constLast());
        Picture(box, "message");
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
    Tell(QStringLiteral("closed the panel; messages shown: %1").arg(boxes_.texts.size()));
    return downloaded && program_.End().Ended();
}

void Demonstration::SeeSplash()
{
    program_.Start();
    QWidget* splash = Form("preloader");
    Tell("splash: " + splash->findChild<QLabel*>("Label1")->text() + ", " +
         splash->findChild<QLabel*>("Label2")->text());
    Picture(splash, "splash");
    if (!WaitFor([this] { return program_.MainForm() != nullptr; }, kSplashPatience)) {
        throw std::runtime_error("the main form does not come");
    }
    Tell("the panel, with record " + AtPanel().Text("Text2") + ": " + AtPanel().Text("Text3"));
    Picture(program_.MainForm(), "start");
}

void Demonstration::ReadBlock()
{
    AtPanel().Type("Text2", blockText_);
    AtPanel().Click("Command3");
    Tell("Read Block " + blockText_ + ": client \"" + AtPanel().Text("Text3") + "\", site \"" +
         AtPanel().Text("Text4") + "\", tube \"" + AtPanel().Text("Text5") + "\", depth " +
         AtPanel().Text("Text6") + "." + AtPanel().Text("Text13") + " m, guides " +
         AtPanel().Text("Text8"));
    Picture(program_.MainForm(), "panel");
}

void Demonstration::ChooseFolder()
{
    AtPanel().ShowTab(2);
    AtPanel().Type("numblocco", blockText_);
    AtPanel().Click("Command10");
    QWidget* chooser = Form("Form6");
    WaitFor([chooser] { return chooser->findChild<QAbstractButton*>("command3d1")->isEnabled(); });
    Picture(chooser, "folder");
    Operator(chooser).Click("command3d1");
    Tell("Folder: " + QString::fromStdString(program_.State().ReportFolder.string()));
}

bool Demonstration::Download()
{
    QTimer::singleShot(kDownloadSight, program_.MainForm(), [this] {
        Tell("downloading, address " + AtPanel().Text("Text17") + ", file " +
             AtPanel().Text("Text1"));
        Picture(program_.MainForm(), "download");
    });
    const qint64 start = clock_.elapsed();
    AtPanel().Click("command3d1");
    Tell(QStringLiteral("Ok: the download has ended after %1 s, last address %2")
             .arg(static_cast<double>(clock_.elapsed() - start) / 1000, 0, 'f', 1)
             .arg(AtPanel().Text("Text17")));
    return std::filesystem::exists(program_.State().ReportFolder / "datiram.dat");
}

void Demonstration::SeeOtherForms()
{
    AtPanel().ShowTab(3);
    Picture(program_.MainForm(), "setup");
    AtPanel().Click("Command11");
    QWidget* about = Form("aboutus");
    Picture(about, "about");
    Operator(about).Click("btnclose");
}

void Demonstration::Tell(const QString& what) const
{
    std::cout << QStringLiteral("%1 s  ")
                     .arg(static_cast<double>(clock_.elapsed()) / 1000, 6, 'f', 1)
                     .toStdString()
              << what.toStdString() << std::endl;
}

void Demonstration::Picture(QWidget* window, const char* name) const
{
    QCoreApplication::processEvents();
    const auto file = folder_ / "screenshots" / (std::string(name) + ".png");
    window->grab().save(QString::fromStdString(file.string()));
}

QWidget* Demonstration::Form(const char* name) const
{
    QWidget* form = nullptr;
    WaitFor([&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String(name) && window->isVisible()) form = window;
        }
        return form != nullptr;
    });
    if (form == nullptr) throw std::runtime_error(std::string("no form ") + name);
    return form;
}

} // namespace tarvex::tests
