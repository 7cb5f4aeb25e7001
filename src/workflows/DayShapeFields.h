#pragma once

#include "data/DayShape.h"

#include <QWidget>

class AQSliderColorTemp;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QSpinBox;
class TimeField;

/// The fields in which a person describes a day, in three columns, with usual days to begin with.
class DayShapeFields : public QWidget {
    Q_OBJECT

public:
    /// Shows the first of the usual days.
    explicit DayShapeFields(QWidget* parent);

    DayShape shape() const;
    /// Shows the first of the usual days again.
    void reset();
    /// Says below the fields in question why there can be no such day of `pointLimit` points; none
    /// takes it back.
    void showFault(std::optional<DayShape::Fault> fault, int pointLimit);

Q_SIGNALS:
    void changed();

private:
    QWidget* makeDay();
    QWidget* makeLight();
    QWidget* makeNight();
    TimeField* addTime(QFormLayout& form, const QString& caption, const char* name);
    QSpinBox* addNumber(QFormLayout& form, const QString& caption, const char* name, int most,
                        const QString& unit);
    AQSliderColorTemp* addColor(QFormLayout& form, const QString& caption, const char* name,
                                const QString& accessibleName);
    QLabel* addNote(QFormLayout& form, const char* name);
    void setShape(const DayShape& shape);
    void onEdited();
    void refresh();
    QString faultText(DayShape::Fault fault, int pointLimit) const;

    QComboBox* m_comboShape = nullptr;
    TimeField* m_pickerStart = nullptr;
    TimeField* m_pickerEnd = nullptr;
    QSpinBox* m_spinSunrise = nullptr;
    QSpinBox* m_spinSunset = nullptr;
    QCheckBox* m_chkSoft = nullptr;
    QLabel* m_lblDayFault = nullptr;

    QSpinBox* m_spinNoon = nullptr;
    AQSliderColorTemp* m_sliderDawn = nullptr;
    AQSliderColorTemp* m_sliderNoon = nullptr;
    AQSliderColorTemp* m_sliderDusk = nullptr;

    QCheckBox* m_chkBreak = nullptr;
    TimeField* m_pickerBreak = nullptr;
    QSpinBox* m_spinBreak = nullptr;
    QSpinBox* m_spinBreakLevel = nullptr;
    QLabel* m_lblBreakFault = nullptr;

    QCheckBox* m_chkMoonlight = nullptr;
    QSpinBox* m_spinMoonlight = nullptr;
    AQSliderColorTemp* m_sliderMoonlight = nullptr;

    bool m_isFilling = true; ///< the fields are made or change, but not by the person
};
