#pragma once

#include "data/AQTimePoint.h"
#include "workflows/ControlStates.h"

#include <QObject>

#include <vector>

class AQDataSource;
class Prompts;

/// Cut, copy and paste of time points as lines of text (ProgramText), for this program and for
/// spreadsheets: the selected point, or the whole program when none is selected.
class ClipboardCommands : public QObject {
    Q_OBJECT

public:
    struct Outlets {
        QAction& menuitemCut;
        QAction& menuitemCopy;
        QAction& menuitemPaste;
    };

    /// All must outlive this.
    ClipboardCommands(AQDataSource& data, Prompts& prompts, Outlets outlets,
                      QObject* parent = nullptr);

    /// Whether the program may be edited, and if not, why. Copying goes on.
    void setEditing(const ControlState& editing);

    void copy();
    void cut();
    /// Points of the same minute are replaced, others come in; all of them or, with a word to the
    /// person, none.
    void paste();

private:
    /// The selected point, else all.
    std::vector<AQTimePoint> chosenPoints() const;
    void updateItems();
    void pasteText(const QString& text);
    void tellWhatDoesNotFit(const std::vector<AQTimePoint>& pasted, int missing);
    void apply(const std::vector<AQTimePoint>& points, const std::vector<AQTimePoint>& pasted);

    AQDataSource& m_data;
    Prompts& m_prompts;
    Outlets m_outlets;
    ControlState m_editing;
};
