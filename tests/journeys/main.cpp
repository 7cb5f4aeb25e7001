#include "journeys/JourneySession.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <atspi/atspi.h>

#include <cstdio>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    try {
        const JourneySession session;
        atspi_init();
        const int result = RUN_ALL_TESTS();
        atspi_exit();
        return result;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "no desktop for the journeys: %s\n", error.what());
        return 1;
    }
}
