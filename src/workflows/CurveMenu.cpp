#include "workflows/CurveMenu.h"

#include "controls/curve/AQCurvePoint.h"
#include "controls/curve/AQCurveView.h"
#include "workflows/PointTable.h"

#include <QAction>
#include <QMenu>

namespace {

/// An entry that does what `item` does, under another name.
QAction* addEntry(QMenu& menu, const QString& text, QAction& item) {
    const QString keys = item.shortcut().toString(QKeySequence::NativeText);
    QAction* entry = menu.addAction(text + u'\t' + keys, &item, &QAction::trigger);
    entry->setEnabled(item.isEnabled());
    entry->setToolTip(item.toolTip()); // why it cannot be done
    return entry;
}

} // namespace

CurveMenu::CurveMenu(AQCurveView& curveView, PointTable& table, Items items, QObject* parent)
    : QObject(parent), m_curveView(curveView), m_table(table), m_items(items) {
    connect(&curveView, &AQCurveView::menuRequested, this, &CurveMenu::open);
}

void CurveMenu::open(QPoint place, bool isForPoint, const std::optional<AQTimePoint>& there) {
    auto* menu = new QMenu(&m_curveView);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    if (isForPoint) {
        const QString key = QKeySequence(Qt::Key_Enter).toString(QKeySequence::NativeText);
        menu->addAction(tr("&Edit...") + u'\t' + key, this, [this] {
            if (const AQCurvePoint* selected = m_curveView.selectedPoint())
                m_curveView.openFields(selected->id());
        });
        addEntry(*menu, tr("&Copy"), m_items.menuitemCopy);
        addEntry(*menu, tr("&Delete"), m_items.menuitemDeletePoint);
    } else {
        QAction* add = there ? menu->addAction(tr("&Add Point Here"), this,
                                               [this, there] { m_table.addAt(*there); })
                             : addEntry(*menu, tr("&Add Point"), m_items.menuitemAddPoint);
        add->setEnabled(m_items.menuitemAddPoint.isEnabled());
        add->setToolTip(m_items.menuitemAddPoint.toolTip());
        addEntry(*menu, tr("&Paste"), m_items.menuitemPaste);
    }
    menu->popup(place);
}
