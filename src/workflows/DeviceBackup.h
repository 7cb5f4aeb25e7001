#pragma once

#include "yprotocoll/DeviceInfo.h"

#include <QObject>
#include <QString>

#include <optional>

class AQDataSource;
class DocumentCommands;
class Prompts;
class TransferResult;
class Transfers;
struct StoredProgram;

/// Saves what the controller holds as a settings file, without touching the document.
class DeviceBackup : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    DeviceBackup(AQDataSource& data, Transfers& transfers, DocumentCommands& documents,
                 Prompts& prompts, QObject* parent = nullptr);

    /// Reads the controller, then asks where to save. Nothing happens while it is being read
    /// already. The name that it suggests tells the percentage of a program in acclimation; the
    /// file that is open is refused.
    void menuBackup();

Q_SIGNALS:
    void savedTo(const QString& path);

private:
    void onRead(const TransferResult& result, const StoredProgram& program);
    int percentOn(int acclimationDay) const;
    void save(const QString& path, const StoredProgram& program,
              const std::optional<DeviceInfo>& device);

    AQDataSource& m_data;
    Transfers& m_transfers;
    DocumentCommands& m_documents;
    Prompts& m_prompts;
};
