#pragma once

#include <QInputDialog>

#include <filesystem>

namespace tarvex::panel
{

/// Asks for the name of a folder and makes it inside another. While the name cannot be made it
/// stays, with the name kept for correction and the reason above it. Deletes itself when closed.
class NewFolderBox final : public QInputDialog
{
public:
    /// Asks over `parent`; the folder is made below `inside`.
    NewFolderBox(std::filesystem::path inside, QWidget* parent);

    /// The folder that it made; empty until then.
    const std::filesystem::path& Made() const { return made_; }

    /// Makes the folder and closes; where it cannot be made, says why and stays.
    void accept() override;

private:
    void Refuse(const QString& reason);

    std::filesystem::path inside_;
    std::filesystem::path made_;
};

} // namespace tarvex::panel
