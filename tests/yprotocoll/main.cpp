#include <QCoreApplication>

#include <gtest/gtest.h>
#include <spdlog/spdlog.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    spdlog::set_level(spdlog::level::off);
    return RUN_ALL_TESTS();
}
