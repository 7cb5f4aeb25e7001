#include "controls/TypedField.h"

#include "controls/Announcement.h"
#include "controls/EditKeys.h"
#include "controls/Strokes.h"

#include <QFocusEvent>
#include <QPainter>

#include <chrono>

namespace {

using namespace std::chrono_literals;
constexpr auto pauseOfTyping = 600ms;

} // namespace

TypedField::TypedField(Judge judge, QWidget* parent)
    : QLineEdit(parent), m_judge(std::move(judge)) {
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &TypedField::check);
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!hasTyped() || m_judge(text()).isEmpty())
            check();
        else
            m_pause.start(pauseOfTyping);
    });
}

void TypedField::showPresent(const QString& text) {
    m_present = text;
    setText(text);
    m_pause.stop();
    setFault({});
}

bool TypedField::check() {
    m_pause.stop();
    const QString fault = hasTyped() ? m_judge(text()) : QString();
    setFault(fault.isEmpty() ? fault : fault + u'.');
    return fault.isEmpty();
}

void TypedField::setFault(const QString& fault) {
    if (fault == m_fault)
        return;
    m_fault = fault;
    setAccessibleDescription(fault);
    if (!fault.isEmpty() && isVisible())
        Announcement::make(*this, fault);
    update();
    Q_EMIT faultChanged(fault);
}

QSize TypedField::sizeHint() const {
    constexpr int padding = 24;
    constexpr int verticalPadding = 4;
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("-100.0 %")) + padding;
    return {width, QLineEdit::sizeHint().height() + verticalPadding};
}

bool TypedField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && !hasTyped() &&
        isEditKey(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    return QLineEdit::event(event);
}

void TypedField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT entered();
        break;
    case Qt::Key_Escape:
        Q_EMIT cancelled();
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
    event->accept();
}

void TypedField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        Q_EMIT left();
}

void TypedField::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (m_fault.isEmpty())
        return;
    QPainter painter(this);
    Strokes::refusal(painter, rect());
}
