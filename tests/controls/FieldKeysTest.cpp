#include "controls/points/AQPointList.h"
#include "data/AQDataSource.h"
#include "data/History.h"
#include "data/PointColumn.h"

#include <QAction>
#include <QTest>

#include <gtest/gtest.h>

#include <string>

namespace {

/// The table of a program in a window whose actions have the usual keys.
struct FieldKeys : ::testing::Test {
    NotificationCenter notifications;
    AQDataSource document{notifications};
    QWidget window;
    AQPointList list{document.sequence(), document.selection(), &window};
    std::string heard; ///< what the window's actions did

    FieldKeys() {
        document.history().restart();
        const QList keys{QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Copy,
                         QKeySequence::Cut, QKeySequence::Paste};
        for (const auto key : keys) {
            auto* action = new QAction(&window);
            action->setShortcuts(key);
            window.addAction(action);
            const char letter = "URCXV"[keys.indexOf(key)];
            QObject::connect(action, &QAction::triggered, &window,
                             [this, letter] { heard += letter; });
        }
        QObject::connect(&list, &AQPointList::deleteRequested, &window,
                         [this] { heard += 'D' + std::to_string(list.selectedRow()); });
        window.resize(800, 400);
        list.resize(window.size());
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    std::string press(const char* keys) {
        heard.clear();
        for (const QString& key : QString::fromLatin1(keys).split(u' ')) {
            const QKeyCombination combination = QKeySequence(key)[0];
            QTest::keyClick(window.focusWidget(), combination.key(),
                            combination.keyboardModifiers());
        }
        return heard;
    }
};

TEST_F(FieldKeys, theWindowHasThoseThatNothingTypedNeeds) {
    constexpr auto keys = "Ctrl+C Ctrl+X Ctrl+V Ctrl+Z Ctrl+Shift+Z Delete";
    for (int column = 0; column < PointColumn::count; ++column) {
        list.focusEditor(2, column, Qt::TabFocusReason);
        EXPECT_EQ(press(keys), "CXVURD2") << column;
    }
    list.focusEditor(2, PointColumn::time, Qt::TabFocusReason);
    EXPECT_EQ(press("1 Ctrl+A Ctrl+X Ctrl+V Delete 9 Ctrl+Z"), "");
    EXPECT_EQ(press("Escape Ctrl+Z Delete"), "UD2");
    EXPECT_FALSE(document.history().canUndo());
}

TEST_F(FieldKeys, aTypedTimeIsAStepOfItsOwnAndStepKeysAreOne) {
    list.focusEditor(2, PointColumn::time, Qt::TabFocusReason);
    press("Up Up Ctrl+A 1 6 0 5 Return Ctrl+A 1 6 0 6 Return Up Up");
    std::string times;
    while (document.history().canUndo()) {
        document.history().undo();
        const AQTime time = document.sequence().at(2).time;
        times += std::to_string(time.minuteOfDay()) + ' ';
    }
    EXPECT_EQ(times, "966 965 1020 900 ");
}

} // namespace
