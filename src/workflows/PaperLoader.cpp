#include "workflows/PaperLoader.h"

#include "paper/Paper.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

Paper* PaperLoader::load() {
    const auto found =
        std::ranges::find_if(m_places, [](const QString& place) { return QFile::exists(place); });
    if (found == m_places.end()) {
        m_errorString = QCoreApplication::translate("PaperLoader", "There is no %1")
                            .arg(QDir::cleanPath(m_places.value(0)));
        return nullptr;
    }
    if (m_loader.fileName().isEmpty())
        m_loader.setFileName(*found);
    auto* paper = qobject_cast<Paper*>(m_loader.instance());
    m_errorString = m_loader.isLoaded() && !paper
                        ? QCoreApplication::translate("PaperLoader", "%1 is not ours").arg(*found)
                        : m_loader.errorString();
    return paper;
}
