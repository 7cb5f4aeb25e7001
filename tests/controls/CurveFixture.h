#pragma once

#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/AQCurveView.h"
#include "controls/popovers/AQCurvePointPopover.h"
#include "data/AQDataSource.h"

#include <QTest>

#include <gtest/gtest.h>

#include <vector>

/// A shown curve view of 1000 x 480 with the default program: an hour is 36 2/3 pixels and 10 % are
/// 40.
class CurveFixture : public testing::Test {
protected:
    void SetUp() override {
        window.setGeometry(50, 200, 1000, 480);
        view.resize(window.size());
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
    }
    AQCurvePoint* point(int row) const {
        return view.pointViews().at(static_cast<std::size_t>(row));
    }
    void show(std::vector<AQTimePoint> points) {
        document.sequence().replacePoints(std::move(points));
        document.sequence().notifyDataChange(nullptr, false);
    }
    void select(int row) { document.sequence().notifySelectionChange(row, nullptr); }

    NotificationCenter notifications;
    AQDataSource document{notifications};
    QWidget window;
    AQCurveView view{document.sequence(), document.selection(), &window};
};
