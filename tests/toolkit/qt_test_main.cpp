// Runs the tests that have a QApplication of their own.
#include <gtest/gtest.h>

#include <QApplication>

#include "testing/play_qt/offscreen.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    brindle::toolkit_test::PrepareOffscreen();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
