#pragma once

#include <QObject>

/// Where the changes of the document are announced. Signals come synchronously, on the main thread.
///
/// Each carries the object that caused the change (may be null), so that an originator can ignore
/// the echo of its own change.
class NotificationCenter : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    /// The document's dirty flag changed; `document` is the AQDataSource.
    void dataDirty(const QObject* document);
    /// Points were inserted, deleted, reordered or replaced.
    void dataChanged(const QObject* sender);
    /// The whole document was replaced.
    void dataLoaded(const QObject* sender);
    /// The task light, or the mode, was changed, alone.
    void taskLightChanged(const QObject* sender);
    void programModeChanged(const QObject* sender);
    /// The acclimation began, ended or is another one, alone or with more.
    void acclimationChanged(const QObject* sender);
    /// The date has become another one while there is an acclimation, so today's light may have.
    void dayChanged();
    /// One value of one point changed; `column` is a PointColumn.
    void cellChanged(int row, int column, const QObject* sender);
    /// The person turned to the point in this row, or the selected point is another or in another
    /// row than before; -1 for none. `AQSelection` tells which point it is.
    void sectionChanged(int row, const QObject* sender);
    /// Other points are to be shown instead of the program, or the program again; the document
    /// has not changed.
    void previewChanged();
};
