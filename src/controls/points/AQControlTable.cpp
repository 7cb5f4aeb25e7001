#include "controls/points/AQControlTable.h"

#include "controls/AccentColor.h"
#include "controls/Strokes.h"
#include "controls/points/AQScrollBar.h"
#include "controls/points/AQTableHeader.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace {

/// One for the line, and one that keeps the contents, which begin on whole device pixels, off it.
constexpr int frameInset = 2;

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* table = qobject_cast<AQControlTable*>(object);
    return table ? new QAccessibleWidget(table, QAccessible::Grouping) : nullptr;
}

} // namespace

AQControlTable::AQControlTable(QWidget* parent) : QTableView(parent) {
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(installed)
    setHorizontalHeader(new AQTableHeader(this));
    setVerticalScrollBar(new AQScrollBar(this));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(frameInset);
}

bool AQControlTable::event(QEvent* event) {
    if (event->type() != QEvent::Paint)
        return QTableView::event(event);
    // The style's frame loses edges at a scale of 1.5.
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    Strokes::frame(painter, rect(), 1.0, AccentColor::tone(palette(), 0.3));
    return true;
}

// Not in the palette, which the controls take over for texts selected in them.
void AQControlTable::initViewItemOption(QStyleOptionViewItem* option) const {
    QTableView::initViewItemOption(option);
    option->palette.setColor(QPalette::Highlight, isEnabled() ? AccentColor::selection(palette())
                                                              : AccentColor::tone(palette(), 0.1));
}

// QTableView would announce a cell, and screen readers know none.
void AQControlTable::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected); // NOLINT: past QTableView
}

// The current cell means nothing here. The base class would give its control the keyboard focus,
// even when it moves only because rows are removed while the person works elsewhere.
void AQControlTable::currentChanged(const QModelIndex& /*current*/,
                                    const QModelIndex& /*previous*/) {}
