#include "controls/popovers/RefusalTip.h"

#include "controls/popovers/ClickThrough.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QToolTip>
#include <QWindow>

#include <algorithm>
#include <chrono>

namespace {

using namespace std::chrono_literals;
constexpr auto shownFor = 6s;
constexpr int space = 4;

} // namespace

RefusalTip::RefusalTip(QWidget& owner)
    : QLabel(&owner, Qt::ToolTip | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus),
      m_owner(owner) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    setMargin(space);
    setPalette(QToolTip::palette());
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &QWidget::hide);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &QWidget::hide);
    owner.installEventFilter(this);
}

void RefusalTip::tell(const QString& reason) {
    setText(reason);
    adjustSize();
    const QRect screen = m_owner.screen()->availableGeometry();
    QPoint place = m_owner.mapToGlobal(QPoint(0, m_owner.height() + 1));
    if (place.y() + height() > screen.bottom())
        place.setY(m_owner.mapToGlobal(QPoint(0, -height() - 1)).y());
    place.setX(
        std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - width())));
    move(place);
    show();
    letClicksThrough(*this);
    m_timer.start(shownFor);
}

bool RefusalTip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide || event->type() == QEvent::Move)
        hide();
    return QLabel::eventFilter(watched, event);
}
