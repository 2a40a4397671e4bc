#include "program/desk.h"
#include "program/program_test.h"

#include <QGuiApplication>

#include <iostream>

namespace tarvex::tests
{
namespace
{

class WaylandTest : public ProgramTest
{
protected:
    void TypeByHand(Desk& desk, const char* field, const QStringList& keys, const QString& shown)
    {
        ASSERT_TRUE(desk.PointAt(field));
        desk.Press();
        desk.Release();
        auto* edit = AtPanel().Find<QLineEdit>(field);
        ASSERT_TRUE(WaitFor([&] { return edit->hasFocus(); }));
        desk.Type(keys);
        ASSERT_TRUE(WaitFor([&] { return edit->text() == shown; })) << edit->text().toStdString();
    }

    static void PrintOrder(const Desk& desk)
    {
        std::cout << "the events came in the order: " << desk.order.join(", ").toStdString()
                  << std::endl;
    }
};

TEST_F(WaylandTest, RunsOnTheDesktopItself)
{
    EXPECT_EQ(QGuiApplication::platformName(), "wayland");
}

TEST_F(WaylandTest, AClickStraightFromAnotherProgramStoresWhatTheRuleMadeOfTheField)
{
    StartAlone();
    Desk desk(program->MainForm());
    TypeByHand(desk, "Text6", {"1", "2"}, "12");
    desk.GoToAnotherProgram("Command6");
    ASSERT_EQ(AtPanel().Text("Text6"), "12");

    desk.Press();
    ASSERT_TRUE(WaitFor([&] { return desk.order.contains("press"); }));
    desk.Release();

    ASSERT_TRUE(WaitFor([&] { return !boxes.texts.isEmpty(); })); // Set Block has stored, and asks
    PrintOrder(desk);
    EXPECT_EQ(AtPanel().Text("Text6"), "012");
    EXPECT_EQ(FileBytes(folder / "intestazione").substr(20, 4), "0120");
}

TEST_F(WaylandTest, ACommandRunsOnceAfterTheBoxThatItsClickBrought)
{
    Start({"--fault", "silent@wake1+"});
    Desk desk(program->MainForm());
    TypeByHand(desk, "Text2", {"3", "0"}, "30");
    desk.GoToAnotherProgram("Command3");
    boxes.beforeAnswer = [&](QWidget*) {
        if (boxes.texts.size() == 1) desk.Release(); // the hand comes up while the box is there
    };

    desk.Press();

    ASSERT_TRUE(WaitFor([&] { return boxes.texts.size() >= 2; }))
        << boxes.texts.join(", ").toStdString() << "; " << desk.order.join(", ").toStdString();
    ASSERT_TRUE(WaitFor([&] { return program->MainForm()->isActiveWindow(); }));
    WaitFor([] { return false; }, 500); // time for a second run, if there were one
    PrintOrder(desk);
    EXPECT_EQ(boxes.texts, QStringList({"Attention: Incorrect block number",
                                        "Attention: TAR--VEX not connected"}));
}

} // namespace
} // namespace tarvex::tests
