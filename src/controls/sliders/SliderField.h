#pragma once

#include "controls/Draft.h"
#include "controls/TypedField.h"

class AQSlider;
class RefusalTip;

/// The field in which the value of a slider is typed, in percent or relative to what it is; it lies
/// over the slider's knob.
///
/// Enter and Tab keep the value, Escape drops it, and so does what is wrong when the focus leaves,
/// with the reason in words.
class SliderField : public TypedField, public Draft {
    Q_OBJECT

public:
    /// Closed. `slider` is its parent.
    explicit SliderField(AQSlider& slider);

    /// Opens with `typed` as the first text.
    void open(const QString& typed);
    /// Moves it to where the slider's knob is now.
    void place();
    bool commit() override;

protected:
    bool focusNextPrevChild(bool next) override;

private:
    void giveBackFocus();
    void leave();
    void tell(const QString& fault);

    AQSlider& m_slider;
    RefusalTip* m_tip;
    bool m_isOpen = false;
};
