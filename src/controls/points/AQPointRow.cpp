#include "controls/points/AQPointRow.h"

#include "controls/AccentColor.h"
#include "controls/EditKeys.h"
#include "controls/points/AQPointListAccessible.h"
#include "controls/sliders/AQSliderBrightness.h"
#include "controls/sliders/AQSliderColorTemp.h"
#include "controls/sliders/DragSteps.h"
#include "controls/time/AQTimeEdit.h"
#include "data/AQSequence.h"
#include "data/History.h"
#include "data/TimeText.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

AQPointRow::AQPointRow(AQSequence& sequence, AQPointId id, QWidget* parent)
    : QWidget(parent), m_sequence(sequence), m_id(id), m_time(new AQTimeEdit(this)),
      m_colorTemp(new AQSliderColorTemp(this)),
      m_brightness(new AQSliderBrightness(this)), m_editors{m_time, m_colorTemp, m_brightness} {
    for (AQValueView* editor : m_editors)
        editor->setDelegate(this);
    m_time->setLeavesDelete(true);
    makeDragsSteps(*m_colorTemp, sequence.history());
    makeDragsSteps(*m_brightness, sequence.history());
    // Also where a limit keeps the value: the person has edited the document all the same.
    connect(m_colorTemp, &AQSlider::edited, this, [this] {
        const AQSequence::ColorTemp value{m_colorTemp->value()}; // before a draft elsewhere ends
        turnTo();
        m_sequence.updateWithRow(m_sequence.rowOf(m_id), value, this);
    });
    connect(m_brightness, &AQSlider::edited, this, [this] {
        const AQSequence::Brightness value{m_brightness->value()};
        turnTo();
        m_sequence.updateWithRow(m_sequence.rowOf(m_id), value, this);
    });
}

AQPointRow::~AQPointRow() {
    for (AQValueView* editor : m_editors)
        editor->setDelegate(nullptr);
}

// Screen readers edit what does not have the focus. A gesture, though, that is not here any more is
// of a value that was typed, and kept because the person has turned elsewhere.
void AQPointRow::turnTo() {
    if (!m_isSelected && !m_sequence.history().isInGesture())
        Q_EMIT turnedTo(m_id);
}

int AQPointRow::focusedColumn() const {
    const auto focused = std::ranges::find_if(m_editors, &AQValueView::isWindowFocus);
    return focused == m_editors.end() ? -1 : static_cast<int>(focused - m_editors.begin());
}

void AQPointRow::refresh(int row) {
    if (m_sequence.idAt(row) != m_id)
        return;
    const AQTimePoint& point = m_sequence.at(row);
    m_time->setTime(point.time);
    m_colorTemp->setValue(point.colorTemp);
    m_colorTemp->setMaxValue(point.brightness);
    m_brightness->setValue(point.brightness);

    const auto nameOf = [&](int column) {
        return tr("Point %1, %2, %3")
            .arg(row + 1)
            .arg(timeText(point.time.hour, point.time.minute), PointColumn::title(column));
    };
    if (m_colorTemp->accessibleName() == nameOf(PointColumn::colorTemp))
        return;
    for (int column = 0; column < PointColumn::count; ++column) {
        editor(column).setObjectName(QStringLiteral("cell_%1_%2").arg(row).arg(column));
        editor(column).accessibleWidget()->setAccessibleName(nameOf(column));
    }
}

void AQPointRow::setIsSelected(bool isSelected) {
    if (isSelected == m_isSelected)
        return;
    m_isSelected = isSelected;
    update();
}

void AQPointRow::setTimeWidth(int width) {
    m_timeWidth = width;
    const int sliders = this->width() - width;
    const int left[] = {0, width, width + sliders / 2, this->width()};
    for (int column = 0; column < PointColumn::count; ++column) {
        const QRect cell(left[column], 0, left[column + 1] - left[column], height());
        editor(column).setGeometry(cell.adjusted(margin, margin, -margin, -margin));
    }
}

void AQPointRow::resizeEvent(QResizeEvent* /*event*/) {
    setTimeWidth(m_timeWidth);
}

void AQPointRow::paintEvent(QPaintEvent* /*event*/) {
    if (m_isSelected)
        QPainter(this).fillRect(rect(), isEnabled() ? AccentColor::selection(palette())
                                                    : AccentColor::tone(palette(), 0.1));
}

void AQPointRow::mousePressEvent(QMouseEvent* event) {
    // Beside an editor: as on it, but for the value.
    const double x = event->position().x();
    const int column = x < m_time->geometry().right()        ? PointColumn::time
                       : x < m_colorTemp->geometry().right() ? PointColumn::colorTemp
                                                             : PointColumn::brightness;
    editor(column).setFocus(Qt::MouseFocusReason);
}

// What an editor has no use for.
void AQPointRow::keyPressEvent(QKeyEvent* event) {
    if (!isDeleteKey(*event))
        return QWidget::keyPressEvent(event);
    turnTo();
    Q_EMIT deleteRequested();
}

void AQPointRow::aqValueDidChange(AQValueView& view, const QVariant& /*value*/) {
    // The sliders say apart when it was the person who set them; the time says nothing else.
    if (&view != m_time)
        return;
    // What is typed is a step of its own; presses of the step keys that follow each other are one.
    const bool isTyped = m_time->isTyped();
    if (isTyped)
        m_sequence.history().endStep();
    m_sequence.setTime(m_sequence.rowOf(m_id), m_time->time(), this);
    if (isTyped)
        m_sequence.history().endStep();
}

bool AQPointRow::aqValueShouldChange(AQValueView& /*view*/, const QVariant& value) {
    const int row = m_sequence.rowOf(m_id);
    return row < 0 || !m_sequence.hasPointAt(value.value<AQTime>(), row);
}

void AQPointRow::aqGotFocus(AQValueView& /*view*/) {
    Q_EMIT turnedTo(m_id);
}

QAccessibleInterface* AQPointRow::aqAccessibleParent() const {
    return AQPointListAccessible::itemOf(*this);
}
