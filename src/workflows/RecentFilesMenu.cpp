#include "workflows/RecentFilesMenu.h"

#include <QFileInfo>
#include <QMenu>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

using Entries = std::vector<RecentFiles::Entry>;

/// The file's name, with its folder when another one in the menu has the same name.
QString itemText(const QString& path, const Entries& entries) {
    const QFileInfo file(path);
    const auto count = std::ranges::count_if(entries, [&](const RecentFiles::Entry& entry) {
        return QFileInfo(entry.path).fileName() == file.fileName();
    });
    QString text = file.fileName();
    if (count > 1)
        text += QStringLiteral(" - ") + file.path();
    return text.replace(u'&', QLatin1String("&&"));
}

} // namespace

RecentFilesMenu::RecentFilesMenu(QMenu& menu, const QString& list, QObject* parent)
    : QObject(parent), m_menu(menu), m_files(list) {
    constexpr std::chrono::seconds delay{1};
    m_timer.setSingleShot(true);
    m_timer.setInterval(delay);
    connect(&m_timer, &QTimer::timeout, this, &RecentFilesMenu::writeAdded);
    connect(&menu, &QMenu::aboutToShow, this, &RecentFilesMenu::fill);
    menu.setToolTipsVisible(true);
}

RecentFilesMenu::~RecentFilesMenu() {
    writeAdded();
}

void RecentFilesMenu::add(const QString& path) {
    m_added.removeAll(path);
    m_added += path;
    m_timer.start();
}

void RecentFilesMenu::writeAdded() {
    m_timer.stop();
    for (const QString& path : std::exchange(m_added, {}))
        m_files.add(path);
}

void RecentFilesMenu::fill() {
    writeAdded();
    m_menu.clear();
    Entries entries = m_files.entries();
    const bool hasOurs = std::ranges::any_of(entries, &RecentFiles::Entry::isOurs);
    entries.resize(std::min<std::size_t>(entries.size(), most));
    for (const RecentFiles::Entry& entry : entries) {
        QAction* item = m_menu.addAction(itemText(entry.path, entries));
        item->setToolTip(entry.path);
        item->setEnabled(QFileInfo::exists(entry.path));
        connect(item, &QAction::triggered, this,
                [this, path = entry.path] { Q_EMIT chosen(path); });
    }
    if (entries.empty())
        m_menu.addAction(tr("No Recent Files"))->setEnabled(false);
    m_menu.addSeparator();
    QAction* clear = m_menu.addAction(tr("&Clear List"));
    clear->setEnabled(hasOurs);
    connect(clear, &QAction::triggered, this, [this] { m_files.clear(); });
}
