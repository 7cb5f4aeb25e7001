// A point of the curve dragged in the program's window, from the mouse event to the painted frame.

#include "Benches.h"
#include "Measure.h"
#include "SampleProgram.h"
#include "Table.h"
#include "WholeProgram.h"
#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/AQCurveView.h"
#include "ui_MainWindow.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEventLoop>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

namespace {

constexpr double frameTime = 1000.0 / 60.0; // ms

/// Waits for the frames of a window, and counts the paints of one control in it.
class Frames : public QObject {
public:
    Frames(QWidget& window, QWidget& control) : m_window(window), m_control(control) {
        window.installEventFilter(this);
        control.installEventFilter(this);
    }
    /// Runs the event loop until the window has painted what is pending.
    void waitForOne() { m_loop.exec(); }
    int paintsOfControl = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &m_control && event->type() == QEvent::Paint)
            ++paintsOfControl;
        if (watched != &m_window || event->type() != QEvent::UpdateRequest)
            return false;
        watched->event(event);
        m_loop.quit();
        return true;
    }

private:
    QWidget& m_window;
    QWidget& m_control;
    QEventLoop m_loop;
};

void sendMouse(QWidget& target, QEvent::Type type, QPointF inWindow) {
    const QPointF local = target.mapFrom(target.window(), inWindow);
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, local, target.window()->mapToGlobal(inWindow), button, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&target, &event);
}

/// From before the event to after the frame, in milliseconds.
template <typename Event>
double measureStep(Frames& frames, Event event) {
    return milliseconds([&] {
        event();
        frames.waitForOne();
    });
}

/// The floor: a control that fills itself with a gradient at each event.
class PlainControl : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QLinearGradient gradient(m_shift, 0, width(), 0);
        gradient.setColorAt(0.0, Qt::white);
        gradient.setColorAt(1.0, Qt::blue);
        QPainter(this).fillRect(rect(), gradient);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        m_shift = event->position().y();
        update();
    }

private:
    double m_shift = 0.0;
};

void drag(benchmark::State& state) {
    WholeProgram program({});
    program.data.sequence().replacePoints(SampleProgram::points());
    program.data.sequence().notifyDataChange(nullptr, false);
    program.delegate.applicationDidFinishLaunching({});
    MainWindow& window = program.delegate.window();
    AQCurveView& curve = window.curveView();
    QWidget plainWindow;
    PlainControl plain;
    plain.setParent(&plainWindow);
    plainWindow.resize(window.size());
    plain.setGeometry(curve.geometry());
    plainWindow.show();
    if (!QTest::qWaitForWindowExposed(&window) || !QTest::qWaitForWindowExposed(&plainWindow))
        qFatal("The window did not appear.");

    AQCurvePoint& point = *curve.pointViews()[SampleProgram::pointCount / 2];
    QPointF at = point.mapTo(&window, QRectF(point.rect()).center());
    Frames frames(window, curve);
    Frames plainFrames(plainWindow, plain);
    sendMouse(point, QEvent::MouseButtonPress, at);
    at.ry() += 10.0;
    sendMouse(point, QEvent::MouseMove, at);
    QTest::qWait(100); // the selection has been shown everywhere
    frames.paintsOfControl = 0;

    Samples latency;
    Samples floor;
    double direction = 1.0;
    int steps = 0;
    for (auto _ : state) {
        if (++steps % 60 == 0)
            direction = -direction;
        at.ry() += direction;
        latency.add(measureStep(frames, [&] { sendMouse(point, QEvent::MouseMove, at); }));
        floor.add(measureStep(plainFrames, [&] { sendMouse(plain, QEvent::MouseMove, at); }));
    }
    Table::add({"drag, 20 points: mouse event to painted frame", "ms", latency.median(),
                floor.median(), "one gradient, the same way", Promise::atMost(frameTime)});
    Table::add({"drag: repaints of the curve a step", "",
                static_cast<double>(frames.paintsOfControl) / steps, 1.0, "one a step",
                Promise::atMost(1.0)});
}

} // namespace

void registerDragBenches() {
    benchmark::RegisterBenchmark("drag", drag)->Iterations(300);
}
