#include "panel/forms/folder_chooser_test.h"
#include "support/ordinary_user.h"

#include <QClipboard>
#include <QInputDialog>
#include <QLineEdit>
#include <QTest>

#include <filesystem>
#include <string>
#include <vector>

namespace tarvex::tests
{

TEST_F(FolderChooser, MakesANewFolderAndSelectsIt)
{
    forms.ShowFolderChooser();
    Press("Form6", "NewFolder");
    auto& question = Control<QInputDialog>("Form6", "NewFolderName");
    question.setTextValue("Foro Ω 3");
    question.accept();
    EXPECT_TRUE(fs::is_directory(dati / "Foro Ω 3"));
    EXPECT_EQ(ShownPath(), dati / "Foro Ω 3");
}

TEST_F(FolderChooser, CutsAPastedNameAtItsFirstLineEnd)
{
    QGuiApplication::clipboard()->setText("Foro 3\nVIA ROMA\n");
    forms.ShowFolderChooser();
    Press("Form6", "NewFolder");
    auto& question = Control<QInputDialog>("Form6", "NewFolderName");
    QTest::keyClick(question.findChild<QLineEdit*>(), Qt::Key_V, Qt::ControlModifier);
    question.accept();
    EXPECT_EQ(ShownPath(), dati / "Foro 3");
}

TEST_F(FolderChooser, TellsWhyANewFolderCannotBeMadeAndKeepsTheNameForCorrection)
{
    forms.ShowFolderChooser();
    fs::create_directory(dati / "S12");
    Press("Form6", "NewFolder");
    auto& question = Control<QInputDialog>("Form6", "NewFolderName");
    const std::string tooLong(300, 'x');
    const std::vector<std::pair<std::string, std::string>> refused = {
        {"S12", "There is a folder or a file of this name already."},
        {"../S13", "A folder cannot have this name"},
        {"..", "A folder cannot have this name"},
        {"/", "A folder cannot have this name"},
        {"", "The folder needs a name."},
        {tooLong, "The name is too long."}};
    for (const auto& [name, reason] : refused) {
        question.setTextValue(QString::fromStdString(name));
        question.accept();
        EXPECT_TRUE(question.isVisible()) << name;
        EXPECT_EQ(question.textValue().toStdString(), name);
        const std::string shown = question.labelText().toStdString();
        EXPECT_NE(shown.find("The new folder could not be made."), std::string::npos) << shown;
        EXPECT_NE(shown.find(reason), std::string::npos) << shown;
        EXPECT_EQ(ShownPath(), dati) << name;
    }
    EXPECT_FALSE(fs::exists(folder / "S13"));
    question.setTextValue("S14");
    question.accept();
    EXPECT_FALSE(question.isVisible());
    EXPECT_EQ(ShownPath(), dati / "S14");
}

TEST_F(FolderChooser, TellsThatNothingCanBeWrittenWhereTheNewFolderWouldLie)
{
    forms.ShowFolderChooser();
    Press("Form6", "NewFolder");
    auto& question = Control<QInputDialog>("Form6", "NewFolderName");
    question.setTextValue("S12");
    fs::permissions(dati, fs::perms::owner_write, fs::perm_options::remove);
    {
        const OrdinaryUser user;
        question.accept();
    }
    EXPECT_NE(question.labelText().toStdString().find("Nothing can be written"), std::string::npos)
        << question.labelText().toStdString();
}

} // namespace tarvex::tests
