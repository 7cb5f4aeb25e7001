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
        menu->addAction(QStringLiteral("&Edit...\tEnter"), this, [this] {
            if (const AQCurvePoint* selected = m_curveView.selectedPoint())
                m_curveView.openFields(selected->id());
        });
        addEntry(*menu, QStringLiteral("&Copy"), m_items.menuitemCopy);
        addEntry(*menu, QStringLiteral("&Delete"), m_items.menuitemDeletePoint);
    } else {
        QAction* add =
            there ? menu->addAction(QStringLiteral("&Add Point Here"), this,
                                    [this, there] { m_table.addAt(*there); })
                  : addEntry(*menu, QStringLiteral("&Add Point"), m_items.menuitemAddPoint);
        add->setEnabled(m_items.menuitemAddPoint.isEnabled());
        add->setToolTip(m_items.menuitemAddPoint.toolTip());
        addEntry(*menu, QStringLiteral("&Paste"), m_items.menuitemPaste);
    }
    menu->popup(place);
}
