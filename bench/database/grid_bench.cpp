// Measures the grid on a large table: grid_bench [RUNS [FOLDER [PICTURE]]]. PICTURE is a file for a
// picture of the grid.

#include "core/program_end.h"
#include "database/survey_world.h"
#include "panel/survey/form5.h"
#include "panel/widgets/look.h"
#include "platform/sqlite/survey_table_model.h"
#include "row.h"

#include <QApplication>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{

using namespace tarvex;

constexpr int kRows = 1'000'000;
constexpr int kPages = 100;

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

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

class GridBench
{
public:
    explicit GridBench(const std::filesystem::path& folder) : world_(folder, kRows, "''") {}

    void Run(int runs, const QString& picture)
    {
        std::vector<double> opening;
        std::vector<double> scrolling;
        for (int run = 0; run < runs; ++run) {
            opening.push_back(Milliseconds([&] { Open(); }));
            ScrollThrough(scrolling);
            if (!picture.isEmpty()) form_->grab().save(picture);
            form_.reset();
        }
        bench::Print(
            {"grid of 1,000,000 rows: opened and painted", Median(opening), "ms", "<= 50"});
        bench::Print({"grid of 1,000,000 rows: scrolled anywhere and painted", Median(scrolling),
                      "ms", "<= 20"});
        bench::Print({"grid of 1,000,000 rows: the same, the slowest of all",
                      *std::ranges::max_element(scrolling), "ms", ""});
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
    const int runs = argc > 1 ? std::stoi(argv[1]) : 5;
    GridBench bench(argc > 2 ? std::filesystem::path(argv[2])
                             : std::filesystem::temp_directory_path());
    bench.Run(runs, argc > 3 ? argv[3] : "");
    return 0;
}
