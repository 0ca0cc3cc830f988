#include "Robot.h"

#include <gtest/gtest.h>

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    folimark::test::StartRobot(arguments[0]);
    folimark::test::SetFailureHandler([](const std::string& what) { ADD_FAILURE() << what; });
    return RUN_ALL_TESTS();
}
