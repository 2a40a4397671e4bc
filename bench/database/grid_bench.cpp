// Measures the grid on a large table: grid_bench [FOLDER [PICTURE]]. PICTURE is a file for a
// picture of the grid.

#include "core/program_end.h"
#include "database/survey_world.h"
#include "panel/survey/form5.h"
#include "panel/widgets/look.h"
#include "platform/sqlite/survey_table_model.h"

#include <QApplication>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace
{

using namespace tarvex;

constexpr int kRows = 100'000;
constexpr int kRuns = 7;
constexpr int kPages = 500;

class NoBoxes : public MessageBoxes
{
public:
    void Critical(std::string_view, std::string_view) override {}
    bool AskOkCancel(std::string_view) override { return false; }
};

double Milliseconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

void Print(const char* what, std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    std::printf("| %-32s | %10.2f | %10.2f |\n", what, values[values.size() / 2], values.back());
}

class GridBench
{
public:
    explicit GridBench(const std::filesystem::path& folder) : world_(folder, kRows, "''") {}

    void Run(const QString& picture)
    {
        std::vector<double> opening;
        std::vector<double> scrolling;
        for (int run = 0; run < kRuns; ++run) {
            opening.push_back(Milliseconds([&] { Open(); }));
            ScrollThrough(scrolling);
            if (!picture.isEmpty()) form_->grab().save(picture);
            form_.reset();
        }
        std::printf("%d rows, %d openings\n\n", kRows, kRuns);
        std::printf("| %-32s | %-10s | %-10s |\n|---|---|---|\n", "what", "median ms", "worst ms");
        Print("open and paint", opening);
        Print("scroll a page and paint", scrolling);
    }

private:
    void Open()
    {
        form_ = std::make_unique<panel::Form5>(
            handlers_,
            std::make_unique<platform::SurveyTableModel>([this] { return world_.DatabasePath(); }),
            nullptr);
        panel::ApplyLook(*form_);
        form_->show();
        form_->grab(); // has it painted
    }

    void ScrollThrough(std::vector<double>& times)
    {
        auto* grid = form_->findChild<QTableView*>();
        QScrollBar* bar = grid->verticalScrollBar();
        for (int page = 1; page <= kPages; ++page) {
            times.push_back(Milliseconds([&] {
                bar->setValue(
                    static_cast<int>(static_cast<double>(bar->maximum()) * page / kPages));
                grid->viewport()->grab();
            }));
        }
    }

    bench::SurveyWorld world_;
    ProgramEnd end_;
    NoBoxes boxes_;
    Handlers handlers_{end_, boxes_};
    std::unique_ptr<panel::Form5> form_;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    GridBench bench(argc > 1 ? std::filesystem::path(argv[1])
                             : std::filesystem::temp_directory_path());
    bench.Run(argc > 2 ? argv[2] : "");
    return 0;
}
