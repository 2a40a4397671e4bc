#include "panel/forms/forms_test.h"

#include "core/code_page.h"

#include <QApplication>

namespace tarvex::tests
{

class Manual : public FormsTest
{
};

TEST_F(Manual, IsAskedOfTheShellAsTheWebCopy)
{
    WriteFile(folder / "TARVEXmanuale.pdf", "a manual beside the program changes nothing");
    forms.OpenManual();
    ASSERT_EQ(shell.requests.size(), 1U);
    const ShellRequest& request = shell.requests.front();
    EXPECT_EQ(request.operation, "open");
    EXPECT_EQ(request.file, "https://www.tarvex.example/manuals/TARVEXmanuale.pdf");
    EXPECT_EQ(request.parameters, "");
    EXPECT_EQ(request.directory, code_page::Shown(folder / "bin" / "TARVEXmanuale.pdf"));
    EXPECT_EQ(request.showCommand, 0);
}

TEST_F(Manual, OpensNoWindowOfOurs)
{
    forms.OpenManual();
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
}

} // namespace tarvex::tests
