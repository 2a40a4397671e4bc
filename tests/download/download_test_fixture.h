#pragma once

#include "download/block_download.h"

#include "support/logic_test.h"
#include "support/report_bytes.h"
#include "support/survey.h"

namespace tarvex::tests
{

/// A program whose operator has chosen a folder for the reports and the first block.
class DownloadTest : public LogicTest
{
protected:
    DownloadTest() { ChooseFolder("reports"); }

    /// Makes a folder in the test's own and chooses it.
    void ChooseFolder(const std::string& name)
    {
        std::filesystem::create_directory(folder / name);
        state.reportFolder = folder / name;
        panel.downloadButton.Enable();
    }

    void Download()
    {
        ClickLink([&](DeviceLink& link) { BlockDownload(panel, state, link, view, world); });
    }

    void Download(const std::string& block)
    {
        panel.downloadBlock.SetText(block);
        Download();
    }

    /// The bytes of a file in the folder of the reports.
    std::string Report(const std::filesystem::path& name) const
    {
        return FileBytes(state.reportFolder / name);
    }

    std::vector<std::string> Reports() const { return NamesIn(state.reportFolder); }

    /// Depths of the rows of the work file, in its order.
    std::vector<std::string> DepthsOfRows() const
    {
        const std::string file = Report("datiram.dat");
        std::vector<std::string> depths;
        for (std::size_t row = 2; (row + 1) * 113 <= file.size(); ++row)
            depths.push_back(file.substr(row * 113 + 40, 5));
        return depths;
    }
};

} // namespace tarvex::tests
