#include "panel/palettes.h"
#include "panel/rendered.h"
#include "panel/widgets/look.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>

namespace tarvex::tests
{

namespace
{

struct MarkedBox {
    const char* name;
    std::function<std::unique_ptr<QDialog>()> make;
};

std::unique_ptr<QDialog> Message()
{
    auto box = std::make_unique<QMessageBox>(QMessageBox::NoIcon, "Title", "Would you ?",
                                             QMessageBox::Ok | QMessageBox::Cancel);
    box->setStyleSheet("QDialogButtonBox { button-layout: 0 }"); // as the program's own are
    return box;
}

/// The toolkit's own boxes, each in one palette.
class FocusMarkInABox : public ::testing::TestWithParam<std::tuple<MarkedBox, bool>>
{
protected:
    FocusMarkInABox()
    {
        panel::DressProgram();
        QApplication::setPalette(std::get<bool>(GetParam()) ? DarkPalette() : LightPalette());
        box = std::get<MarkedBox>(GetParam()).make();
        box->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(box.get()));
    }
    ~FocusMarkInABox() override { QApplication::setPalette(QPalette()); }

    std::unique_ptr<QDialog> box;
};

TEST_P(FocusMarkInABox, IsWholeAroundEveryButtonAndField)
{
    int marked = 0;
    for (auto* control : box->findChildren<QWidget*>()) {
        const bool reached = (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
                             control->focusProxy() == nullptr;
        if (!reached || !control->isVisible() || !control->isEnabled()) continue;
        control->setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(SidesWithoutMark(*box, *control), "")
            << control->metaObject()->className() << ' ' << control->objectName().toStdString();
        ++marked;
    }
    EXPECT_GE(marked, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, FocusMarkInABox,
    ::testing::Combine(
        ::testing::Values(MarkedBox{"Message", Message},
                          MarkedBox{"Input", [] { return std::make_unique<QInputDialog>(); }},
                          MarkedBox{"File", [] { return std::make_unique<QFileDialog>(); }}),
        ::testing::Bool()),
    [](const auto& row) {
        return std::string(std::get<MarkedBox>(row.param).name) +
               (std::get<bool>(row.param) ? "Dark" : "Light");
    });

} // namespace

} // namespace tarvex::tests
