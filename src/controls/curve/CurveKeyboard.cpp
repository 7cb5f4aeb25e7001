#include "controls/curve/CurveKeyboard.h"

#include "controls/curve/AQCurveView.h"
#include "data/AQSelection.h"
#include "data/AQSequence.h"
#include "data/History.h"
#include "data/ProgramChanges.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

CurveKeyboard::CurveKeyboard(AQCurveView& view, AQSequence& sequence, const AQSelection& selection)
    : m_view(view), m_sequence(sequence), m_selection(selection) {}

bool CurveKeyboard::isEdit(const QKeyEvent& event) {
    constexpr std::array plain{Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Insert, Qt::Key_Delete,
                               Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2};
    constexpr std::array withAlt{Qt::Key_Left, Qt::Key_Right};
    const auto holds = [&](const auto& keys) {
        return std::ranges::find(keys, event.key()) != keys.end();
    };
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    return (!modifiers && holds(plain)) || (modifiers == Qt::AltModifier && holds(withAlt));
}

bool CurveKeyboard::handle(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isShifted = modifiers & Qt::ShiftModifier;
    if (modifiers & Qt::AltModifier && !(modifiers & ~(Qt::AltModifier | Qt::ShiftModifier))) {
        const int step = isShifted ? 1 : AQCurveView::usualMinutes;
        return event.key() == Qt::Key_Left    ? moveInTime(-step)
               : event.key() == Qt::Key_Right ? moveInTime(step)
                                              : false;
    }
    if (modifiers & ~Qt::ShiftModifier)
        return false;
    return handlePlain(event.key(), isShifted ? AQCurveView::largeKeyStep : AQCurveView::keyStep);
}

bool CurveKeyboard::handleAtPlayhead(const QKeyEvent& event) {
    if (event.modifiers() & ~Qt::KeypadModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Space:
        if (!event.isAutoRepeat())
            Q_EMIT m_view.pauseRequested();
        return true;
    case Qt::Key_Left:
        Q_EMIT m_view.pointBeforeRequested();
        return true;
    case Qt::Key_Right:
        Q_EMIT m_view.pointAfterRequested();
        return true;
    default:
        return false;
    }
}

bool CurveKeyboard::handlePlain(int key, double step) {
    const int last = m_sequence.count() - 1;
    const int selected = m_selection.row();
    switch (key) {
    case Qt::Key_Left:
        return turnTo(selected < 0 ? last : std::max(selected - 1, 0));
    case Qt::Key_Right:
        return turnTo(std::min(selected + 1, last));
    case Qt::Key_Home:
        return turnTo(0);
    case Qt::Key_End:
        return turnTo(last);
    case Qt::Key_Up:
        return dim(step);
    case Qt::Key_Down:
        return dim(-step);
    case Qt::Key_Insert:
        Q_EMIT m_view.addRequested();
        return true;
    case Qt::Key_Delete:
        if (selected >= 0)
            Q_EMIT m_view.deleteRequested();
        return selected >= 0;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        if (selected >= 0)
            m_view.openFields(m_selection.id());
        return selected >= 0;
    case Qt::Key_Escape:
        return letGo();
    default:
        return false;
    }
}

bool CurveKeyboard::turnTo(int row) {
    if (m_sequence.count() > 0)
        m_view.turnTo(m_sequence.idAt(row));
    return m_sequence.count() > 0;
}

bool CurveKeyboard::dim(double step) {
    const AQPointId id = m_selection.id();
    if (id == AQPointId::none)
        return false;
    m_view.editIntensity(id, m_view.intensity(id) + step);
    m_view.showPointPopover(id);
    return true;
}

bool CurveKeyboard::moveInTime(int step) {
    const AQPointId id = m_selection.id();
    if (id == AQPointId::none)
        return false;
    const int minute = m_sequence.at(m_selection.row()).time.minuteOfDay();
    // At the end of the day the key does nothing, but it is no other's either.
    if (const auto free = ProgramChanges::freeMinuteFrom(m_sequence.points(), minute, step, id))
        m_view.editTime(id, *free);
    m_view.showPointPopover(id);
    return true;
}

bool CurveKeyboard::letGo() {
    History& history = m_sequence.history();
    if (history.isInGesture()) {
        history.cancelGesture();
        return true;
    }
    return m_view.deselect();
}
