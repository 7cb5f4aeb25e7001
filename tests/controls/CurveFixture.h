#pragma once

#include "controls/AQCurvePoint.h"
#include "controls/AQCurvePointPopover.h"
#include "controls/AQCurveView.h"
#include "data/AQDataSource.h"

#include <QTest>

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

/// A shown curve view of 1000 x 480 with the default program, and all that it announces.
class CurveFixture : public testing::Test {
protected:
    using Cell = std::tuple<int, int, const QObject*>;
    using Selection = std::pair<int, const QObject*>;

    void SetUp() override {
        QObject::connect(&notifications, &NotificationCenter::cellChanged,
                         [this](int row, int column, const QObject* sender) {
                             cells.emplace_back(row, column, sender);
                         });
        QObject::connect(
            &notifications, &NotificationCenter::sectionChanged,
            [this](int row, const QObject* sender) { selections.emplace_back(row, sender); });
        view.setDocument(document);
        window.resize(1000, 480);
        window.move(50, 200);
        view.resize(window.size());
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
    }

    AQCurvePoint* point(int row) const {
        return view.pointViews().at(static_cast<std::size_t>(row));
    }
    double brightness(int row) const { return document.sequence().at(row).brightness; }
    QPoint centre(int row) const {
        return view.curveGeometry().position(document.sequence().at(row)).toPoint();
    }
    void press(int row) { QTest::mousePress(point(row), Qt::LeftButton, {}, middle); }
    /// Moves the pointer, pressed on a point, to a height of the view.
    void dragTo(int row, int y) {
        const QPoint place(centre(row).x(), y);
        QMouseEvent move(QEvent::MouseMove, point(row)->mapFrom(&view, place),
                         view.mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(point(row), &move);
    }
    void release(int row, QPoint place = middle) {
        QTest::mouseRelease(point(row), Qt::LeftButton, {}, place);
    }
    void show(std::vector<AQTimePoint> points) {
        document.sequence().replacePoints(std::move(points));
        document.sequence().notifyDataChange(nullptr, false);
    }

    static constexpr QPoint middle{12, 12};
    NotificationCenter notifications;
    AQDataSource document{notifications};
    QWidget window;
    AQCurveView view{&window};
    std::vector<Cell> cells;
    std::vector<Selection> selections;
};
