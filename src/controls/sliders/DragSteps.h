#pragma once

#include "controls/sliders/AQSlider.h"
#include "data/History.h"

/// Makes each drag of `slider` one step of `history`, which Escape takes back.
inline void makeDragsSteps(AQSlider& slider, History& history) {
    QObject::connect(&slider, &AQSlider::dragBegan, &history, &History::beginGesture);
    QObject::connect(&slider, &AQSlider::dragEnded, &history, &History::endGesture);
    QObject::connect(&slider, &AQSlider::dragCancelled, &history, &History::cancelGesture);
    QObject::connect(&history, &History::gestureInterrupted, &slider, &AQSlider::endDrag);
}
