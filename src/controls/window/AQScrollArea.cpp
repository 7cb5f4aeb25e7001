#include "controls/window/AQScrollArea.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int margin = 8;

} // namespace

AQScrollArea::AQScrollArea(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        // What is pressed stays under the pointer.
        if (now && isAncestorOf(now) && QApplication::mouseButtons() == Qt::NoButton)
            ensureWidgetVisible(now, margin, margin);
    });
}

QSize AQScrollArea::minimumSizeHint() const {
    if (!widget())
        return {};
    const QSize contents = widget()->minimumSizeHint();
    const int width = contents.width() + verticalScrollBar()->sizeHint().width();
    return {std::min(width, screen()->availableSize().width() - margin), contents.height()};
}

bool AQScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}
