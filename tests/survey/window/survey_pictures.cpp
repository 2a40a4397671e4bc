// survey_pictures REPORTS FOLDER: the survey window at work on the reports of
// tests/survey/known_reports, as pictures for the manual.

#include "survey/window/main_window.h"

#include <QApplication>
#include <QTabBar>
#include <QTest>
#include <QTreeWidget>

#include <iostream>

namespace tarvex::survey
{
namespace
{

class Photographer
{
public:
    Photographer(std::filesystem::path reports, const QString& folder)
        : reports_(std::move(reports)), folder_(folder)
    {
        window_.resize(1100, 720);
        window_.show();
    }

    /// The sum that is out, pointed to at its depth of 12.5 m.
    void SeeSpike()
    {
        window_.Open({reports_ / "SPIKE   -PENDIO 1-T4  -01-dat.dat"});
        Find<QTabBar>("kinds").setCurrentIndex(2);
        for (int depth = 0; depth < 25; ++depth)
            QTest::keyClick(&Find<QWidget>("plot"), Qt::Key_Down);
        Take("survey");
    }

    /// Four readings of one tube over each other, and how far the tube has moved.
    void SeeChange()
    {
        window_.Open({reports_ / "MOVES   -PENDIO 1-T10 -11-dat.dat"});
        auto& tree = Find<QTreeWidget>("tree");
        auto* const tube = tree.currentItem()->parent();
        for (int reading = 0; reading < tube->childCount(); ++reading)
            tube->child(reading)->setSelected(true);
        Find<QTabBar>("kinds").setCurrentIndex(3);
        Take("survey-change");
    }

private:
    template <class Widget>
    Widget& Find(const char* name)
    {
        auto* const widget = window_.findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }

    void Take(const char* name)
    {
        QTest::qWait(200); // until it is laid out and painted
        const QString file =
            folder_ + QLatin1Char('/') + QLatin1String(name) + QLatin1String(".png");
        if (!window_.grab().save(file))
            throw std::runtime_error("not written: " + file.toStdString());
    }

    std::filesystem::path reports_;
    QString folder_;
    MainWindow window_;
};
} // namespace
} // namespace tarvex::survey

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    try {
        if (argc != 3) throw std::runtime_error("usage: survey_pictures REPORTS FOLDER");
        tarvex::survey::Photographer photographer(argv[1], QString::fromLocal8Bit(argv[2]));
        photographer.SeeSpike();
        photographer.SeeChange();
    } catch (const std::exception& error) {
        std::cerr << "survey_pictures: " << error.what() << '\n';
        return 1;
    }
}
