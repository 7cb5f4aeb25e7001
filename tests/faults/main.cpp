#include <gtest/gtest.h>

#include <QApplication>

#include <spdlog/sinks/null_sink.h>
#include <spdlog/spdlog.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // Every line is made, as in the running program, and shown to nobody.
    spdlog::set_default_logger(spdlog::null_logger_mt("faults"));
    return RUN_ALL_TESTS();
}
