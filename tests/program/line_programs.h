#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

#include <filesystem>
#include <vector>

namespace tarvex::tests
{

/// The programs at the far end of a line, as processes of their own.
class LinePrograms
{
public:
    virtual ~LinePrograms() = default;

    /// True once nothing more will be said but by the manager.
    virtual bool AtTheEnd() = 0;

    /// Ends the programs in order; what the manager said otherwise than the record.
    virtual QStringList Finish() = 0;
};

/// A unit that answers from a record, as fast as it can.
class ReplayedLine : public LinePrograms
{
public:
    ReplayedLine(const std::filesystem::path& record, const std::filesystem::path& link);
    bool AtTheEnd() override;
    QStringList Finish() override;

private:
    QProcess unit_;
    QStringList said_;
};

/// A simulated unit at the pace of the line, with a tap that writes the record.
class TappedLine : public LinePrograms
{
public:
    /// `folder` is where the adapter's link lies.
    TappedLine(const std::vector<std::string>& unitOptions, const std::filesystem::path& folder,
               const std::filesystem::path& record, const std::filesystem::path& link);
    bool AtTheEnd() override;
    QStringList Finish() override;

private:
    std::filesystem::path record_;
    QProcess unit_;
    QProcess tap_;
    std::uintmax_t size_ = 0; // of the record, when it was last looked at
    QElapsedTimer unchanged_;
};

} // namespace tarvex::tests
