#pragma once

#include "lamp/ProgramComparison.h"

#include <QObject>
#include <QString>

#include <optional>
#include <string>
#include <vector>

class AQDataSource;

/// What the lamp's controller holds, as far as its answers told, and what that means for the
/// document. Asks for nothing itself; whoever gets answers notes here what they tell.
///
/// Controllers are told apart by their device files, which are all that is known of them unasked.
/// What one holds is forgotten when its port leaves the bus; not that a send to it broke off.
class LampContents : public QObject {
    Q_OBJECT

public:
    enum class State {
        unknown,
        thisProgram,
        anotherProgram,
        partOfThisProgram, ///< perhaps, since a send broke off
        analogInput        ///< followed instead of any program
    };

    /// `data` must outlive this.
    explicit LampContents(AQDataSource& data, QObject* parent = nullptr);

    State state() const { return m_state; }
    /// The state for the person, in a few words; empty while unknown.
    QString text() const;
    /// What sending the document would change, one line.
    QString changeBySending() const;

    /// A load or a comparison is complete.
    void noteRead(const StoredProgram& program);
    /// One ended in answers that make no program.
    void noteUnreadable();
    /// A send is complete; the controller stored this.
    void noteStored(const DeviceImage& image);
    void noteBrokenSend();
    /// The controller told its mode.
    void noteMode(bool isProgramMode);
    /// The controller is being given a mode, and has not answered yet.
    void forgetMode();

    /// The link to the controller at `path` has opened; `present` are the paths of all.
    void linkOpened(const std::string& path, const std::vector<std::string>& present);
    void linkLost();
    /// The port of the last link has left the bus.
    void portRemoved();
    /// These are on the bus, while there is no link.
    void portsPresent(const std::vector<std::string>& present);

Q_SIGNALS:
    void changed();

private:
    State stateNow() const;
    void refresh();
    bool isPartKnown() const;

    AQDataSource& m_data;
    bool m_isConnected = false;
    std::string m_path; ///< of the last link; what follows is known of it
    std::optional<StoredProgram> m_stored;
    std::optional<bool> m_isProgramMode;
    std::optional<std::string> m_brokenSendTo; ///< the path then
    State m_state = State::unknown;
    QString m_announcedText;
};
