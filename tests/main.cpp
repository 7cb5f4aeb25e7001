#include <gtest/gtest.h>

#include <spdlog/sinks/null_sink.h>
#include <spdlog/spdlog.h>

#include <QVariant>

#if __has_include(<QApplication>)
#include <QApplication>
using Application = QApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    Application application(argc, argv);
    application.setProperty("quitOnLastWindowClosed", false);
    // Every line is made, as in the running program, and shown to nobody.
    spdlog::set_default_logger(spdlog::null_logger_mt("tests"));
    return RUN_ALL_TESTS();
}
