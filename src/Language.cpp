#include "Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace {

bool load(const QLocale& language, const QString& name, const QString& folder,
          QCoreApplication& application) {
    auto translator = std::make_unique<QTranslator>(&application);
    return translator->load(language, name, QStringLiteral("_"), folder) &&
           application.installTranslator(translator.release());
}

} // namespace

// Not QTranslator's own choice, which knows of no language that is in no file: to somebody who
// wants English before German it would give German.
void Language::install(QCoreApplication& application) {
    for (const QString& name : QLocale().uiLanguages()) {
        const QLocale language(name);
        if (language.language() == QLocale::English || language.language() == QLocale::C)
            return;
        if (!load(language, QStringLiteral("aquelon"), QStringLiteral(":/translations"),
                  application))
            continue;
        // What Qt says itself, in the buttons of questions and in the file dialogs.
        load(language, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath),
             application);
        return;
    }
}
