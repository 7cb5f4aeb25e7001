#pragma once

#include "data/AQTimePoint.h"

#include <QObject>
#include <QPoint>

#include <optional>

class AQCurveView;
class PointTable;
class QAction;

/// The menus of the curve, by right click and Menu key: one for the selected point, one for a
/// place.
class CurveMenu : public QObject {
    Q_OBJECT

public:
    /// What the menus offer that the window's menus offer too.
    struct Items {
        QAction& menuitemCopy;
        QAction& menuitemPaste;
        QAction& menuitemAddPoint;
        QAction& menuitemDeletePoint;
    };

    /// All must outlive this.
    CurveMenu(AQCurveView& curveView, PointTable& table, Items items, QObject* parent = nullptr);

private:
    void open(QPoint place, bool isForPoint, const std::optional<AQTimePoint>& there);

    AQCurveView& m_curveView;
    PointTable& m_table;
    Items m_items;
};
