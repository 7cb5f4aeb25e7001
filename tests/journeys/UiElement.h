#pragma once

#include <QPoint>
#include <QRect>

#include <atspi/atspi.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// One element of a running program's window, as a screen reader sees it (AT-SPI). What is found
/// and pressed here is therefore also usable by people who cannot see the window.
///
/// A value that may be empty. An element that has left the screen answers with empty texts and
/// false.
class UiElement {
public:
    UiElement() = default;
    /// Takes over the reference.
    explicit UiElement(AtspiAccessible* accessible);

    /// The program of this process id; empty until it has shown itself on the bus.
    static UiElement application(qint64 processId);

    explicit operator bool() const { return m_accessible != nullptr; }
    std::string name() const;        ///< a label's text, a button's title, a window's title
    std::string description() const; ///< tool tip
    std::string role() const;        ///< "label", "push button", "check box", "alert", "frame"
    std::string text() const;        ///< contents of an editable text
    bool isShowing() const { return hasState(ATSPI_STATE_SHOWING); }
    bool isEnabled() const { return hasState(ATSPI_STATE_ENABLED); }
    bool isChecked() const { return hasState(ATSPI_STATE_CHECKED); }
    bool isFocused() const { return hasState(ATSPI_STATE_FOCUSED); }
    bool isSelected() const { return hasState(ATSPI_STATE_SELECTED); }
    double value() const; ///< of sliders and spin boxes; NaN without one
    QRect screenRect() const;

    std::vector<UiElement> children() const;
    using Matches = std::function<bool(const UiElement&)>;
    enum class Search { Showing, Hidden };
    /// All elements for which `matches` holds, in reading order, this one included; those that
    /// show, or also those that are hidden, such as the entries of a closed menu.
    std::vector<UiElement> findAll(const Matches& matches, Search search = Search::Showing) const;
    /// The first of these; asks for none of the elements after it.
    UiElement find(const Matches& matches, Search search = Search::Showing) const;
    /// The first showing element of this role and name; empty strings match all.
    UiElement find(const std::string& role, const std::string& name) const;

    /// Presses, toggles or chooses; does not wait until it has taken effect, so that what it opens
    /// may be modal.
    void press() const;
    void setValue(double value) const;
    void setText(const std::string& text) const;

private:
    bool hasState(AtspiStateType state) const;

    std::shared_ptr<AtspiAccessible> m_accessible;
};
