#pragma once

#include "data/AQTimePoint.h"
#include "data/ContentsChange.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QUndoStack>

#include <chrono>
#include <memory>
#include <optional>

class AQDataSource;
class ContentsCommand;

/// The steps by which the document came to what it holds, to go back and forth in.
///
/// A step holds the contents before and after, which neighbouring steps share. Whoever changes the
/// document notes it here when it has changed, before the change is announced:
///
///     history.beginGesture();            // the button goes down
///     sequence.updateWithRow(...);       // notes an edit of that value, and again ...
///     history.endGesture();              // one step
///     history.undo();                    // restores, selects the point, announces
///
/// Without a gesture, edits of one value that follow each other within `pause` are one step. A step
/// that ends where it began is none. The oldest steps are dropped when all hold more than
/// `mostBytes`.
class History : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds pause{1000};
    static constexpr std::size_t mostBytes = 32U << 20U;

    /// One value that a person edits, which is how edits are told apart.
    struct Value {
        AQPointId point; ///< none: of the task light
        int column;      ///< a PointColumn
        bool operator==(const Value&) const = default;
    };

    /// Empty, for `document`, which owns it.
    explicit History(AQDataSource& document);
    ~History() override;

    /// A new document: from what it holds now nothing leads back.
    void restart();

    /// This value was edited.
    void noteEdit(Value value);
    /// A step of its own was done; without a name it is named after what changed. `selected` was
    /// when it began, if that has been changed since.
    void noteStep(const QString& name = {}, std::optional<AQPointId> selected = {});
    /// What follows is a new step, but in a gesture.
    void endStep();

    /// All edits from here to the end are one step, however long they take.
    void beginGesture();
    void endGesture();
    bool isInGesture() const { return m_isInGesture; }
    /// Ends the gesture and takes back what it did, as if it had not begun.
    void cancelGesture();

    bool canUndo() const;
    bool canRedo() const;
    /// "Move 14:00 to 15:10"; empty when there is nothing to undo.
    QString undoName() const;
    QString redoName() const;
    /// Restores, marks clean or dirty, selects what changed, then posts what applies of
    /// dataChanged, taskLightChanged, programModeChanged, and sectionChanged when a point was
    /// changed.
    void undo();
    void redo();

    /// What the kept steps hold, in bytes.
    std::size_t size() const { return m_size; }
    int count() const { return m_stack.count(); }

Q_SIGNALS:
    /// What can be undone or redone, or its name, may be another.
    void changed();
    /// The gesture was ended by something else than the hand that makes it, which must let go.
    void gestureInterrupted();

private:
    friend class ContentsCommand;
    using Snapshot = std::shared_ptr<const DocumentContents>;
    struct Step {
        Snapshot before;
        Snapshot after;
        QString name;
        AQPointId selected; ///< when it began
    };

    void note(std::optional<Value> value, const QString& name);
    bool isOpenStepChange() const;
    void closeStep();
    void push(const Step& step);
    void dropOldest();
    void interruptGesture();
    /// The document goes from one end of the step to the other.
    void restore(const Step& step, const Snapshot& from, const Snapshot& to);
    AQPointId selectionAfter(const ContentsChange& change, const Step& step) const;
    static QString nameOf(const Step& step);
    const Step* stepAt(int index) const;

    AQDataSource& m_document;
    QUndoStack m_stack;
    Snapshot m_present;               ///< what the document held when it was last noted
    std::optional<Step> m_open;       ///< not on the stack yet, more edits may come to it
    std::optional<Value> m_openValue; ///< what is edited in it
    QElapsedTimer m_sinceEdit;
    bool m_isInGesture = false;
    std::size_t m_size = 0;
};
