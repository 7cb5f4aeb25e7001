#pragma once

#include "data/DocumentContents.h"
#include "lamp/ProgramComparison.h"

#include <QObject>
#include <QString>

#include <map>
#include <optional>
#include <string>

class AQDataSource;

/// What the lamp's controller holds, as far as its answers told, and what that means for the
/// document in today's light. Asks for nothing itself; whoever gets answers notes here what they
/// tell.
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
    /// Why it is unknown, what is behind a warning, that the light is of an earlier day of the
    /// acclimation, or that the mode is not known; empty when nothing is.
    QString explanation() const;
    /// What sending the document would change; a second line when today's light is not all of it.
    QString changeBySending() const;

    // All of the controller of the last link:
    /// A reading is complete, of a program or of lists that make none, which a broken send stays
    /// known with.
    void noteRead(const StoredProgram& program);
    /// One ended in answers that do not tell what is stored.
    void noteUnreadable();
    /// A send is complete; the controller says that it stored this.
    void noteStored(const DeviceImage& image);
    /// A send is complete; the controller does not say all that it stored.
    void noteStoredUntold();
    /// A send of this broke off.
    void noteBrokenSend(const DocumentContents& contents);
    /// The controller told its mode.
    void noteMode(bool isProgramMode);
    /// The controller is being given a mode, and has not answered yet.
    void forgetMode();

    /// The link to the controller at `path` has opened.
    void linkOpened(const std::string& path);
    void linkLost();
    /// What was at `path` has left the bus, with or without a link.
    void portLeft(const std::string& path);

Q_SIGNALS:
    /// The text or the explanation changed.
    void changed();

private:
    enum class Unknown { notRead, unreadable, untold };
    struct Lamp {
        std::optional<StoredProgram> stored;
        Unknown unknown = Unknown::notRead; ///< why nothing is stored here
        std::optional<bool> isProgramMode;
        std::optional<DocumentContents> brokenSend; ///< what was being sent
    };

    State stateNow() const;
    QString earlierDay() const;
    QString unknownMode() const;
    QString changeOfStored() const;
    void refresh();
    void noteComplete(const std::optional<StoredProgram>& stored);
    const Lamp& lamp() const;
    bool isPartKnown() const;
    QString brokenSends() const;

    AQDataSource& m_data;
    bool m_isConnected = false;
    std::string m_path;                  ///< of the last link
    std::map<std::string, Lamp> m_lamps; ///< by device file
    State m_state = State::unknown;
    QString m_announced;
};
