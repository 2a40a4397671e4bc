#include "panel/palettes.h"
#include "panel/rendered.h"
#include "panel/window_test.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <array>
#include <string>

namespace tarvex::tests
{

namespace
{

constexpr double kLeastText = 4.5;
constexpr double kLeastBorder = 3;

/// The main form in one palette, or changed to it from the other while it is on view.
class Look : public WindowTest, public ::testing::WithParamInterface<bool>
{
protected:
    Look()
    {
        QApplication::setPalette(GetParam() ? LightPalette() : DarkPalette());
        QApplication::processEvents();
        QApplication::setPalette(GetParam() ? DarkPalette() : LightPalette());
        QApplication::processEvents();
    }
    ~Look() override { QApplication::setPalette(QPalette()); }

    void ForEachTab(const std::function<void()>& check)
    {
        for (const int tab : {1, 2, 3}) {
            ClickTab(tab);
            check();
        }
    }

    template <class Widget>
    std::vector<Widget*> Visible() const
    {
        std::vector<Widget*> visible;
        for (auto* widget : window->findChildren<Widget*>())
            if (widget->visibleRegion().boundingRect().size() == widget->size())
                visible.push_back(widget);
        return visible;
    }
};

TEST_P(Look, ShowsBordersOfFieldsAndButtonsInSunlight)
{
    std::size_t seen = 0;
    ForEachTab([&] {
        const Rendered picture(*window);
        for (const QWidget* field : Visible<QLineEdit>())
            EXPECT_GE(picture.BorderContrast(*field), kLeastBorder)
                << field->objectName().toStdString();
        for (const QWidget* button : Visible<QPushButton>())
            EXPECT_GE(picture.BorderContrast(*button), kLeastBorder)
                << button->objectName().toStdString();
        seen += Visible<QLineEdit>().size() + Visible<QPushButton>().size();
    });
    EXPECT_GE(seen, 50U);
}

TEST_P(Look, ShowsEveryTextInSunlightAlsoWhenDisabled)
{
    bool disabledSeen = false;
    ForEachTab([&] {
        const Rendered picture(*window);
        const auto check = [&](const QWidget* widget, const QString& text) {
            if (text.trimmed().isEmpty()) return;
            EXPECT_GE(picture.TextContrast(*widget), kLeastText) << text.toStdString();
            disabledSeen = disabledSeen || !widget->isEnabled();
        };
        for (const auto* label : Visible<QLabel>())
            check(label, label->text());
        for (const auto* button : Visible<QAbstractButton>())
            check(button, button->text());
        for (const auto* field : Visible<QLineEdit>())
            check(field, field->text());
    });
    EXPECT_TRUE(disabledSeen);
}

TEST_P(Look, ShowsADisabledFieldsTextInSunlight)
{
    Edit("Text3").setText("CLIENT");
    Edit("Text3").setEnabled(false);
    EXPECT_GE(Rendered(*window).TextContrast(Edit("Text3")), kLeastText);
    EXPECT_GE(Rendered(*window).BorderContrast(Edit("Text3")), kLeastBorder);
}

TEST_P(Look, GivesALockedBoxTheGroundOfItsWindow)
{
    Enter("Command3");
    const Rendered picture(*window);
    const QColor windowGround = picture.Ground(Named("Frame1"));
    EXPECT_EQ(picture.Ground(Edit("Text11")), windowGround);
    EXPECT_EQ(picture.Ground(Edit("Text12")), windowGround);
    EXPECT_NE(picture.Ground(Edit("Text3")), windowGround);
}

TEST_P(Look, MarksTheFocusInSunlight)
{
    for (const char* name : {"Command3", "Text3", "Text11", "sscommand11", "TabStrip1"}) {
        Enter(name == std::string("Text4") ? "Text3" : "Text4");
        const Rendered before(*window);
        Enter(name);
        QApplication::processEvents();
        const Rendered after(*window);
        const QWidget& control = Named(name);
        const QColor mark = after.FrameChange(control, before);
        ASSERT_TRUE(mark.isValid()) << name;
        EXPECT_GE(SeenContrast(mark, before.Ground(Named("Frame1"))), kLeastBorder) << name;
        if (name == std::string("TabStrip1")) continue; // its ground is that of the tabs
        EXPECT_GE(SeenContrast(mark, before.Ground(control)), kLeastBorder) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Palettes, Look, ::testing::Bool(),
                         [](const auto& palette) { return palette.param ? "Dark" : "Light"; });

using Buttons = WindowTest;

TEST_F(Buttons, ShowTheirCaptionCentredWithoutItsLeadingBlank)
{
    for (const char* name : {"Command3", "Command7", "sscommand11"}) {
        QAbstractButton& button = Button(name);
        const QString caption = button.text();
        ASSERT_TRUE(caption.startsWith(' ')) << name;
        const QImage blank = button.grab().toImage();
        button.setText(caption.mid(1));
        EXPECT_EQ(button.grab().toImage(), blank) << name;
        button.setText(caption);
    }
}

TEST_F(Buttons, AreHighEnoughForGloves)
{
    for (const auto* button : window->findChildren<QPushButton*>()) {
        if (!button->isVisible()) continue;
        EXPECT_GE(button->height(), 34) << button->objectName().toStdString();
    }
}

} // namespace

} // namespace tarvex::tests
