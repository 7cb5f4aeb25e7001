#pragma once

#include <QObject>

class AQDataSource;
class AQSwitchButton;
class YMessageController;

/// The choice between the light program and the analog 1-10 V input.
///
/// The switch changes the document and, while connected, the controller; after every load the
/// document decides the switch's position.
class ProgramMode : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    ProgramMode(AQDataSource& data, YMessageController& controller,
                AQSwitchButton& bttnSwitchProgMode, QObject* parent = nullptr);

Q_SIGNALS:
    void changed(bool isProgramMode);
    /// The controller is given the mode; `modeTold` follows if it answers.
    void modeSent();
    /// The controller has answered what it does now.
    void modeTold(bool isProgramMode);

private:
    void onSwitched(bool isProgramMode);
    void onModeChanged();
    void refresh();

    AQDataSource& m_data;
    YMessageController& m_controller;
    AQSwitchButton& m_switch;
};
