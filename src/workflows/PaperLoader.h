#pragma once

#include <QPluginLoader>
#include <QStringList>

class Paper;

/// Loads the module for printing and SVG when it is first asked for.
class PaperLoader {
public:
    /// `places`: files that it may be, the first that exists is taken.
    explicit PaperLoader(QStringList places) : m_places(std::move(places)) {}

    /// Null when it cannot be loaded; `errorString()` says why.
    Paper* load();
    const QString& errorString() const { return m_errorString; }

private:
    QStringList m_places;
    QPluginLoader m_loader;
    QString m_errorString;
};
