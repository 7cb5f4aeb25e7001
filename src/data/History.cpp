#include "data/History.h"

#include "data/AQDataSource.h"

#include <QUndoCommand>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

std::size_t bytesIn(const DocumentContents& contents) {
    return sizeof(contents) + contents.points.capacity() * sizeof(AQTimePoint);
}

} // namespace

/// A step on the stack. It has been done when it comes there.
class ContentsCommand : public QUndoCommand {
public:
    ContentsCommand(History& history, History::Step step)
        : m_history(history), m_step(std::move(step)),
          m_size(sizeof(*this) + bytesIn(*m_step.after)) {
        m_history.m_size += m_size;
    }
    ~ContentsCommand() override { m_history.m_size -= m_size; }

    const History::Step& step() const { return m_step; }
    void undo() override { m_history.restore(m_step, m_step.after, m_step.before); }
    void redo() override {
        if (std::exchange(m_isDone, true))
            m_history.restore(m_step, m_step.before, m_step.after);
    }

private:
    History& m_history;
    History::Step m_step;
    std::size_t m_size;
    bool m_isDone = false;
};

History::History(AQDataSource& document) : m_document(document) {}

History::~History() = default;

void History::restart() {
    interruptGesture();
    m_open.reset();
    m_stack.clear();
    m_present = std::make_shared<DocumentContents>(m_document.contents());
    Q_EMIT changed();
}

void History::noteEdit(Value value) {
    note(value, {});
}

void History::noteStep(const QString& name, std::optional<AQPointId> selected) {
    interruptGesture();
    note(std::nullopt, name);
    if (selected)
        m_open->selected = *selected;
    closeStep();
}

void History::note(std::optional<Value> value, const QString& name) {
    const auto before =
        std::exchange(m_present, std::make_shared<const DocumentContents>(m_document.contents()));
    const bool continues =
        m_open && value &&
        (m_isInGesture || (m_openValue == value && m_sinceEdit.elapsed() < pause.count()));
    if (continues) {
        m_open->after = m_present;
    } else {
        closeStep();
        m_open = Step{before, m_present, name, m_document.selection().id()};
    }
    m_openValue = value;
    m_sinceEdit.start();
    Q_EMIT changed();
}

void History::endStep() {
    if (!m_isInGesture)
        closeStep();
}

void History::closeStep() {
    if (!m_open)
        return;
    const Step done = *std::exchange(m_open, std::nullopt);
    if (*done.before != *done.after)
        push(done);
    else if (haveSameIds(done.before->points, done.after->points))
        m_present = done.before; // shared with the step before
    Q_EMIT changed();
}

void History::push(const Step& step) {
    m_stack.push(new ContentsCommand(*this, step));
    if (m_size > mostBytes)
        dropOldest();
}

// A stack of commands drops none from its bottom by size. Made anew rarely, it costs nothing to
// speak of.
void History::dropOldest() {
    std::vector<Step> kept;
    std::size_t size = 0;
    for (int index = m_stack.count(); index-- > 0;) {
        size += bytesIn(*stepAt(index)->after);
        if (size > mostBytes / 4 * 3)
            break;
        kept.push_back(*stepAt(index));
    }
    m_stack.clear();
    for (auto step = kept.rbegin(); step != kept.rend(); ++step)
        m_stack.push(new ContentsCommand(*this, *step));
}

void History::beginGesture() {
    closeStep();
    m_isInGesture = true;
}

void History::endGesture() {
    m_isInGesture = false;
    closeStep();
}

void History::interruptGesture() {
    if (!std::exchange(m_isInGesture, false))
        return;
    closeStep();
    Q_EMIT gestureInterrupted();
}

void History::cancelGesture() {
    if (!std::exchange(m_isInGesture, false))
        return;
    if (const auto begun = std::exchange(m_open, std::nullopt))
        restore(*begun, begun->after, begun->before);
    Q_EMIT gestureInterrupted();
    Q_EMIT changed();
}

bool History::isOpenStepChange() const {
    return m_open && *m_open->before != *m_open->after;
}

bool History::canUndo() const {
    return isOpenStepChange() || m_stack.canUndo();
}

bool History::canRedo() const {
    return !isOpenStepChange() && m_stack.canRedo();
}

QString History::undoName() const {
    if (isOpenStepChange())
        return nameOf(*m_open);
    return m_stack.canUndo() ? nameOf(*stepAt(m_stack.index() - 1)) : QString();
}

QString History::redoName() const {
    return canRedo() ? nameOf(*stepAt(m_stack.index())) : QString();
}

QString History::nameOf(const Step& step) {
    return step.name.isEmpty() ? ContentsChange::between(*step.before, *step.after).name()
                               : step.name;
}

const History::Step* History::stepAt(int index) const {
    return &static_cast<const ContentsCommand*>(m_stack.command(index))->step();
}

void History::undo() {
    interruptGesture();
    closeStep();
    m_stack.undo();
    Q_EMIT changed();
}

void History::redo() {
    interruptGesture();
    closeStep();
    m_stack.redo();
    Q_EMIT changed();
}

void History::restore(const Step& step, const Snapshot& from, const Snapshot& to) {
    const auto change = ContentsChange::between(*from, *to);
    m_present = to;
    m_document.restore(*to, change, selectionAfter(change, step), step.name.isEmpty());
}

AQPointId History::selectionAfter(const ContentsChange& change, const Step& step) const {
    const auto& points = m_present->points;
    const auto isThere = [&](AQPointId id) {
        return std::ranges::find(points, id, &AQTimePoint::id) != points.end();
    };
    using Kind = ContentsChange::Kind;
    switch (change.kind) {
    case Kind::time:
    case Kind::colorTemp:
    case Kind::brightness:
    case Kind::point:
    case Kind::added:
        return change.after.id;
    case Kind::deleted: {
        if (step.selected == AQPointId::none || isThere(step.selected) || points.empty())
            return isThere(step.selected) ? step.selected : AQPointId::none;
        // The one that has its row now, else the last one.
        const auto next = std::ranges::upper_bound(
            points, change.before.time.minuteOfDay(), {},
            [](const AQTimePoint& point) { return point.time.minuteOfDay(); });
        return next != points.end() ? next->id : points.back().id;
    }
    default:
        break;
    }
    const AQPointId present = m_document.selection().id();
    return isThere(present) ? present : isThere(step.selected) ? step.selected : AQPointId::none;
}
