// Measures the survey commands on large tables: survey_bench [RUNS [FOLDER]]. The figures wait for
// the disk that FOLDER lies on, or the folder for temporary files.

#include "database/survey_world.h"
#include "row.h"

#include <QCoreApplication>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

namespace tarvex::bench
{

namespace
{

constexpr int kSmall = 1000;
constexpr int kLarge = 1'000'000;

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// A time beside another one, both in milliseconds.
void PrintRatio(const std::string& what, double seconds, double reference, const char* toReach)
{
    Print(
        {what + ", against " + Shown(1000 * reference) + " ms", seconds / reference, "x", toReach});
}

/// Megabytes of this process that are in memory at this moment.
double ResidentMegabytes()
{
    std::ifstream file("/proc/self/statm");
    double size = 0;
    double resident = 0;
    file >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

class SurveyBench
{
public:
    SurveyBench(int runs, std::filesystem::path folder) : runs_(runs), folder_(std::move(folder)) {}

    void Run()
    {
        SurveyWorld small(folder_, kSmall, "''");
        SurveyWorld large(folder_, kLarge, "''");
        ReadHeaders("Read Headers, 30 known tubes of 1,000,000 / of 1,000", small, large,
                    &SurveyWorld::PutKnownHeaders);
        ReadHeaders("Read Headers, 30 new tubes to 1,000,000 / to 1,000", small, large,
                    &SurveyWorld::PutNewHeaders);
        WriteHeaders("Write Headers, 1,000,000 rows, 29 marks / prepared pass", large,
                     [](SurveyWorld& world) { world.MarkRows(); });
        WriteHeaders("Write Headers, 1,000,000 rows, no mark / prepared pass", large,
                     [](SurveyWorld&) {});
        WriteHeaders("Write Headers, 1,000,000 rows, all marks Null / prepared pass", large,
                     [](SurveyWorld& world) { world.Run("UPDATE tar_vex SET b = NULL"); });
        Print({"memory that Write Headers has taken by then", taken_, "MB", "<= 16"});
        Print(
            {"files of the database at rest", static_cast<double>(large.FileCount()), "", "<= 1"});
    }

private:
    void ReadHeaders(const char* what, SurveyWorld& small, SurveyWorld& large,
                     void (SurveyWorld::*put)())
    {
        std::vector<double> smallSeconds;
        std::vector<double> largeSeconds;
        for (int run = 0; run < runs_; ++run) {
            (small.*put)();
            smallSeconds.push_back(small.ReadHeadersSeconds());
            (large.*put)();
            largeSeconds.push_back(large.ReadHeadersSeconds());
        }
        PrintRatio(what, Median(largeSeconds), Median(smallSeconds), "<= 1.2");
    }

    void WriteHeaders(const char* what, SurveyWorld& world,
                      const std::function<void(SurveyWorld&)>& prepare)
    {
        std::vector<double> command;
        std::vector<double> plain;
        for (int run = 0; run < runs_; ++run) {
            prepare(world);
            const double before = ResidentMegabytes();
            command.push_back(world.WriteHeadersSeconds());
            taken_ = std::max(taken_, ResidentMegabytes() - before);
            prepare(world);
            plain.push_back(world.PlainPassSeconds());
        }
        PrintRatio(what, Median(command), Median(plain), "<= 1.2");
    }

    int runs_;
    std::filesystem::path folder_;
    double taken_ = 0;
};

} // namespace

} // namespace tarvex::bench

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    tarvex::bench::SurveyBench(argc > 1 ? std::stoi(argv[1]) : 5,
                               argc > 2 ? std::filesystem::path(argv[2])
                                        : std::filesystem::temp_directory_path())
        .Run();
    return 0;
}
