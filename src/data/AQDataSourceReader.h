#pragma once

#include "data/AQTimePoint.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>

class AQDataSource;
struct GuardedXml;

/// Reads a settings file into the document; AQDataSourceWriter describes the format.
///
/// Forgiving about values: what is no integer, a negative time and unknown elements are ignored,
/// colours and intensities are limited to 0..255, a point that lacks a value is dropped. The points
/// are taken in the order of the file, however many they are. Attributes are ignored.
///
/// Strict about the XML, which may come from anywhere: a document type definition, an encoding
/// other than UTF-8, US-ASCII and UTF-16 with a byte order mark, a tag of more than 1024 characters
/// and more than 64 nested elements count as malformed.
///
/// The dirty flag is left to the caller.
class AQDataSourceReader : public QObject {
    Q_OBJECT

public:
    static constexpr qint64 maxFileSize = 1 << 20; ///< bytes
    static constexpr int maxDepth = 64;            ///< nested elements

    /// `document` must outlive the reader.
    explicit AQDataSourceReader(AQDataSource& document, QObject* parent = nullptr);

    /// False when the file cannot be read, is no regular file or is larger than `maxFileSize`;
    /// nothing has changed then and nothing is posted.
    ///
    /// False also for malformed XML; what stood before the fault stays in the document then. In
    /// this case and after success posts, with the reader as object: sectionChanged (-1) and
    /// dataChanged if a timeline was met, dataLoaded always.
    bool loadFromFile(const QString& path);
    /// The same for the contents of a file, however many.
    bool read(const QByteArray& bytes);
    /// What the last `loadFromFile()` found in the file; empty when it could not be read.
    const QByteArray& fileContents() const { return m_fileContents; }
    /// The reason for the last failure, in the system's or the parser's words; empty after a
    /// success.
    QString errorString() const { return m_errorString; }

private:
    /// Returns the fault, empty when there is none.
    QString parse(const GuardedXml& guarded);
    void startElement(const QString& name);
    void endElement();
    void applyText();
    void applyPointValue(qint64 value);
    void applyTaskLightValue(qint64 value);
    void postChanges();

    AQDataSource& m_document;
    QByteArray m_fileContents;
    QString m_errorString;
    QStringList m_contextStack; ///< the open elements, innermost last
    QString m_text;             ///< of the innermost element, since the last tag
    std::optional<AQTime> m_ptTime;
    std::optional<double> m_ptColorTemp;
    std::optional<double> m_ptBrightness;
    bool m_sequenceChanged = false;
};
