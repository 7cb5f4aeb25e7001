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

    static constexpr int columnTime = 0;
    static constexpr int columnColorTemp = 1;
    static constexpr int columnBrightness = 2;

Q_SIGNALS:
    /// The document's dirty flag changed; `document` is the AQDataSource.
    void dataDirty(const QObject* document);
    /// Points were inserted, deleted, reordered or replaced.
    void dataChanged(const QObject* sender);
    /// The whole document was replaced.
    void dataLoaded(const QObject* sender);
    /// One value of one point changed.
    void cellChanged(int row, int column, const QObject* sender);
    /// The person selected a point; -1 clears the selection.
    void sectionChanged(int row, const QObject* sender);
};
