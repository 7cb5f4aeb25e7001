#pragma once

#include "controls/popovers/PopoverPlacement.h"

#include <QWidget>

class QLabel;

/// A help text in a popover with an arrow to its button, in the window's font and palette.
///
/// It takes the keyboard, so that screen readers read it and its text can be selected; Escape or a
/// click elsewhere closes it, and the focus is back where it was.
class AQHelpPopover : public QWidget {
    Q_OBJECT

public:
    /// `size` is that of the body in logical units; its height grows where the font needs more.
    AQHelpPopover(const QString& text, QSize size, QWidget* parent);

    /// Makes a popover for `anchor`'s window, shows it at `anchor` and deletes it when it is
    /// closed.
    static AQHelpPopover* present(QWidget& anchor, const QString& text, QSize size);

    /// Shows it beside `anchor`, inside its window if there is room.
    void showAt(const QWidget& anchor);

    QString text() const;
    const PopoverPlacement& placement() const { return m_placement; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize bodySize() const;

    QLabel* m_label;
    QSize m_size;
    PopoverPlacement m_placement;
};
