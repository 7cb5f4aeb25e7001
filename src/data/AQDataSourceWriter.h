#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class AQDataSource;

/// Writes the document as a settings file: XML, UTF-8, indented with tabs, every value a decimal
/// integer.
///
///     settings
///         task_light_mode: nMinutes, nSeconds, color, intensity (both 0..255)
///         mode1_10v: 1 for program mode, 0 for analog mode - the name says the opposite
///         firmware: major.minor.build of the connected controller, 0.0.0 without one
///         dev_type: its device type, 0 without one
///         timeline
///             point: time (minute of the day), intensity, color; one for each point
///         acclimation, if there is one: start (percent, 1..100), days (2..100), first_day
///         (yyyymmdd)
class AQDataSourceWriter : public QObject {
    Q_OBJECT

public:
    /// `document` must outlive the writer.
    explicit AQDataSourceWriter(AQDataSource& document, QObject* parent = nullptr);

    /// The file's contents.
    QByteArray text() const;
    /// Replaces the file at once or not at all, and clears the document's dirty flag.
    /// False: the old file and the flag are as they were, and `errorString()` has the reason.
    bool saveToFile(const QString& path);
    /// The system's reason for the last failure; empty after a success.
    QString errorString() const { return m_errorString; }

private:
    AQDataSource& m_document;
    QString m_errorString;
};
