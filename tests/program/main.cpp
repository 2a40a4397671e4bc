#include "platform/qt_application.h"

#include <gtest/gtest.h>

int main(int argc, char* argv[])
{
    ::testing::InitGoogleTest(&argc, argv);
    tarvex::platform::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
