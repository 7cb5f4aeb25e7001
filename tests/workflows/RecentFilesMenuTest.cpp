#include "SimulatedProgram.h"
#include "workflows/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QTemporaryDir>

namespace {

TEST(RecentFilesMenu, opensWhatWasOpenedOrSaved) {
    const QTemporaryDir folder;
    SimulatedProgram<ScriptedPrompts> program({}, {}, folder.filePath(QStringLiteral("list.xbel")));
    program.start();
    const auto open = [&] {
        Q_EMIT program.ui().menuOpenRecent->aboutToShow();
        return program.ui().menuOpenRecent->actions();
    };
    const auto names = [&] {
        QStringList items;
        for (const QAction* item : open())
            items += item->isEnabled() ? item->text() : u'(' + item->text() + u')';
        return items.join(u' ').toStdString();
    };
    for (int count = 0; count < 12; ++count) {
        program.prompts.placesToSave = {folder.filePath(QStringLiteral("&%1.sq").arg(count))};
        program.ui().menuitemSaveAs->trigger();
    }
    QFile::remove(folder.filePath(QStringLiteral("&10.sq")));
    EXPECT_EQ(names(), "&&11.sq (&&10.sq) &&9.sq &&8.sq &&7.sq &&6.sq &&5.sq &&4.sq &&3.sq &&2.sq "
                       " &Clear List");
    open()[9]->trigger();
    EXPECT_EQ(program.delegate.window().windowTitle(), QStringLiteral("Aquelon - &2.sq"));
    open().last()->trigger();
    EXPECT_EQ(names(), "(No Recent Files)  (&Clear List)");
}

} // namespace
