#include "workflows/TaskLightEditor.h"

#include "controls/sliders/AQSliderBrightness.h"
#include "controls/sliders/AQSliderColorTemp.h"
#include "controls/sliders/DragSteps.h"
#include "controls/time/AQTimeDurationEdit.h"
#include "data/AQDataSource.h"
#include "data/PointColumn.h"

#include <QScopedValueRollback>

TaskLightEditor::TaskLightEditor(AQDataSource& data, Outlets outlets, QObject* parent)
    : QObject(parent), m_data(data), m_outlets(outlets) {
    m_outlets.pickerTaskTime.setDelegate(this);
    m_outlets.sliderTaskTemp.setDelegate(this);
    m_outlets.sliderTaskBrightness.setDelegate(this);
    makeDragsSteps(outlets.sliderTaskTemp, data.history());
    makeDragsSteps(outlets.sliderTaskBrightness, data.history());
    connect(&data.notifications(), &NotificationCenter::dataLoaded, this,
            &TaskLightEditor::refresh);
    connect(&data.notifications(), &NotificationCenter::taskLightChanged, this, [this] {
        const AQTimePoint& light = m_data.taskLight();
        // Its duration alone does not turn the lamp to it.
        const bool isAnotherLight = light.colorTemp != m_outlets.sliderTaskTemp.value() ||
                                    light.brightness != m_outlets.sliderTaskBrightness.value();
        refresh();
        if (isAnotherLight)
            Q_EMIT touched();
    });
    refresh();
}

TaskLightEditor::~TaskLightEditor() {
    m_outlets.pickerTaskTime.setDelegate(nullptr);
    m_outlets.sliderTaskTemp.setDelegate(nullptr);
    m_outlets.sliderTaskBrightness.setDelegate(nullptr);
}

void TaskLightEditor::refresh() {
    const QScopedValueRollback guard(m_refreshing, true);
    const AQTimePoint& light = m_data.taskLight();
    m_outlets.pickerTaskTime.setObjectValue(QVariant::fromValue(light.time));
    m_outlets.sliderTaskTemp.setObjectValue(QVariantList{light.colorTemp, light.brightness});
    m_outlets.sliderTaskBrightness.setValue(light.brightness);
}

void TaskLightEditor::aqValueDidChange(AQValueView& view, const QVariant& value) {
    if (m_refreshing)
        return;
    AQTimePoint light = m_data.taskLight();
    int column = PointColumn::time;
    if (&view == &m_outlets.pickerTaskTime) {
        light.time = value.value<AQTime>();
    } else if (&view == &m_outlets.sliderTaskTemp) {
        light.colorTemp = value.toDouble();
        column = PointColumn::colorTemp;
    } else {
        light.brightness = value.toDouble();
        column = PointColumn::brightness;
    }
    m_data.setTaskLight(light);
    // A typed duration is a step of its own.
    if (m_outlets.pickerTaskTime.isTyped())
        m_data.history().endStep();
    m_data.noteEdit({AQPointId::none, column});
    if (m_outlets.pickerTaskTime.isTyped())
        m_data.history().endStep();
    // The colour slider's percentages are those at the present intensity.
    m_outlets.sliderTaskTemp.setMaxValue(light.brightness);
    if (&view != &m_outlets.pickerTaskTime)
        Q_EMIT touched();
}

bool TaskLightEditor::aqValueShouldChange(AQValueView& /*view*/, const QVariant& /*value*/) {
    return true;
}

void TaskLightEditor::aqGotFocus(AQValueView& view) {
    if (&view != &m_outlets.pickerTaskTime)
        Q_EMIT touched();
}
