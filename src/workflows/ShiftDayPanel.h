#pragma once

#include "workflows/ProgramChangePanel.h"

class QRadioButton;
class QTimeEdit;

/// Moves every time of the program by as much, over midnight.
class ShiftDayPanel : public ProgramChangePanel {
    Q_OBJECT

public:
    ShiftDayPanel(AQDataSource& document, const QWidget& uncovered, QWidget* parent);

protected:
    void reset() override;
    std::vector<AQTimePoint> changed(const std::vector<AQTimePoint>& points) const override;
    QString stepName() const override;

private:
    QTimeEdit* m_pickerShift;
    QRadioButton* m_radioLater;
    QRadioButton* m_radioEarlier;
};
