#pragma once

#include "controls/AQValueView.h"
#include "controls/time/TimeFormat.h"

#include <memory>

class TimeField;

/// What the editors of times have in common; objects are AQTimes.
///
/// A value that the person enters is first shown to the delegate (`aqValueShouldChange`), then
/// stored, reported (`aqValueDidChange`) and announced (`timeChanged`). A programmatic set asks and
/// reports nothing. The dirty flag is left to whom it reports to.
class AQTimeValueView : public AQValueView {
    Q_OBJECT

public:
    ~AQTimeValueView() override;

    const AQTime& time() const;
    /// Stores the nearest value that can be shown.
    void setTime(const AQTime& time);

    QVariant objectValue() const override;
    void setObjectValue(const QVariant& object) override;

    /// What the person reads when the delegate refuses; "%1" stands for the refused value.
    void setRefusalText(const QString& text);
    /// The Delete key belongs to the typing; without any the parent widgets get it.
    void setLeavesDelete(bool leaves);
    /// True while a change is asked about and reported that was typed, and not stepped to.
    bool isTyped() const;
    /// True for the moment in which a refusal is shown.
    bool showsRefusal() const;

Q_SIGNALS:
    /// The person entered `time`; after the delegate has been told.
    void timeChanged(const AQTime& time);
    /// An entry was refused, by the delegate or because it makes no sense; the old value is back.
    void refused(const QString& reason);

protected:
    AQTimeValueView(std::unique_ptr<const TimeFormat> format, QWidget* parent);

private:
    bool takeFromPerson(const AQTime& time);

    TimeField* m_field;
};
