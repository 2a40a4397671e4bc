// Measures the survey commands on large tables: survey_bench [FOLDER]. The figures wait for the
// disk that FOLDER lies on, or the folder for temporary files.

#include "database/survey_world.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace tarvex::bench
{

namespace
{

constexpr int kRuns = 7;

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void PrintRow(const char* what, int rows, double seconds, double reference, double limit)
{
    const double ratio = seconds / reference;
    std::printf("| %-44s | %9d | %10.2f | %10.2f | %5.2f | %5.1f | %-3s |\n", what, rows,
                seconds * 1000, reference * 1000, ratio, limit, ratio <= limit ? "yes" : "NO");
    (void)std::fflush(stdout);
}

void MeasureReadHeaders(const std::filesystem::path& folder)
{
    constexpr int kSmall = 1000;
    constexpr int kLarge = 1'000'000;
    SurveyWorld small(folder, kSmall, "''");
    SurveyWorld large(folder, kLarge, "''");
    const auto measure = [&](const char* what, void (SurveyWorld::*put)()) {
        std::vector<double> smallSeconds;
        std::vector<double> largeSeconds;
        for (int run = 0; run < kRuns; ++run) {
            (small.*put)();
            smallSeconds.push_back(small.ReadHeadersSeconds());
            (large.*put)();
            largeSeconds.push_back(large.ReadHeadersSeconds());
        }
        PrintRow(what, kLarge, Median(largeSeconds), Median(smallSeconds), 2);
    };
    measure("Read Headers, 30 known tubes / 1,000 rows", &SurveyWorld::PutKnownHeaders);
    measure("Read Headers, 30 new tubes / 1,000 rows", &SurveyWorld::PutNewHeaders);
}

void MeasureWriteHeaders(const std::filesystem::path& folder, const char* what, int rows,
                         const std::function<void(SurveyWorld&)>& prepare)
{
    SurveyWorld world(folder, rows, "''");
    std::vector<double> command;
    std::vector<double> plain;
    for (int run = 0; run < kRuns; ++run) {
        prepare(world);
        command.push_back(world.WriteHeadersSeconds());
        prepare(world);
        plain.push_back(world.PlainPassSeconds());
    }
    PrintRow(what, rows, Median(command), Median(plain), 3);
}

void MeasureAll(const std::filesystem::path& folder)
{
    std::printf("Medians of %d runs, in %s\n\n", kRuns, folder.c_str());
    std::printf("| %-44s | %-9s | %-10s | %-10s | %-5s | %-5s | met |\n", "what / reference",
                "rows", "ms", "ref. ms", "ratio", "limit");
    std::printf("|---|---|---|---|---|---|---|\n");
    MeasureReadHeaders(folder);
    MeasureWriteHeaders(folder, "Write Headers, 29 marks / plain pass", 100'000,
                        [](SurveyWorld& world) { world.MarkRows(); });
    MeasureWriteHeaders(folder, "Write Headers, no mark / plain pass", 100'000,
                        [](SurveyWorld&) {});
    // Each of these rows is a commit of its own.
    MeasureWriteHeaders(folder, "Write Headers, all marks Null / plain pass", 500,
                        [](SurveyWorld& world) { world.Run("UPDATE tar_vex SET b = NULL"); });
}

} // namespace

} // namespace tarvex::bench

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    tarvex::bench::MeasureAll(argc > 1 ? std::filesystem::path(argv[1])
                                       : std::filesystem::temp_directory_path());
    return 0;
}
