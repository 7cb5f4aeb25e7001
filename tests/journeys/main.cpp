#include <gtest/gtest.h>

#include <QCoreApplication>

#include <atspi/atspi.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    atspi_init();
    const int result = RUN_ALL_TESTS();
    atspi_exit();
    return result;
}
