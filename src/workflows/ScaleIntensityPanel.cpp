#include "workflows/ScaleIntensityPanel.h"

#include "data/ProgramChanges.h"

#include <QFormLayout>
#include <QSpinBox>

namespace {

constexpr int unchanged = 100; ///< percent

} // namespace

ScaleIntensityPanel::ScaleIntensityPanel(AQDataSource& document, const QWidget& uncovered,
                                         QWidget* parent)
    : ProgramChangePanel(document, uncovered, parent), m_spinScale(new QSpinBox(this)) {
    setObjectName(QStringLiteral("panelScaleIntensity"));
    setWindowTitle(tr("Scale Intensity"));
    m_spinScale->setObjectName(QStringLiteral("spinScale"));
    m_spinScale->setRange(1, 200);
    m_spinScale->setSuffix(QStringLiteral(" %"));
    m_spinScale->setToolTip(tr("No point gets brighter than 100 %"));
    form().addRow(tr("&Scale to"), m_spinScale);
    connect(m_spinScale, &QSpinBox::valueChanged, this, &ScaleIntensityPanel::refreshPreview);
}

void ScaleIntensityPanel::reset() {
    m_spinScale->setValue(unchanged);
    m_spinScale->setFocus();
    m_spinScale->selectAll();
}

std::vector<AQTimePoint>
ScaleIntensityPanel::changed(const std::vector<AQTimePoint>& points) const {
    return ProgramChanges::scaledIntensity(points, m_spinScale->value() / 100.0);
}

QString ScaleIntensityPanel::stepName() const {
    return tr("Scale Intensity to %1 %").arg(m_spinScale->value());
}
