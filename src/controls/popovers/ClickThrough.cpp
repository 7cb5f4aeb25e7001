#include "controls/popovers/ClickThrough.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#include <xcb/shape.h>

void letClicksThrough(const QWidget& window) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    const QWindow* handle = window.windowHandle();
    if (!x11 || !x11->connection() || !handle)
        return;
    // The part of the window that takes input: nothing.
    xcb_shape_rectangles(x11->connection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                         XCB_CLIP_ORDERING_UNSORTED, static_cast<xcb_window_t>(handle->winId()), 0,
                         0, 0, nullptr);
}
