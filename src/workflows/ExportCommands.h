#pragma once

#include "workflows/PaperLoader.h"

#include <QObject>

class AQDataSource;
class DayPage;
class DocumentCommands;
class Prompts;
class QWidget;

/// The light program on paper: "Export", as a picture, a PDF or a table, and "Print".
class ExportCommands : public QObject {
    Q_OBJECT

public:
    struct Context {
        const AQDataSource& data;
        const DocumentCommands& documents; ///< what its file is
        Prompts& prompts;
        QWidget& window; ///< over which the print dialog is shown
    };

    /// All in `context` must outlive this. `paperModule` is where PaperLoader looks.
    ExportCommands(const Context& context, const QStringList& paperModule,
                   QObject* parent = nullptr);

    void menuExport();
    void menuPrint();

Q_SIGNALS:
    void savedTo(const QString& path);

private:
    /// The contents of a file of the type that its ending names, or why there are none.
    struct Written {
        QByteArray contents;
        QString fault = {};
    };

    void exportTo(const QString& path, const QString& type);
    void write(const QString& path, const QString& type);
    Written written(const QString& type);
    Written png() const;
    Written svg();
    Written pdf() const;
    DayPage page() const;
    QString name() const;

    Context m_context;
    PaperLoader m_paper;
};
