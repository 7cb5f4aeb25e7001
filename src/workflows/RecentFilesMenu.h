#pragma once

#include "data/RecentFiles.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

class QMenu;

/// File > Open Recent: the light programs of the desktop's list, filled in when the menu opens.
class RecentFilesMenu : public QObject {
    Q_OBJECT

public:
    static constexpr int most = 10; ///< files in the menu

    /// `menu` must outlive this.
    RecentFilesMenu(QMenu& menu, const QString& list, QObject* parent = nullptr);
    ~RecentFilesMenu() override;

    /// The file was opened or saved. It is in the list a second later, when nobody waits for the
    /// program any more, or at its end.
    void add(const QString& path);

Q_SIGNALS:
    void chosen(const QString& path);

private:
    void fill();
    void writeAdded();

    QMenu& m_menu;
    RecentFiles m_files;
    QStringList m_added; ///< not in the list yet
    QTimer m_timer;
};
