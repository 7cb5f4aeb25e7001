#include "Language.h"
#include "SimulatedProgram.h"
#include "controls/curve/AQCurveView.h"
#include "workflows/DialogPrompts.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMenuBar>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

namespace {

using namespace std::chrono_literals;

/// A language half as long again, in which each piece of a text stands in brackets, but not what is
/// put into its places: what is outside of them was never translated.
class Bracketed : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* source, const char* /*disambiguation*/,
                      int /*n*/) const override {
        static const QRegularExpression place(QStringLiteral("%(L?[1-9]|n)"));
        const QString text = QString::fromUtf8(source);
        QString result;
        qsizetype from = 0;
        for (const auto& match : place.globalMatch(text)) {
            result += bracketed(text.sliced(from, match.capturedStart() - from)) + match.captured();
            from = match.capturedEnd();
        }
        return result + bracketed(text.sliced(from));
    }

private:
    static QString bracketed(const QString& piece) {
        static const QRegularExpression letter(QStringLiteral("\\pL"));
        if (!piece.contains(letter))
            return piece;
        QString longer = piece;
        for (int i = 0; longer.size() + 2 < piece.size() * 7 / 5; ++i)
            longer += i % 8 == 0 ? u' ' : u'n';
        return u'\u2039' + longer + u'\u203a';
    }
};

/// The words in `text` that were never translated; names and units are none.
QString untranslatedIn(QString text) {
    static const QRegularExpression translated(QStringLiteral("\u2039[^\u2039\u203a]*\u203a"));
    static const QRegularExpression names(
        QStringLiteral("\\b(Aquelon|Qt|spdlog|fmt|GLib|libudev|MIT|LGPL v[\\d.]+|UTC|AM|PM)\\b|"
                       "/[\\w/]+"));
    static const QRegularExpression word(QStringLiteral("\\pL{2}"));
    text.remove(translated).remove(names);
    return text.contains(word) ? text.trimmed() : QString();
}

/// Before the window is made.
struct BracketedLanguage {
    BracketedLanguage() { QCoreApplication::installTranslator(&translator); }

    Bracketed translator;
};

class BracketedProgramTest : public testing::Test,
                             BracketedLanguage,
                             public SimulatedProgram<DialogPrompts> {
protected:
    BracketedProgramTest() : SimulatedProgram({.scan = 20ms, .arrival = 1ms}) {
        prompts.setParent(&delegate.window());
        start();
        plug();
        runUntil([this] { return controller.isConnected() && ui().bttnLoad->isEnabled(); });
    }

    QAction& item(const char* name) {
        return *delegate.window().findChild<QAction*>(QLatin1String(name));
    }
};

/// What an object says, by the properties that it has.
void collect(const QObject& object, QStringList& found) {
    static const QSet<QByteArray> silent{"objectName",    "styleSheet",    "windowRole",
                                         "displayFormat", "inputMask",     "defaultSuffix",
                                         "fontFamily",    "windowFilePath"};
    // Logs and diagnostics stay as they are; Qt fills its file dialogs with files.
    if (qobject_cast<const QPlainTextEdit*>(&object) ||
        (object.parent() && qobject_cast<const QFileDialog*>(object.parent())))
        return;
    const bool speaks = object.isWidgetType() || qobject_cast<const QAction*>(&object);
    for (int i = 0; speaks && i < object.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = object.metaObject()->property(i);
        if (property.metaType() != QMetaType::fromType<QString>() ||
            silent.contains(property.name()))
            continue;
        const QString text = property.read(&object).toString();
        if (const QString words = untranslatedIn(text); !words.isEmpty())
            found << QStringLiteral("%1.%2: %3")
                         .arg(QLatin1String(object.metaObject()->className()),
                              QLatin1String(property.name()), words);
    }
    for (const QObject* child : object.children())
        collect(*child, found);
}

void collectAccessible(QAccessibleInterface& element, QStringList& found) {
    if (qobject_cast<const QFileDialog*>(element.object()))
        return;
    for (const auto kind : {QAccessible::Name, QAccessible::Description})
        if (const QString words = untranslatedIn(element.text(kind)); !words.isEmpty())
            found << QStringLiteral("accessible: ") + words;
    for (int i = 0; i < element.childCount(); ++i)
        if (auto* child = element.child(i))
            collectAccessible(*child, found);
}

QStringList saidByAll() {
    QStringList found;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        collect(*widget, found);
        if (auto* accessible = QAccessible::queryAccessibleInterface(widget))
            collectAccessible(*accessible, found);
    }
    found.removeDuplicates();
    return found;
}

void closeDialogs(const QWidget& window) {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget != &window && widget->isVisible())
            widget->close();
    QTest::qWait(1);
}

TEST_F(BracketedProgramTest, everythingThatIsSaidIsTranslated) {
    ASSERT_TRUE(controller.isConnected());
    EXPECT_EQ(saidByAll().join(u'\n').toStdString(), "");
    data.selection().select(data.sequence().idAt(1), nullptr);
    ui().bttnTableItemDelete->click(); // a step, and unsaved
    delegate.window().curveView().openFields(data.sequence().idAt(1));
    data.setAcclimation(Acclimation{60, 28, today});
    Q_EMIT notifications.acclimationChanged(nullptr);
    for (const char* name : {"menuitemUndo",
                             "menuitemCopy",
                             "menuitemPaste",
                             "menuitemShiftDay",
                             "menuitemScaleIntensity",
                             "menuitemAcclimate",
                             "menuitemOpenDevice",
                             "menuitemCompare",
                             "menuitemSend",
                             "menuitemLiveMode",
                             "menuitemSetDeviceTime",
                             "menuitemStatusHelp",
                             "menuitemTaskHelp",
                             "menuitemDiagnostics",
                             "menuitemProtocolLog",
                             "menuitemAbout",
                             "menuitemNew",
                             "menuitemOpen",
                             "menuitemSaveAs",
                             "menuitemRunDemo"}) {
        item(name).trigger();
        QTest::qWait(50);
        EXPECT_EQ(saidByAll().join(u'\n').toStdString(), "") << name;
        closeDialogs(delegate.window());
    }
}

TEST_F(BracketedProgramTest, longWordsAreNotCutInASmallWindow) {
    ASSERT_TRUE(controller.isConnected());
    QWidget& window = delegate.window();
    ui().bttnLoad->click();
    ASSERT_TRUE(runUntil([this] { return ui().lblLampState->isVisible(); }));
    ui().bttnLiveModeSwitch->click();
    const auto cut = [&window] {
        QStringList names;
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            const bool isText =
                qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget);
            if (!isText || !widget->isVisible())
                continue;
            const QSize least = widget->minimumSizeHint();
            const QRect place(widget->mapTo(&window, QPoint()), widget->size());
            if (widget->size().expandedTo(least) != widget->size() ||
                !window.rect().contains(place))
                names += widget->objectName();
        }
        return names.join(u' ').toStdString();
    };
    window.resize(900, 640);
    QTest::qWait(50); // for the layout, which has fitted the former size
    EXPECT_TRUE(runUntil([&] { return cut().empty(); }, 1s)) << cut();
    EXPECT_EQ(window.size(), QSize(900, 640)) << "it does not get as small";
}

/// The window of somebody who wants German.
struct GermanLanguage {
    GermanLanguage() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Austria));
        Language::install(*qApp);
    }
    ~GermanLanguage() {
        qDeleteAll(qApp->findChildren<QTranslator*>());
        QLocale::setDefault(QLocale::c());
    }
};

class GermanProgramTest : public testing::Test,
                          GermanLanguage,
                          public SimulatedProgram<DialogPrompts> {
protected:
    GermanProgramTest() : SimulatedProgram({.scan = 20ms, .arrival = 1ms}) {}

    /// The mnemonics that several items of a menu have.
    static QStringList sharedMnemonics(const QList<QAction*>& items) {
        static const QRegularExpression mnemonic(QStringLiteral("&(\\pL)"));
        QSet<QString> taken;
        QStringList shared;
        for (const QAction* item : items) {
            const QString letter = mnemonic.match(item->text()).captured(1).toLower();
            if (!letter.isEmpty() && taken.contains(letter))
                shared += item->text();
            taken += letter;
        }
        return shared;
    }
};

TEST_F(GermanProgramTest, menusAreGermanAndTheirKeysAreUnambiguous) {
    start();
    data.selection().select(data.sequence().idAt(1), nullptr);
    EXPECT_EQ(ui().menuitemUndo->text(), QStringLiteral("&Rückgängig"));
    ui().bttnTableItemDelete->click();
    EXPECT_EQ(ui().menuitemUndo->text(), QStringLiteral("&Rückgängig: Punkt 10:00 löschen"));
    QStringList shared = sharedMnemonics(ui().menuBar->actions());
    for (const QMenu* menu : ui().menuBar->findChildren<QMenu*>())
        shared += sharedMnemonics(menu->actions());
    EXPECT_EQ(shared.join(u' ').toStdString(), "");
}

} // namespace
