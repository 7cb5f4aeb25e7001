#pragma once

#include "data/AQTimePoint.h"

class AQCurveView;
class AQSelection;
class AQSequence;
class QKeyEvent;

/// What the keys do in the curve view: AQCurveView says which.
class CurveKeyboard {
public:
    /// All must outlive this.
    CurveKeyboard(AQCurveView& view, AQSequence& sequence, const AQSelection& selection);

    /// A key that edits a point, or would while points are shown.
    static bool isEdit(const QKeyEvent& event);
    // False when the key is for somebody else.
    bool handle(const QKeyEvent& event);
    /// As `handle()`, while there is a playhead.
    bool handleAtPlayhead(const QKeyEvent& event);

private:
    bool handlePlain(int key, double step);
    bool turnTo(int row);
    bool dim(double step);
    bool moveInTime(int step);
    bool letGo();

    AQCurveView& m_view;
    AQSequence& m_sequence;
    const AQSelection& m_selection;
};
