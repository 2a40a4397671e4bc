#pragma once

#include "core/shell.h"
#include "panel/dialogs/settings_dialog.h"
#include "panel/forms/form6.h"
#include "panel/window/forms.h"

#include <QPointer>

#include <filesystem>
#include <functional>
#include <utility>

namespace tarvex::panel
{

class AboutUs;
class Preloader;

/// The small windows that go with the main form, one instance of each: opening an open one raises
/// it, closing unloads it, and the next opening loads it again. None of them is modal.
class SideForms final : public Forms
{
public:
    /// The manual's local name goes with `programFolder` into the request that opens it.
    SideForms(const Form6::World& world, const DialogContext& dialogs, Shell& shell,
              std::filesystem::path programFolder);
    ~SideForms() override;
    SideForms(const SideForms&) = delete;
    SideForms& operator=(const SideForms&) = delete;

    /// The window that the others stay above; without one each is on its own. It must outlive the
    /// next opening, not this object.
    void StandAbove(QWidget* mainForm) { mainForm_ = mainForm; }

    /// Run on each form when it is loaded: gives it the look of the main form.
    void Dress(std::function<void(QWidget&)> look) { look_ = std::move(look); }

    /// Shows the splash; `next` is run when its time is over, and shows the main form.
    void ShowSplash(std::function<void()> next);

    void ShowAbout() override;
    void ShowFolderChooser() override;

    /// Asks the shell for the web copy of the manual. Nothing happens when that fails.
    void OpenManual() override;

    void ShowPortDialog() override;
    void ShowClockDialog() override;
    void ShowDelayDialog() override;
    void ShowDatabasePanel() override { showDatabasePanel_(); }

    /// What opens the database panel, which is none of these forms.
    void OpenDatabasePanelBy(std::function<void()> show) { showDatabasePanel_ = std::move(show); }

private:
    template <class Form, class Loader>
    void Open(QPointer<Form>& form, const Loader& load);

    Form6::World world_;
    DialogContext dialogs_;
    Shell& shell_;
    std::filesystem::path programFolder_;
    QPointer<QWidget> mainForm_;
    std::function<void(QWidget&)> look_ = [](QWidget&) {};
    QPointer<Preloader> preloader_;
    QPointer<AboutUs> aboutus_;
    QPointer<Form6> form6_;
    std::function<void()> showDatabasePanel_ = [] {};
    QPointer<QWidget> portDialog_;
    QPointer<QWidget> clockDialog_;
    QPointer<QWidget> delayDialog_;
};

} // namespace tarvex::panel
