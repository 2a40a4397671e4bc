#include "panel/forms/side_forms.h"

#include "core/code_page.h"
#include "panel/dialogs/clock_dialog.h"
#include "panel/dialogs/delay_dialog.h"
#include "panel/dialogs/port_dialog.h"
#include "panel/forms/aboutus.h"
#include "panel/forms/credits.h"
#include "panel/forms/preloader.h"
#include "panel/widgets/open_form.h"

#include <string>

namespace tarvex::panel
{

namespace
{
constexpr const char* kManualName = "TARVEXmanuale.pdf";
} // namespace

SideForms::SideForms(const Form6::World& world, const DialogContext& dialogs, Shell& shell,
                     std::filesystem::path programFolder)
    : world_(world), dialogs_(dialogs), shell_(shell), programFolder_(std::move(programFolder))
{
}

SideForms::~SideForms()
{
    delete preloader_;
    delete aboutus_;
    delete form6_;
    delete portDialog_;
    delete clockDialog_;
    delete delayDialog_;
}

template <class Form, class Loader>
void SideForms::Open(QPointer<Form>& form, const Loader& load)
{
    OpenForm(form, load, look_);
}

void SideForms::ShowSplash(std::function<void()> next)
{
    preloader_ = new Preloader(world_.handlers, std::move(next));
    look_(*preloader_);
    preloader_->show();
}

void SideForms::ShowAbout()
{
    Open(aboutus_, [this] { return new AboutUs(world_.handlers, mainForm_); });
}

void SideForms::ShowFolderChooser()
{
    Open(form6_, [this] { return new Form6(world_, mainForm_); });
}

void SideForms::OpenManual()
{
    ShellRequest request;
    request.operation = "open";
    request.file = "https://" + std::string(kMakerHost) + "/manuals/" + kManualName;
    request.directory = code_page::Shown(programFolder_ / kManualName);
    request.showCommand = 0;
    shell_.Execute(request);
}

void SideForms::ShowPortDialog()
{
    Open(portDialog_, [this] { return new PortDialog(dialogs_, mainForm_); });
}

void SideForms::ShowClockDialog()
{
    Open(clockDialog_, [this] { return new ClockDialog(dialogs_, mainForm_); });
}

void SideForms::ShowDelayDialog()
{
    Open(delayDialog_, [this] { return new DelayDialog(dialogs_, mainForm_); });
}

} // namespace tarvex::panel
