#pragma once

#include "lamp/ProgramComparison.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class AQDataSource;
class ComparePanel;
class DocumentCommands;
class LampContents;
class Prompts;
class QWidget;
class TransferResult;
class Transfers;
class YMessageController;
struct AQTimePoint;

/// Reads what the controller holds, tells in a window how the document differs from it, and makes
/// them equal as the person chooses.
class DeviceComparison : public QObject {
    Q_OBJECT

public:
    /// What it works on; all must outlive it.
    struct Context {
        AQDataSource& data;
        YMessageController& controller;
        Transfers& transfers;
        const LampContents& lamp;
        DocumentCommands& documents;
        Prompts& prompts;
        QWidget* window; ///< that the panel stands over
    };
    explicit DeviceComparison(const Context& context);
    ~DeviceComparison() override;

    /// Nothing happens while the controller is being read already.
    void menuCompare();
    /// The link opened or was lost.
    void setConnected(bool isConnected);

Q_SIGNALS:
    /// The controller has been read and is compared with the document next.
    void arrived();
    /// The lamp's program, while it is compared; then none.
    void ghostChanged(const std::optional<std::vector<AQTimePoint>>& points);
    /// The person wants to send the document.
    void sendRequested();

private:
    void onRead(const TransferResult& result, const StoredProgram& program);
    QStringList notesOn(const StoredProgram& program) const;
    static std::optional<std::vector<AQTimePoint>> ghostOf(const StoredProgram& program);
    void makePanel();
    void take();

    Context m_context;
    std::unique_ptr<ComparePanel> m_panel; ///< null until it is asked for
    StoredProgram m_read;
};
