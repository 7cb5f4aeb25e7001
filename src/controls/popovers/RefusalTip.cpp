#include "controls/popovers/RefusalTip.h"

#include "controls/popovers/Overlay.h"

#include <QEvent>
#include <QToolTip>

#include <algorithm>
#include <chrono>

namespace {

using namespace std::chrono_literals;
constexpr auto shownFor = 6s;
constexpr int space = 4;

} // namespace

RefusalTip::RefusalTip(QWidget& owner) : QLabel(&owner), m_owner(owner) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    setMargin(space);
    setAutoFillBackground(true);
    setPalette(QToolTip::palette());
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &QWidget::hide);
}

void RefusalTip::tell(const QString& reason, const QRect& part) {
    const QRect owner = part.isNull() ? m_owner.rect() : part;
    layOver(*this, m_owner);
    const QSize room = parentWidget()->size();
    setText(reason);
    setWordWrap(false);
    setWordWrap(sizeHint().width() > room.width());
    const int width = std::min(sizeHint().width(), room.width());
    resize(width, wordWrap() ? heightForWidth(width) : sizeHint().height());
    QPoint place = m_owner.mapTo(parentWidget(), owner.bottomLeft() + QPoint(0, 2));
    if (place.y() + height() > room.height())
        place.ry() -= owner.height() + height() + 2;
    place.setX(std::clamp(place.x(), 0, room.width() - width));
    move(place);
    show();
    m_timer.start(shownFor);
}

bool RefusalTip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide || event->type() == QEvent::Move)
        hide();
    return QLabel::eventFilter(watched, event);
}
