#pragma once

#include <QObject>

/// Says whether a modal window is shown. The program sets it; every `PausingTimer` obeys it.
class ModalPause : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    bool isActive() const { return m_active; }
    void setActive(bool active);

Q_SIGNALS:
    /// The last modal window has gone.
    void ended();

private:
    bool m_active = false;
};
