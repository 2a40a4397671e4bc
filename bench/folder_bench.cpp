#include "panel/forms/directory_list.h"
#include "support/temporary_folder.h"

#include <QApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <malloc.h>
#include <string>

namespace
{

double Milliseconds(std::chrono::steady_clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Lists a folder in the list of the folder chooser, up to the picture on the screen.
void Measure(const std::filesystem::path& folder, std::size_t count)
{
    tarvex::panel::DirectoryList list(nullptr);
    list.resize(560, 400);
    list.show();
    list.SetFolder(folder.parent_path());
    list.grab();
    const std::size_t before = mallinfo2().uordblks;
    const auto start = std::chrono::steady_clock::now();
    list.SetFolder(folder);
    QCoreApplication::processEvents();
    list.grab();
    const auto time = std::chrono::steady_clock::now() - start;
    const std::size_t taken = mallinfo2().uordblks - before;
    std::printf("%8zu folders %8.1f ms %8.2f MB\n", count, Milliseconds(time),
                static_cast<double>(taken) / 1e6);
}

} // namespace

/// Prints how long the folder chooser takes to list a full folder, and how much memory.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    for (const std::size_t count : {1'000U, 16'000U, 50'000U}) {
        const tarvex::tests::TemporaryFolder folder;
        for (std::size_t number = 0; number < count; ++number)
            std::filesystem::create_directories(folder / "full" /
                                                ("borehole " + std::to_string(number)));
        Measure(folder / "full", count);
    }
}
