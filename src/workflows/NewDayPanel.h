#pragma once

#include "data/AQDataSource.h"

#include <QDialog>

class AQCurveView;
class AQStatisticsLine;
class DayShapeFields;
class DocumentCommands;
class QPushButton;

/// The dialog in which a person describes a new day, with its curve as the fields stand. "OK" makes
/// it the document, after the question about unsaved work; without an answer to that, the dialog
/// stays.
class NewDayPanel : public QDialog {
    Q_OBJECT

public:
    /// `document` and `documents` must outlive the panel.
    NewDayPanel(const AQDataSource& document, DocumentCommands& documents, QWidget* parent);

    /// Shows it as it was left.
    void run();

private:
    QWidget* makeCurve();
    void refresh();
    void onOk();

    const AQDataSource& m_document;
    DocumentCommands& m_documents;
    NotificationCenter m_notifications;
    AQDataSource m_day{m_notifications}; ///< what the curve shows
    AQCurveView* m_curve;
    AQStatisticsLine* m_statistics;
    DayShapeFields* m_fields;
    QPushButton* m_ok;
};
