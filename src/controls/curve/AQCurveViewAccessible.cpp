#include "controls/curve/AQCurveViewAccessible.h"

#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/AQCurveView.h"

#include <algorithm>

AQCurveViewAccessible::AQCurveViewAccessible(AQCurveView& view)
    : QAccessibleWidget(&view, QAccessible::List) {}

AQCurveView* AQCurveViewAccessible::view() const {
    return qobject_cast<AQCurveView*>(widget());
}

int AQCurveViewAccessible::childCount() const {
    return view() ? static_cast<int>(view()->pointViews().size()) : 0;
}

QAccessibleInterface* AQCurveViewAccessible::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    return QAccessible::queryAccessibleInterface(
        view()->pointViews()[static_cast<std::size_t>(index)]);
}

int AQCurveViewAccessible::indexOfChild(const QAccessibleInterface* child) const {
    if (!view() || !child)
        return -1;
    const auto& points = view()->pointViews();
    const auto found = std::ranges::find(points, child->object());
    return found == points.end() ? -1 : static_cast<int>(found - points.begin());
}

QAccessibleInterface* AQCurveViewAccessible::focusChild() const {
    return view() && view()->hasFocus()
               ? QAccessible::queryAccessibleInterface(view()->selectedPoint())
               : nullptr;
}
