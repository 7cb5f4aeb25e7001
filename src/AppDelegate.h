#pragma once

#include "data/AQDataSource.h"
#include "yprotocoll/YMessageError.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class MainWindow;
class Prompts;
class YMessageController;
struct WindowState;

/// Composes the program: owns the window and the workflows, connects them to the document and the
/// link, and carries out start-up and quit.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// What the program works on; the real ones come from `main`, tests make their own.
    struct Services {
        AQDataSource& data;
        YMessageController& controller;
        Prompts& prompts;
        QString recoveryFolder = {};  ///< of RecoveryCopy; none are written with an empty one
        QString recentFiles = {};     ///< the list of RecentFiles; none with an empty one
        QStringList paperModule = {}; ///< of PaperLoader
    };

    explicit AppDelegate(const Services& services);
    ~AppDelegate() override;

    /// Shows the window; once it has been painted, starts discovery and offers what can be
    /// recovered. `file` is opened as by Open...; empty for none.
    void applicationDidFinishLaunching(const QString& file);

    enum class Ask { AboutChanges, Nothing };
    /// Ends the program: asks about unsaved changes (unless told not to), waits for a send, gives
    /// the lamp back to the controller's program if a preview has it, closes the link, then emits
    /// `terminated`, once what there was to tell of the send has been read. Asks nothing while it
    /// is ending already.
    /// Without asking, unsaved changes are kept for recovery.
    void applicationShouldTerminate(Ask ask);

    MainWindow& window() { return *m_window; }

Q_SIGNALS:
    /// The window has been painted, or is not going to be at once: what is not needed for its first
    /// picture may begin.
    void started();
    /// Everything is done; the event loop may end.
    void terminated();
    /// As that of Recovery.
    void recoversElsewhere(const QString& copy);

private:
    struct Workflows;

    void connectDocument();
    void connectDevice();
    void connectLampContents();
    void connectComparison();
    void connectPreview();
    void connectHelp();
    void showDiagnostics();
    void showProtocolLog();
    WindowState state() const;
    void onShown(const QString& file);
    void closeDialogsThenTerminate();
    void onDepartureEnded();
    void onConnectedChanged(bool isConnected);
    void openChosenDevice(const std::string& path);
    void menuNewDay();
    void menuSetDeviceTime();
    void onBttnHelpDeviceStatus();
    void onBttnHelpTask();
    void showTitle();
    void updateTelling();
    void announceSaved(const QString& path) const;
    void showSign();
    void showStatistics();
    void showLampState();
    void showPortProblem(const QString& problem, const QString& help,
                         const std::vector<YMessageError::PortRemedy>& remedies);
    void updateControls();

    Services m_services;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Workflows> m_workflows;
    bool m_wasShown = false;
    /// What the document held when the person agreed to a quit; none when nobody is asked.
    std::optional<AQDataSource::Contents> m_agreedTo;
    bool m_isUnattended = false; ///< the program is being ended without asking
};
