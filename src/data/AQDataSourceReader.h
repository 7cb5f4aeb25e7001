#pragma once

#include "data/AQDataSource.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>

struct GuardedXml;

/// Reads a settings file into the document; AQDataSourceWriter describes the format.
///
/// Forgiving about values: what is no integer, a negative time and unknown elements are ignored,
/// colours and intensities are limited to 0..255, a point that lacks a value is dropped. The points
/// are taken in the order of the file, also those outside a timeline. An acclimation that lacks a
/// value, or has one out of its limits, is none. Attributes are ignored.
///
/// Strict about the XML, which may come from anywhere: a document type with definitions of its own,
/// an encoding other than UTF-8, US-ASCII, ISO-8859-1 and UTF-16 with a byte order mark, a tag of
/// more than 1024 characters and more than 64 nested elements count as malformed. What a document
/// type refers to is never fetched.
///
/// The dirty flag is left to the caller.
class AQDataSourceReader : public QObject {
    Q_OBJECT

public:
    static constexpr qint64 maxFileSize = 1 << 20; ///< bytes
    static constexpr int maxDepth = 64;            ///< nested elements
    static constexpr int maxPoints = 1440;         ///< in the document; one for each minute

    /// `document` must outlive the reader.
    explicit AQDataSourceReader(AQDataSource& document, QObject* parent = nullptr);

    /// False when the file cannot be read, is no regular file, is larger than `maxFileSize` or
    /// would give the document more than `maxPoints` points; nothing has changed then and nothing
    /// is posted.
    ///
    /// False also for malformed XML; what stood before the fault is in the document then. In this
    /// case and after success posts, with the reader as object: sectionChanged (-1) and dataChanged
    /// if a timeline or a point was met, dataLoaded always.
    bool loadFromFile(const QString& path);
    /// The same for the contents of a file, however many.
    bool read(const QByteArray& bytes);
    /// What the last `loadFromFile()` found in the file; empty when it could not be read.
    const QByteArray& fileContents() const { return m_fileContents; }
    /// The reason for the last failure, in the system's or the parser's words; empty after a
    /// success.
    QString errorString() const { return m_errorString; }
    /// False when the document's program is not the file's, because the file has no timeline.
    bool foundTimeline() const { return m_foundTimeline; }

private:
    /// Returns the fault, empty when there is none.
    QString parse(const GuardedXml& guarded);
    void startElement(const QString& name);
    void endElement();
    void applyText();
    void applyPointValue(qint64 value);
    void applyTaskLightValue(qint64 value);
    void applyAcclimationValue(qint64 value);
    bool hasTooManyPoints() const { return m_contents.points.size() > maxPoints; }
    void applyContents();

    AQDataSource& m_document;
    QByteArray m_fileContents;
    QString m_errorString;
    AQDataSource::Contents m_contents; ///< what the document is going to hold
    QStringList m_contextStack;        ///< the open elements, innermost last
    QString m_text;                    ///< of the innermost element, since the last tag
    std::optional<AQTime> m_ptTime;
    std::optional<double> m_ptColorTemp;
    std::optional<double> m_ptBrightness;
    Acclimation m_acclimation; ///< what is known of it, invalid until all is
    bool m_foundTimeline = false;
    bool m_sequenceChanged = false;
};
