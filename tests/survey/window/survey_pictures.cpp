// survey_pictures REPORTS FOLDER [--dark]: the survey window at work on the reports of
// tests/survey/known_reports, as pictures for the manual, of the size that the window has on the
// screen there is.

#include "survey/window/look.h"
#include "survey/window/main_window.h"

#include "panel/palettes.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QStyle>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <iostream>
#include <string_view>

namespace tarvex::survey
{
namespace
{

constexpr int kSums = 2;
constexpr int kChange = 3;

class Photographer
{
public:
    Photographer(std::filesystem::path reports, const QString& folder)
        : reports_(std::move(reports)), folder_(folder)
    {
        window_.show();
        Take(window_, "survey-empty");
    }

    /// The sum that is out, pointed to at its depth of 12.5 m.
    void SeeSpike()
    {
        window_.Open({reports_ / "SPIKE   -PENDIO 1-T4  -01-dat.dat"});
        Find<QTabBar>("kinds").setCurrentIndex(kSums);
        Find<QWidget>("plot").setFocus(Qt::TabFocusReason);
        for (int depth = 0; depth < 25; ++depth)
            QTest::keyClick(&Find<QWidget>("plot"), Qt::Key_Down);
        Take(window_, "survey");
    }

    /// Why a reading is to be taken again, in the box over the window.
    void SeeReasons()
    {
        QTimer::singleShot(0, &window_, [this] {
            auto* const box = QApplication::activeModalWidget();
            Take(*box, "survey-reasons");
            static_cast<QDialog*>(box)->reject();
        });
        for (auto* const action : window_.findChildren<QAction*>())
            if (action->shortcut() == QKeySequence(Qt::CTRL | Qt::Key_R)) action->trigger();
    }

    /// A tube with four guides, whose table is the widest.
    void SeeFourGuides()
    {
        window_.Open({reports_ / "GOOD4   -PENDIO 1-T2  -01-dat.dat"});
        Take(window_, "survey-four");
    }

    /// Four readings of one tube over each other, and how far the tube has moved.
    void SeeChange()
    {
        window_.Open({reports_ / "MOVES   -PENDIO 1-T10 -11-dat.dat"});
        auto& tree = Find<QTreeWidget>("tree");
        auto* const tube = tree.currentItem()->parent();
        for (int reading = 0; reading < tube->childCount(); ++reading)
            tube->child(reading)->setSelected(true);
        Find<QTabBar>("kinds").setCurrentIndex(kChange);
        Take(window_, "survey-change");
    }

private:
    template <class Widget>
    Widget& Find(const char* name)
    {
        auto* const widget = window_.findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }

    void Take(QWidget& window, const char* name)
    {
        QTest::qWait(200); // until it is laid out and painted
        const QString file =
            folder_ + QLatin1Char('/') + QLatin1String(name) + QLatin1String(".png");
        if (!window.grab().save(file))
            throw std::runtime_error("not written: " + file.toStdString());
    }

    std::filesystem::path reports_;
    QString folder_;
    MainWindow window_;
};
} // namespace
} // namespace tarvex::survey

namespace
{
/// As when these were the desktop's colours, which go through the style.
void SetDesktop(QPalette palette)
{
    QApplication::style()->polish(palette);
    QApplication::setPalette(palette);
}
} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    try {
        const bool dark = argc == 4 && std::string_view(argv[3]) == "--dark";
        if (argc != 3 && !dark)
            throw std::runtime_error("usage: survey_pictures REPORTS FOLDER [--dark]");
        tarvex::survey::Dress();
        if (dark) SetDesktop(tarvex::tests::DarkPalette());
        tarvex::survey::Photographer photographer(argv[1], QString::fromLocal8Bit(argv[2]));
        photographer.SeeSpike();
        photographer.SeeReasons();
        photographer.SeeFourGuides();
        photographer.SeeChange();
    } catch (const std::exception& error) {
        std::cerr << "survey_pictures: " << error.what() << '\n';
        return 1;
    }
}
