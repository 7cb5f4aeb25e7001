#include "MainWindow.h"

#include "controls/AccentColor.h"
#include "controls/Announcement.h"
#include "controls/Draft.h"
#include "controls/curve/AQCurveView.h"
#include "controls/points/AQPointList.h"
#include "data/AQDataSource.h"
#include "data/PointColumn.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QScreen>
#include <QUrl>

namespace {

/// Green and red, each readable on the light and on the dark brand bar.
QColor statusColor(bool isConnected, bool onDark) {
    if (onDark)
        return isConnected ? QColor(88, 204, 146) : QColor(255, 128, 134);
    return isConnected ? QColor(24, 121, 78) : QColor(176, 32, 48);
}

/// What a desktop puts around a window.
constexpr QSize frameRoom{8, 40};

/// For what may have gone wrong, readable on both too.
QColor warningColor(bool onDark) {
    return onDark ? QColor(255, 190, 92) : QColor(150, 82, 0);
}

/// The path of the one local file that is being dragged, else empty.
QString draggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

void setTextColor(QWidget& widget, const QColor& color) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, color);
    widget.setPalette(palette);
}

} // namespace

MainWindow::MainWindow(AQDataSource& document)
    : m_ui(std::make_unique<Ui::MainWindow>()),
      m_curveView(new AQCurveView(document.sequence(), document.selection(), this)),
      m_tableView(new AQPointList(document.sequence(), document.selection(), this)) {
    m_ui->setupUi(this);
    placeEditors();
    setCentralWidget(m_ui->content);
    // Not larger than the screen, which may be a small one, with a frame around.
    resize(size().boundedTo(screen()->availableSize() - frameRoom));
    setShortcuts();
    for (const QAction* command :
         {m_ui->menuitemNew,         m_ui->menuitemNewDay,   m_ui->menuitemOpen,
          m_ui->menuitemSave,        m_ui->menuitemSaveAs,   m_ui->menuitemExport,
          m_ui->menuitemPrint,       m_ui->menuitemUndo,     m_ui->menuitemRedo,
          m_ui->menuitemCut,         m_ui->menuitemPaste,    m_ui->menuitemAddPoint,
          m_ui->menuitemDeletePoint, m_ui->menuitemShiftDay, m_ui->menuitemScaleIntensity,
          m_ui->menuitemAcclimate,   m_ui->menuitemLoad,     m_ui->menuitemSend,
          m_ui->menuitemCompare,     m_ui->menuitemBackup})
        connect(command, &QAction::triggered, this, &MainWindow::finishTyping);
    connect(m_ui->menuitemQuit, &QAction::triggered, this, &MainWindow::requestClose);
    showConnected(false);
    showPortProblem({}, {}, false);
    // Apart from the word that it stands before.
    m_ui->lblLampState->setContentsMargins(0, 0, 8, 0);
    m_curveView->setFocus();
}

MainWindow::~MainWindow() = default;

// Not in the .ui file, from which they would come without the program they show.
void MainWindow::placeEditors() {
    m_curveView->setObjectName(QStringLiteral("curveView"));
    m_ui->curvePlace->addWidget(m_curveView);
    m_tableView->setObjectName(QStringLiteral("tableView"));
    m_ui->tablePlace->addWidget(m_tableView);
    // They are read where they stand.
    setTabOrder(m_ui->bttnStatusHelp, m_curveView);
    setTabOrder(m_curveView, m_ui->bttnAcclimation);
    m_tableView->setTabAnchor(*m_ui->bttnAcclimation);
}

void MainWindow::setShortcuts() {
    m_ui->menuitemNew->setShortcut(QKeySequence::New);
    m_ui->menuitemOpen->setShortcut(QKeySequence::Open);
    m_ui->menuitemSave->setShortcut(QKeySequence::Save);
    // The standard keys for these two exist on some desktops only.
    m_ui->menuitemSaveAs->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    m_ui->menuitemPrint->setShortcut(QKeySequence::Print);
    m_ui->menuitemQuit->setShortcut(Qt::CTRL | Qt::Key_Q);
    m_ui->menuitemUndo->setShortcut(QKeySequence::Undo);
    QList<QKeySequence> redo = QKeySequence::keyBindings(QKeySequence::Redo);
    redo.removeAll(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    redo.prepend(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    redo.append(Qt::CTRL | Qt::Key_Y); // what hands from another desktop look for
    m_ui->menuitemRedo->setShortcuts(redo);
    m_ui->menuitemCut->setShortcuts(QKeySequence::Cut);
    m_ui->menuitemCopy->setShortcuts(QKeySequence::Copy);
    m_ui->menuitemPaste->setShortcuts(QKeySequence::Paste);
    m_ui->menuitemAddPoint->setShortcut(Qt::CTRL | Qt::Key_Plus);
    m_ui->menuitemDeletePoint->setShortcut(Qt::CTRL | Qt::Key_Minus);
    m_ui->menuitemOpenDevice->setShortcut(Qt::CTRL | Qt::Key_D);
    m_ui->menuitemLoad->setShortcut(Qt::CTRL | Qt::Key_L);
    m_ui->menuitemSend->setShortcut(Qt::CTRL | Qt::Key_E);
    m_ui->menuitemLiveMode->setShortcut(Qt::CTRL | Qt::Key_I);
    m_ui->menuitemRunDemo->setShortcut(Qt::CTRL | Qt::Key_R);
    m_ui->menuitemSetDeviceTime->setShortcut(Qt::CTRL | Qt::Key_T);
    m_ui->menuitemUserGuide->setShortcut(QKeySequence::HelpContents);
}

bool MainWindow::finishTyping() {
    for (QWidget* each = focusWidget(); each; each = each->parentWidget())
        if (auto* const draft = dynamic_cast<Draft*>(each))
            return draft->commit();
    return true;
}

void MainWindow::requestClose() {
    // A refusal must be seen, and the window with it.
    if (finishTyping())
        Q_EMIT closeRequested();
}

void MainWindow::showConnected(bool isConnected) {
    const bool isNews = isConnected != m_isConnected;
    m_isConnected = isConnected;
    const QColor color = statusColor(isConnected, AccentColor::isDark(palette()));
    m_ui->lblConnectionStatus->setText(isConnected ? tr("CONNECTED") : tr("NOT CONNECTED"));
    if (isNews)
        Announcement::make(*this, m_ui->lblConnectionStatus->text());
    setTextColor(*m_ui->lblConnectionStatus, color);
    setTextColor(*m_ui->lblConnectionDot, color);
    refreshLampState();
}

void MainWindow::showLampState(const QString& text, const QString& explanation, bool isWarning) {
    const bool isNews = text != m_lampState && !text.isEmpty();
    m_lampState = text;
    m_lampExplanation = explanation;
    m_isLampStateWarning = isWarning;
    if (isNews)
        Announcement::make(*this, text);
    refreshLampState();
}

void MainWindow::showProgress(const QString& text) {
    m_progress = text;
    refreshLampState();
}

void MainWindow::refreshLampState() {
    AQBarLabel& label = *m_ui->lblLampState;
    // Wide enough for both, and the longest progress before there is any.
    label.setReserve(m_isConnected ? QStringList{m_lampState, tr("Sending 00 of 00")}
                                   : QStringList());
    label.setText(m_progress.isEmpty() ? m_lampState : m_progress);
    label.setVisible(!label.text().isEmpty());
    const bool isWarning = m_isLampStateWarning && m_progress.isEmpty();
    setTextColor(label, isWarning ? warningColor(AccentColor::isDark(palette()))
                                  : palette().color(QPalette::WindowText));
    label.setToolTip(m_lampExplanation);
    m_ui->lblConnectionStatus->setToolTip(m_lampState.isEmpty() ? m_lampExplanation : QString());
}

void MainWindow::showPortProblem(const QString& text, const QString& help, bool hasRemedies) {
    m_ui->bttnPortHelp->setVisible(hasRemedies);
    m_ui->lblPortProblem->setText(text);
    m_ui->lblPortProblem->setToolTip(help.isEmpty() ? text : text + u'\n' + help);
    m_ui->lblPortProblem->setVisible(!text.isEmpty());
}

void MainWindow::showPreview(const QString& text) {
    m_ui->lblPreview->setSign(text);
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showConnected(m_isConnected);
}

bool MainWindow::focusNextPrevChild(bool next) {
    // A control that can no longer be used would hand the focus on to whatever comes next.
    const QWidget* focused = focusWidget();
    if (focused && !(focused->isEnabled() && focused->isVisible()) && m_curveView->isEnabled()) {
        m_curveView->setFocus();
        return true;
    }
    // From the curve to the point that was worked on there, not to the first.
    if (next && focused == m_curveView && m_tableView->selectedRow() >= 0) {
        m_tableView->focusEditor(m_tableView->selectedRow(), PointColumn::time, Qt::TabFocusReason);
        return true;
    }
    return QMainWindow::focusNextPrevChild(next);
}

bool MainWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)
        Q_EMIT modalChanged(event->type() == QEvent::WindowBlocked);
    return QMainWindow::event(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // The program ends without closing the window, after the questions and the lamp are done with.
    event->ignore();
    requestClose();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!QApplication::activeModalWidget() && !draggedFile(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = draggedFile(*event->mimeData());
    if (path.isEmpty() || QApplication::activeModalWidget())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    finishTyping();
    Q_EMIT fileDropped(path);
}

void MainWindow::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    if (!m_wasPainted) {
        m_wasPainted = true;
        // Queued: the controls are painted after the window itself, in the same turn.
        QMetaObject::invokeMethod(this, &MainWindow::firstPainted, Qt::QueuedConnection);
    }
}
