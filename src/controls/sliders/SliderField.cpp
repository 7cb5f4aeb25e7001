#include "controls/sliders/SliderField.h"

#include "controls/popovers/RefusalTip.h"
#include "controls/sliders/AQSlider.h"
#include "data/TypedValue.h"

#include <algorithm>
#include <utility>

SliderField::SliderField(AQSlider& slider)
    : TypedField(
          [&slider](const QString& text) { return typedFraction(text, slider.value()).fault; },
          &slider),
      m_slider(slider), m_tip(new RefusalTip(slider)) {
    setObjectName(QStringLiteral("sliderField"));
    setAlignment(Qt::AlignHCenter);
    m_tip->hide();
    hide();
    connect(this, &TypedField::faultChanged, this, &SliderField::tell);
    connect(this, &TypedField::entered, this, &SliderField::commit);
    connect(this, &TypedField::cancelled, this, &SliderField::giveBackFocus);
    connect(this, &TypedField::left, this, &SliderField::leave);
}

void SliderField::open(const QString& typed) {
    m_isOpen = true;
    setAccessibleName(m_slider.accessibleName());
    showPresent({});
    setText(typed);
    place();
    show();
    setFocus(Qt::OtherFocusReason);
    deselect();
}

void SliderField::place() {
    resize(sizeHint().boundedTo(m_slider.size()));
    const int x = static_cast<int>(m_slider.value() * m_slider.width()) - width() / 2;
    move(std::clamp(x, 0, m_slider.width() - width()), (m_slider.height() - height()) / 2);
}

void SliderField::tell(const QString& fault) {
    if (fault.isEmpty())
        m_tip->hide();
    else if (isVisible())
        m_tip->tell(fault);
}

bool SliderField::commit() {
    if (!m_isOpen)
        return true;
    if (!check()) {
        tell(fault());
        selectAll();
        return false;
    }
    const auto typed = typedFraction(text(), m_slider.value()).value;
    giveBackFocus();
    if (typed)
        m_slider.enterValue(*typed);
    return true;
}

void SliderField::giveBackFocus() {
    m_isOpen = false;
    m_slider.setFocus(Qt::OtherFocusReason);
    m_tip->hide();
    hide();
}

// The slider may be on its way out of the window, with what was typed.
void SliderField::leave() {
    if (!std::exchange(m_isOpen, false))
        return;
    const bool counts = m_slider.isEnabled() && m_slider.isVisible() && hasTyped();
    const bool isRight = check();
    if (counts && !isRight)
        tell(fault());
    hide();
    if (counts && isRight)
        m_slider.enterValue(*typedFraction(text(), m_slider.value()).value);
}

bool SliderField::focusNextPrevChild(bool next) {
    // From where the slider stands: this came to the window's order last.
    m_slider.setFocus(Qt::OtherFocusReason);
    return TypedField::focusNextPrevChild(next);
}
