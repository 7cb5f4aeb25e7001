#pragma once

#include "controls/Draft.h"
#include "controls/time/TimeFormat.h"

#include <QAbstractSpinBox>
#include <QTimer>

#include <functional>
#include <memory>

class RefusalTip;

/// The text field with steppers inside the time editors.
///
/// Typed text is a draft until Enter or the loss of focus; Escape drops it. The step keys, buttons
/// and the wheel (only while focused) change the section under the caret at once. What `offer`
/// refuses, or what makes no sense, leaves the old value, a red frame for a moment and the reason
/// in words.
///
/// Undo, copy, cut and paste are the draft's; without one their keys go to the window's actions.
class TimeField : public QAbstractSpinBox, public Draft {
    Q_OBJECT

public:
    /// Stores a value the person entered and returns true, or false to refuse it.
    using Offer = std::function<bool(const AQTime&)>;

    TimeField(std::unique_ptr<const TimeFormat> format, Offer offer, QWidget* parent = nullptr);

    const TimeFormat& format() const { return *m_format; }
    const AQTime& time() const { return m_time; }
    /// Shows `time`; drops a draft if that is a change.
    void setTime(const AQTime& time);

    /// What is said when `offer` refuses; "%1" stands for the refused value.
    void setRefusalText(const QString& text) { m_refusalText = text; }
    /// True while the red frame is shown.
    bool showsRefusal() const { return m_refusalTimer.isActive(); }

    bool commit() override;
    /// Typed text that is not entered yet.
    bool hasDraft() const;
    /// True while `offer` is shown a value that was typed, and not one that was stepped to.
    bool isTyped() const { return m_isTyped; }
    /// The Delete key, too, is the draft's alone: without one the parent widgets get it.
    void setLeavesDelete(bool leaves) { m_leavesDelete = leaves; }

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// After the old value has been restored.
    void refused(const QString& reason);
    void focusArrived();
    void focusLeft(Qt::FocusReason reason);

protected:
    bool event(QEvent* event) override;
    StepEnabled stepEnabled() const override;
    QValidator::State validate(QString& input, int& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Section {
        int start;
        int length;
    };
    Section section(int index) const;
    int currentSection() const;
    void selectSection(int index);
    /// Left and Right between selected sections, ':' on the way to the next; true when done.
    bool moveBetweenSections(QKeyEvent* event);

    bool offerTime(const AQTime& time);
    void refuse(const QString& reason);
    void showTime();
    void onTextEdited(const QString& text);

    const std::unique_ptr<const TimeFormat> m_format;
    const Offer m_offer;
    AQTime m_time;
    QString m_refusalText;
    QTimer m_refusalTimer;
    RefusalTip* m_tip = nullptr; ///< made for the first refusal
    qsizetype m_lastLength = 0;
    bool m_isTyped = false;
    bool m_leavesDelete = false;
};
