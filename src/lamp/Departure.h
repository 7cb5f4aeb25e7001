#pragma once

#include <QObject>

#include <string>

class LampPreview;
class Transfers;
class YMessageController;

/// Leaves the controller in order, for another one or for the end of the program: a send ends
/// first, then the lamp gets back its own program. What was asked for last counts, and the end of
/// the program above all.
class Departure : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    Departure(YMessageController& controller, Transfers& transfers, LampPreview& lamp,
              QObject* parent = nullptr);

    /// From now on this device file is looked for, whatever becomes of the present link. Ends in
    /// `leftFor`; at once for the one that is open already, which is left alone.
    void leaveFor(const std::string& path);
    /// What a link does that fails meanwhile.
    enum class Loss { CallsOff, Ends };
    /// Ends in `ended`. Loads are dropped. A loss is the end, too, once that was asked for or when
    /// the controller was being left already.
    void end(Loss loss);
    /// After `ended`, when the program stays all the same.
    void stay();
    bool isEnding() const { return m_isEnding; }
    /// What to show while the end waits for a send; empty when it does not.
    QString sign() const;
    /// To be told when the link was lost.
    void linkWasLost();

Q_SIGNALS:
    void leftFor(const std::string& path);
    void ended();
    /// `isEnding()` or `sign()` changed.
    void changed();

private:
    void leave();
    void onLeft();

    YMessageController& m_controller;
    Transfers& m_transfers;
    LampPreview& m_lamp;
    std::string m_path; ///< chosen last
    bool m_isLeaving = false;
    bool m_isEnding = false;
    bool m_lossEnds = false;
};
