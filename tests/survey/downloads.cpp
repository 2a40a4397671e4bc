#include "survey/downloads.h"

#include "download/block_download.h"
#include "support/test_program.h"
#include "unit/fill_text.h"
#include "unit/unit.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{

namespace
{
/// Long after the last page of the longest survey.
constexpr Milliseconds kPatience = 3'600'000;

std::vector<unit::Fault> FaultsOf(const std::string& fault)
{
    if (fault.empty()) return {};
    return {unit::ParseFault(fault)};
}

unit::Memory MemoryOf(const unit::Fill& fill)
{
    auto memory = unit::BlankMemory();
    unit::FillBlock(memory, fill.block, fill.survey);
    return memory;
}

/// Puts the simulated unit at the far end of the program's port.
void Connect(TestProgram& program, unit::Unit& far)
{
    program.port.unit = [&](std::string_view bytes) {
        const unit::Time now{program.world.Now() * 1000};
        for (const auto& reply : far.Feed(bytes, now))
            program.world.After(reply.after.count() / 1000 + 1,
                                [&program, reply] { program.port.Receive(reply.bytes); });
    };
}

std::string NameOf(const unit::BlockHeader& header)
{
    const auto padded = [](std::string text, std::size_t width) {
        text.resize(width, ' ');
        return text;
    };
    return padded(header.client, 8) + "-" + padded(header.site, 8) + "-" + padded(header.tube, 4) +
           "-" + padded(header.readout, 2) + "-dat.dat";
}
} // namespace

std::filesystem::path Download(const std::filesystem::path& folder, const std::string& fill,
                               const std::string& fault)
{
    const auto parsed = unit::ParseFill(fill);
    unit::Unit far(MemoryOf(parsed), FaultsOf(fault));
    TestProgram program;
    Connect(program, far);
    program.state.reportFolder = folder;
    program.panel.downloadBlock.SetText(parsed.block < 10 ? "0" + std::to_string(parsed.block)
                                                          : std::to_string(parsed.block));
    program.world.EndProgramAt(kPatience); // a broken line leaves the manager waiting
    program.ClickLink([&](DeviceLink& link) {
        BlockDownload(program.panel, program.state, link, program.view, program.world);
    });
    return folder / NameOf(parsed.survey.header);
}

std::filesystem::path DataReportOf(const std::filesystem::path& headReport)
{
    auto name = headReport.filename().string();
    return headReport.parent_path() / name.replace(name.size() - 7, 3, "num");
}

} // namespace tarvex::tests
