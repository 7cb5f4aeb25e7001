#include "controls/time/TimeField.h"

#include "controls/Announcement.h"
#include "controls/EditKeys.h"
#include "controls/Strokes.h"
#include "controls/popovers/RefusalTip.h"
#include "controls/time/TimeFieldAccessible.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <chrono>

namespace {

using namespace std::chrono_literals;
constexpr int largeStep = 10;
constexpr auto refusalShown = 1600ms;

} // namespace

TimeField::TimeField(std::unique_ptr<const TimeFormat> format, Offer offer, QWidget* parent)
    : QAbstractSpinBox(parent), m_format(std::move(format)), m_offer(std::move(offer)),
      m_refusalText(tr("%1 cannot be used.")) {
    TimeFieldAccessible::install();
    lineEdit()->setObjectName({}); // under Qt's name for it, assistive programs get no text
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignHCenter);
    setCorrectionMode(QAbstractSpinBox::CorrectToPreviousValue);
    m_refusalTimer.setSingleShot(true);
    connect(&m_refusalTimer, &QTimer::timeout, this, [this] { update(); });
    connect(lineEdit(), &QLineEdit::textEdited, this, &TimeField::onTextEdited);
    showTime();
}

void TimeField::setTime(const AQTime& time) {
    if (time == m_time)
        return;
    const int index = currentSection();
    const bool isPartSelected = lineEdit()->selectedText() != lineEdit()->text();
    m_time = time;
    showTime();
    if (hasFocus())
        isPartSelected ? selectSection(index) : selectAll();
}

void TimeField::showTime() {
    lineEdit()->setText(m_format->text(m_time));
    m_lastLength = lineEdit()->text().size();
}

QSize TimeField::sizeHint() const {
    constexpr int padding = 12;
    constexpr int verticalPadding = 6;
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize contents(fontMetrics().horizontalAdvance(m_format->widestText()) + padding,
                         lineEdit()->sizeHint().height() + verticalPadding);
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, contents, this);
}

QAbstractSpinBox::StepEnabled TimeField::stepEnabled() const {
    const int index = currentSection();
    StepEnabled enabled = StepNone;
    enabled.setFlag(StepUpEnabled, m_format->stepped(m_time, index, 1) != m_time);
    enabled.setFlag(StepDownEnabled, m_format->stepped(m_time, index, -1) != m_time);
    return enabled;
}

QValidator::State TimeField::validate(QString& /*input*/, int& /*position*/) const {
    return QValidator::Acceptable; // judged as a whole when it is committed
}

TimeField::Section TimeField::section(int index) const {
    // No regular expression: compiling one would be felt at the program's start.
    const QString text = lineEdit()->text();
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    auto from = text.begin();
    for (int run = 0;; ++run) {
        from = std::find_if(from, text.end(), isDigit);
        const auto to = std::find_if_not(from, text.end(), isDigit);
        if (from == to)
            return {-1, 0};
        if (run == index)
            return {static_cast<int>(from - text.begin()), static_cast<int>(to - from)};
        from = to;
    }
}

int TimeField::currentSection() const {
    const QLineEdit* edit = lineEdit();
    const int caret = edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
    const Section second = section(1);
    return second.start >= 0 && caret >= second.start ? 1 : 0;
}

void TimeField::selectSection(int index) {
    const Section place = section(index);
    if (place.start >= 0)
        lineEdit()->setSelection(place.start, place.length);
}

void TimeField::stepBy(int steps) {
    const int index = currentSection();
    const AQTime base = hasDraft() ? m_format->parse(lineEdit()->text()).value_or(m_time) : m_time;
    const QPointer<TimeField> alive(this);
    offerTime(m_format->stepped(base, index, steps));
    if (alive)
        selectSection(index);
}

bool TimeField::hasDraft() const {
    return lineEdit()->text() != m_format->text(m_time);
}

bool TimeField::commit() {
    if (!hasDraft())
        return true;
    const auto typed = m_format->parse(lineEdit()->text());
    if (!typed) {
        refuse(m_format->hint());
        return false;
    }
    const QPointer<TimeField> alive(this);
    m_isTyped = true;
    const bool accepted = offerTime(*typed);
    if (alive)
        m_isTyped = false;
    return accepted;
}

bool TimeField::offerTime(const AQTime& time) {
    if (m_format->text(time) == m_format->text(m_time)) {
        showTime();
        return true;
    }
    // Whoever is asked may delete this field before the answer.
    const QPointer<TimeField> alive(this);
    const bool accepted = m_offer(time);
    if (!alive)
        return accepted;
    if (!accepted) {
        refuse(m_refusalText.contains(QLatin1String("%1")) ? m_refusalText.arg(m_format->text(time))
                                                           : m_refusalText);
        return false;
    }
    m_refusalTimer.stop();
    showTime();
    update();
    return true;
}

void TimeField::refuse(const QString& reason) {
    showTime();
    if (hasFocus())
        selectAll();
    m_refusalTimer.start(refusalShown);
    update();
    setAccessibleDescription(reason);
    if (isVisible()) {
        Announcement::make(*this, reason);
        if (!m_tip)
            m_tip = new RefusalTip(*this);
        m_tip->tell(reason);
    }
    Q_EMIT refused(reason);
}

void TimeField::onTextEdited(const QString& text) {
    if (m_tip)
        m_tip->hide();
    if (m_refusalTimer.isActive()) {
        m_refusalTimer.stop();
        update();
    }
    const bool grew = text.size() > m_lastLength;
    const bool overwrote = text.size() == m_lastLength;
    m_lastLength = text.size();
    const Section first = section(0);
    if (m_format->hasTwoDigitSections() && (grew || overwrote) && first.length == 2 &&
        lineEdit()->cursorPosition() == first.start + 2 && section(1).start >= 0)
        selectSection(1);
}

bool TimeField::moveBetweenSections(QKeyEvent* event) {
    QLineEdit* edit = lineEdit();
    const Section current = section(currentSection());
    const bool isSelected = edit->selectionStart() == current.start &&
                            edit->selectedText().size() == current.length &&
                            edit->selectedText() != edit->text();
    if (isSelected && event->modifiers() == Qt::NoModifier &&
        (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)) {
        selectSection(event->key() == Qt::Key_Right ? 1 : 0);
        return true;
    }
    const int caret = edit->cursorPosition();
    if (event->text() == QLatin1String(":") && !edit->hasSelectedText() &&
        edit->text().mid(caret, 1) == QLatin1String(":")) {
        selectSection(1);
        return true;
    }
    return false;
}

bool TimeField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && !hasDraft() &&
        isEditKey(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    return QAbstractSpinBox::event(event);
}

void TimeField::keyPressEvent(QKeyEvent* event) {
    if (m_leavesDelete && !hasDraft() && isDeleteKey(*event)) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Escape:
        if (hasDraft()) {
            showTime();
            selectAll();
        } else {
            event->ignore();
        }
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const bool hadDraft = hasDraft();
        const QPointer<TimeField> alive(this);
        const bool committed = commit();
        if (alive && committed) {
            selectAll();
            // With nothing left to commit, Enter belongs to the dialog's default button.
            event->setAccepted(hadDraft);
        }
        return;
    }
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
        // The base class takes quick presses for a key that is held, and goes on stepping.
        const bool isPage = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
        const bool isUp = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp;
        const int steps = isPage || event->modifiers() & Qt::ControlModifier ? largeStep : 1;
        stepBy(isUp ? steps : -steps);
        return;
    }
    default:
        if (!moveBetweenSections(event))
            QAbstractSpinBox::keyPressEvent(event);
    }
}

void TimeField::focusInEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusInEvent(event);
    if (!accessibleDescription().isEmpty())
        setAccessibleDescription({}); // a refusal from before
    Q_EMIT focusArrived();
}

void TimeField::focusOutEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusOutEvent(event);
    const QPointer<TimeField> alive(this);
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::PopupFocusReason)
        commit();
    if (alive)
        Q_EMIT focusLeft(reason);
}

void TimeField::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void TimeField::paintEvent(QPaintEvent* event) {
    QAbstractSpinBox::paintEvent(event);
    if (showsRefusal()) {
        QPainter painter(this);
        Strokes::refusal(painter, rect());
    }
}
