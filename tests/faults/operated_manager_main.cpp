#include "faults/operated_manager.h"
#include "platform/file_size_limit.h"
#include "platform/qt_application.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    using namespace tarvex;
    platform::FailWritesAtTheSizeLimit();
    platform::Application application(argc, argv);
    try {
        tests::OperatedManager manager;
        for (int index = 1; index < argc; ++index)
            manager.TakeEarly(argv[index]);
        return manager.Run();
    } catch (const std::exception& failure) {
        std::cerr << "operated_manager: " << failure.what() << '\n';
        return 3;
    }
}
