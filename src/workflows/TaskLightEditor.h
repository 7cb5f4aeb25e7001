#pragma once

#include "controls/AQValueDelegate.h"

#include <QObject>

class AQDataSource;
class AQSliderBrightness;
class AQSliderColorTemp;
class AQTimeDurationEdit;

/// The task light's three controls on the document: duration, colour temperature, intensity.
class TaskLightEditor : public QObject, public AQValueDelegate {
    Q_OBJECT

public:
    struct Outlets {
        AQTimeDurationEdit& pickerTaskTime;
        AQSliderColorTemp& sliderTaskTemp;
        AQSliderBrightness& sliderTaskBrightness;
    };

    /// Shows the document's task light; all must outlive this.
    TaskLightEditor(AQDataSource& data, Outlets outlets, QObject* parent = nullptr);
    ~TaskLightEditor() override;

    void aqValueDidChange(AQValueView& view, const QVariant& value) override;
    bool aqValueShouldChange(AQValueView& view, const QVariant& value) override;
    void aqGotFocus(AQValueView& view) override;

Q_SIGNALS:
    /// The person turned to the task light or changed its colour temperature or intensity: from now
    /// on it is the light being edited.
    void touched();

private:
    void refresh();

    AQDataSource& m_data;
    Outlets m_outlets;
    /// Set while the controls take values from the document, whose echo is no edit.
    bool m_refreshing = false;
};
