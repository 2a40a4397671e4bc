#include "support/nameless_widgets.h"

#include "core/start_up.h"
#include "panel/forms/forms_test.h"

namespace tarvex::tests
{

namespace
{

TEST_F(FormsTest, EveryWidgetOfEverySideFormHasAName)
{
    LoadMainForm(panel, state, [this] { return folder.Path(); });
    forms.ShowSplash([] {});
    forms.ShowAbout();
    forms.ShowFolderChooser();
    forms.ShowPortDialog();
    forms.ShowClockDialog();
    forms.ShowDelayDialog();
    const WindowsOnView found = WalkWindows();
    EXPECT_EQ(found.count, 6);
    EXPECT_EQ(found.nameless, std::vector<std::string>{});
}

} // namespace

} // namespace tarvex::tests
