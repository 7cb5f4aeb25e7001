#pragma once

#include <QMainWindow>

#include <memory>

class AQCurveView;
class AQDataSource;
class AQPointList;

namespace Ui {
class MainWindow;
}

/// The one window: outlets from MainWindow.ui, the curve and the list of points of the document,
/// and the events that only a window gets.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Shows `document`, which must outlive the window.
    explicit MainWindow(AQDataSource& document);
    ~MainWindow() override;

    /// The controls, by their outlet names.
    Ui::MainWindow& outlets() { return *m_ui; }
    AQCurveView& curveView() { return *m_curveView; }
    AQPointList& tableView() { return *m_tableView; }

    void showConnected(bool isConnected);
    /// What the lamp holds, and as a tool tip what is behind it; an empty text while that is not
    /// known.
    void showLampState(const QString& text, const QString& explanation, bool isWarning);
    /// How far a transfer is, in the place of the lamp's state; an empty text when there is none.
    void showProgress(const QString& text);
    /// Why a controller that is plugged in cannot be opened, and what helps; an empty text hides
    /// it. With remedies there is a button for them.
    void showPortProblem(const QString& text, const QString& help, bool hasRemedies);
    /// The sign that the lamp shows a preview; an empty text hides it.
    void showPreview(const QString& text);

    /// What is being typed counts for a command that is given before the focus leaves its field.
    /// False when it was refused.
    bool finishTyping();

Q_SIGNALS:
    /// Once, when the window has been painted for the first time.
    void firstPainted();
    /// The person wants to close the window, which stays open until the program ends.
    void closeRequested();
    void fileDropped(const QString& path);
    /// A modal window over this one appeared or went.
    void modalChanged(bool isModal);

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void placeEditors();
    void setShortcuts();
    void requestClose();
    void refreshLampState();

    std::unique_ptr<Ui::MainWindow> m_ui;
    AQCurveView* m_curveView;
    AQPointList* m_tableView;
    bool m_isConnected = false;
    QString m_lampState;
    QString m_lampExplanation;
    bool m_isLampStateWarning = false;
    QString m_progress;
    bool m_wasPainted = false;
};
