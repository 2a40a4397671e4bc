// A download by the whole program, through its window: manager_session FOLDER. The unit is at
// "com1" of that folder. Prints the processor time that this process took from the click on.

#include "line/peer.h"
#include "program/operator.h"
#include "program/program.h"

#include "platform/qt_application.h"

#include <QTest>

#include <exception>
#include <filesystem>
#include <iostream>

namespace
{

namespace fs = std::filesystem;
using namespace tarvex;

/// Brings the window to where an operator clicks on "download", and lets it come to rest.
void MakeReady(Program& program, const fs::path& folder)
{
    fs::create_directory(folder / "reports");
    program.ShowMainForm();
    if (!QTest::qWaitForWindowActive(program.MainForm()))
        throw std::runtime_error("the window does not become active");
    const tests::Operator atPanel(program.MainForm());
    program.State().reportFolder = folder / "reports";
    program.PanelModel().downloadButton.Enable();
    atPanel.ShowTab(2);
    atPanel.Type("numblocco", "03");
    QTest::qWait(500);
}

} // namespace

int main(int argc, char* argv[])
try {
    platform::Application application(argc, argv);
    if (argc != 2) throw std::invalid_argument("one folder");
    const fs::path folder = fs::absolute(argv[1]);
    fs::current_path(folder);
    Program program(folder, folder);
    MakeReady(program, folder);
    const double before = bench::ProcessorSeconds();
    tests::Operator(program.MainForm()).Click("command3d1");
    std::printf("%.6f\n", bench::ProcessorSeconds() - before);
    return 0;
} catch (const std::exception& failure) {
    std::cerr << "manager_session: " << failure.what() << '\n';
    return 1;
}
