// Opening and checking one report, and listing a folder of ten thousand surveys.
#include "row.h"
#include "survey/checks/check.h"
#include "survey/downloads.h"
#include "survey/files/listing.h"
#include "survey/files/load.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace
{

namespace fs = std::filesystem;

/// The middle of the times of several runs, in milliseconds.
double MedianTime(int runs, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        work();
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
    }
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void BenchReport(const std::string& what, const char* fill)
{
    const tarvex::tests::TemporaryFolder folder;
    const auto report = tarvex::tests::Download(folder.Path(), fill);
    const double time = MedianTime(201, [&] {
        if (!tarvex::survey::Check(tarvex::survey::Load(report)).Good()) std::abort();
    });
    tarvex::bench::Print({"survey opened and checked, " + what, time, "ms", "<= 5"});
}

void BenchListing()
{
    constexpr int kSurveys = 10'000;
    const tarvex::tests::TemporaryFolder folder;
    const auto head = tarvex::tests::Download(folder.Path(), "1:depth=20");
    const auto data = tarvex::tests::DataReportOf(head);
    for (int i = 0; i < kSurveys; ++i) {
        const auto part = [](std::string name, std::size_t width, int number) {
            const auto digits = std::to_string(number);
            return name.append(width - name.size() - digits.size(), '0') + digits;
        };
        const auto name = part("CLIENT", 8, i % 20) + "-" + part("SITE", 8, i % 7) + "-" +
                          part("T", 4, i % 50) + "-" + part("", 2, i / 1000) + "-" +
                          std::to_string(i);
        fs::copy_file(head, folder / (name + "-dat.dat"));
        fs::copy_file(data, folder / (name + "-num.dat"));
    }
    const double time = MedianTime(5, [&] {
        if (tarvex::survey::ListFolder(folder.Path()).size() != kSurveys + 1) std::abort();
    });
    tarvex::bench::Print({"10,000 surveys listed", time, "ms", "<= 2000"});
}

} // namespace

int main()
{
    BenchReport("100 m, two guides", "1:depth=100");
    BenchReport("120 m, four guides", "1:depth=120,guides=4");
    BenchListing();
    return 0;
}
