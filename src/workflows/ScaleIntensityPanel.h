#pragma once

#include "workflows/ProgramChangePanel.h"

class QSpinBox;

/// Makes the whole program brighter or darker; no point gets brighter than full light.
class ScaleIntensityPanel : public ProgramChangePanel {
    Q_OBJECT

public:
    ScaleIntensityPanel(AQDataSource& document, const QWidget& uncovered, QWidget* parent);

protected:
    void reset() override;
    std::vector<AQTimePoint> changed(const std::vector<AQTimePoint>& points) const override;
    QString stepName() const override;

private:
    QSpinBox* m_spinScale;
};
