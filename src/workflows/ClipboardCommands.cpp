#include "workflows/ClipboardCommands.h"

#include "data/AQDataSource.h"
#include "data/ProgramChanges.h"
#include "data/ProgramText.h"
#include "workflows/Prompts.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>

namespace {

constexpr qsizetype mostFaultsShown = 10;

QString counted(int count, const QString& noun) {
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? noun : noun + u's');
}

/// As many as an alert has room for.
QString listed(const QStringList& faults) {
    QString text = faults.first(std::min(faults.size(), mostFaultsShown)).join(u'\n');
    if (faults.size() > mostFaultsShown)
        text +=
            QStringLiteral("\nand ") +
            counted(static_cast<int>(faults.size() - mostFaultsShown), QStringLiteral("more line"));
    return text;
}

} // namespace

ClipboardCommands::ClipboardCommands(AQDataSource& data, Prompts& prompts, Outlets outlets,
                                     QObject* parent)
    : QObject(parent), m_data(data), m_prompts(prompts), m_outlets(outlets) {
    const NotificationCenter& notifications = data.notifications();
    connect(&notifications, &NotificationCenter::sectionChanged, this,
            &ClipboardCommands::updateItems);
    connect(&notifications, &NotificationCenter::dataChanged, this,
            &ClipboardCommands::updateItems);
    connect(&m_outlets.menuitemCut, &QAction::triggered, this, &ClipboardCommands::cut);
    connect(&m_outlets.menuitemCopy, &QAction::triggered, this, &ClipboardCommands::copy);
    connect(&m_outlets.menuitemPaste, &QAction::triggered, this, &ClipboardCommands::paste);
    updateItems();
}

void ClipboardCommands::setEditing(const ControlState& editing) {
    m_editing = editing;
    updateItems();
}

void ClipboardCommands::updateItems() {
    const QString what = m_data.selection().row() >= 0 ? QStringLiteral("the selected point")
                                                       : QStringLiteral("the whole program");
    ControlState copy{true, QStringLiteral("Copy %1 as text").arg(what)};
    ControlState cut{true, QStringLiteral("Copy %1 as text, and delete it").arg(what)};
    ControlState paste{true, QStringLiteral("Add the time points in the clipboard")};
    if (m_data.sequence().count() == 0)
        copy = cut = {false, QStringLiteral("The program has no points")};
    if (!m_editing.isEnabled)
        cut = paste = m_editing;
    copy.applyTo(m_outlets.menuitemCopy);
    cut.applyTo(m_outlets.menuitemCut);
    paste.applyTo(m_outlets.menuitemPaste);
}

std::vector<AQTimePoint> ClipboardCommands::chosenPoints() const {
    const int row = m_data.selection().row();
    if (row < 0)
        return m_data.sequence().points();
    return {m_data.sequence().at(row)};
}

void ClipboardCommands::copy() {
    if (m_data.sequence().count() > 0)
        QGuiApplication::clipboard()->setText(ProgramText::write(chosenPoints()));
}

void ClipboardCommands::cut() {
    AQSequence& sequence = m_data.sequence();
    if (!m_editing.isEnabled || sequence.count() == 0)
        return;
    // What a drag did to a point that is cut in the middle of it is not what an undo should bring
    // back.
    m_data.history().cancelGesture();
    copy();
    const int row = m_data.selection().row();
    if (row < 0) {
        sequence.replaceAll({}, QStringLiteral("Cut Program"), this);
        return;
    }
    std::vector<AQTimePoint> others = sequence.points();
    others.erase(others.begin() + row);
    const AQTime time = sequence.at(row).time;
    sequence.replaceAll(std::move(others),
                        QString::asprintf("Cut %02d:%02d", time.hour, time.minute), this);
}

void ClipboardCommands::paste() {
    if (!m_editing.isEnabled)
        return;
    const QMimeData* contents = QGuiApplication::clipboard()->mimeData();
    const QString text = contents ? contents->text() : QString();
    if (text.size() < ProgramText::maxLength && text.trimmed().isEmpty())
        m_prompts.alert(QStringLiteral("There is no text with time points in the clipboard."),
                        QStringLiteral("Copy points here, or lines with a time, the intensity and "
                                       "the colour temperature from a spreadsheet."),
                        Prompts::Severity::Information);
    else
        pasteText(text);
}

void ClipboardCommands::pasteText(const QString& text) {
    const ProgramText::Reading reading = ProgramText::read(text);
    if (!reading.faults.isEmpty()) {
        m_prompts.alert(QStringLiteral("The text in the clipboard cannot be pasted."),
                        listed(reading.faults), Prompts::Severity::Information);
        return;
    }
    const AQSequence& sequence = m_data.sequence();
    const auto merged = ProgramChanges::merged(sequence.points(), reading.points);
    const int count = static_cast<int>(merged.size());
    // A program that is too long already may be changed, but not become longer.
    const int room = std::max(sequence.pointLimit(), sequence.count());
    if (count <= room)
        apply(merged, reading.points);
    else
        tellWhatDoesNotFit(reading.points, count - room);
}

void ClipboardCommands::tellWhatDoesNotFit(const std::vector<AQTimePoint>& pasted, int missing) {
    const int limit = m_data.sequence().pointLimit();
    const int count = static_cast<int>(pasted.size());
    const QString message = QStringLiteral("Not all pasted points fit into the program.");
    const QString points = counted(m_data.sequence().count(), QStringLiteral("point"));
    const QString figures =
        QStringLiteral("The program has %1 and %2 %3: %4 of the %5 pasted points fit.")
            .arg(points, m_data.device() ? QStringLiteral("the controller holds")
                                         : QStringLiteral("can have"))
            .arg(limit)
            .arg(count - missing)
            .arg(count);
    if (count > limit) {
        m_prompts.alert(message, figures + QStringLiteral(" Nothing was pasted."),
                        Prompts::Severity::Information);
        return;
    }
    m_prompts.offer(message,
                    figures + QStringLiteral(" Or they can take the place of the whole program."),
                    QStringLiteral("&Replace the Program"), [this, pasted](bool isWanted) {
                        if (isWanted)
                            apply(ProgramChanges::merged({}, pasted), pasted);
                    });
}

void ClipboardCommands::apply(const std::vector<AQTimePoint>& points,
                              const std::vector<AQTimePoint>& pasted) {
    AQSequence& sequence = m_data.sequence();
    const auto minute = [](const AQTimePoint& point) { return point.time.minuteOfDay(); };
    const int first = minute(*std::ranges::min_element(pasted, {}, minute));
    const auto row = std::ranges::find(points, first, minute) - points.begin();
    const bool isNew = points[static_cast<std::size_t>(row)].id == AQPointId::none;
    sequence.replaceAll(points, QStringLiteral("Paste"), this);

    const AQPointId id = sequence.idAt(static_cast<int>(row));
    if (isNew && pasted.size() == 1)
        m_data.selection().selectAdded(id, this);
    else
        m_data.selection().select(id, this);
}
