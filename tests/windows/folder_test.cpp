#include "panel/forms/forms_test.h"
#include "panel/forms/machine_places.h"
#include "panel/forms/report_folder.h"
#include "windows/wine.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>

namespace tarvex::tests
{
namespace
{

using panel::IsFolderName;
using ::testing::Contains;

/// The folder chooser; scripts/try-windows gives a drive E: without a disk.
class WindowsFolders : public FormsTest
{
protected:
    static QComboBox& Drive1() { return Control<QComboBox>("Form6", "Drive1"); }
    static std::string ShownPath()
    {
        return Control<QLabel>("Form6", "LabelPath").text().toStdString();
    }
};

TEST_F(WindowsFolders, AreMadeAndShownAtDriveC)
{
    std::filesystem::remove_all(L"c:\\dati");
    forms.ShowFolderChooser();
    EXPECT_TRUE(std::filesystem::is_directory(L"c:\\dati"));
    EXPECT_EQ(Drive1().currentText(), "C:");
    EXPECT_EQ(ShownPath(), "c:\\dati");
    Press("Form6", "command3d1");
    EXPECT_EQ(state.reportFolder, std::filesystem::path(L"c:\\dati"));
    EXPECT_TRUE(panel.downloadButton.Enabled());
}

TEST_F(WindowsFolders, OpenWithoutAMessageWhenTheFolderIsThere)
{
    std::filesystem::create_directory(L"c:\\dati");
    forms.ShowFolderChooser();
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(ShownPath(), "c:\\dati");
}

TEST_F(WindowsFolders, ReturnToDriveCFromADriveWithoutADisk)
{
    forms.ShowFolderChooser();
    const int empty = Drive1().findText("E:");
    ASSERT_GE(empty, 0) << "no drive E:";
    boxes.ExpectTitled("Errore", "Invalid Drive!");
    Drive1().setCurrentIndex(empty);
    EXPECT_EQ(boxes.shown, 1);
    EXPECT_EQ(Drive1().currentText(), "C:");
    EXPECT_EQ(ShownPath(), "c:\\");
}

TEST_F(WindowsFolders, GoToTheRootOfAChosenDrive)
{
    forms.ShowFolderChooser();
    const int other = Drive1().findText("Z:");
    ASSERT_GE(other, 0) << "no drive Z:";
    Drive1().setCurrentIndex(other);
    EXPECT_EQ(Drive1().currentText(), "Z:");
    EXPECT_EQ(ShownPath(), "z:\\");
}

TEST(WindowsFolderName, IsRefusedWhereTheSystemWouldChangeIt)
{
    for (const char* name : {"dati", "S 12", "...x", ".hidden", "com", "COM0", "nulla"})
        EXPECT_TRUE(IsFolderName(name)) << name;
    for (const char* name : {"nul", "COM1", "com3.x", "dati.", "dati ", "...", "a:b", "a*", "a?",
                             "a<b", "a|b", "a\"b", "a\\b", "a/b", "c:", "a\x01"})
        EXPECT_FALSE(IsFolderName(name)) << name;
}

TEST(WindowsFolder, IsHiddenWhenTheSystemSaysSo)
{
    const TemporaryFolder folder;
    const auto hidden = folder / "recycled";
    std::filesystem::create_directory(hidden);
    EXPECT_FALSE(panel::IsHidden(hidden));
    ASSERT_TRUE(::SetFileAttributesW(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN));
    EXPECT_TRUE(panel::IsHidden(hidden));
    ::SetFileAttributesW(hidden.c_str(), FILE_ATTRIBUTE_NORMAL);
}

} // namespace
} // namespace tarvex::tests
