#include "workflows/ClipboardCommands.h"

#include "data/AQDataSource.h"
#include "data/ProgramChanges.h"
#include "data/ProgramText.h"
#include "data/TimeText.h"
#include "workflows/Prompts.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>

namespace {

constexpr qsizetype mostFaultsShown = 10;

/// As many as an alert has room for.
QString listed(const QStringList& faults) {
    QString text = faults.first(std::min(faults.size(), mostFaultsShown)).join(u'\n');
    if (const auto more = static_cast<int>(faults.size() - mostFaultsShown); more > 0)
        text += u'\n' + (more == 1 ? ClipboardCommands::tr("and 1 more line")
                                   : ClipboardCommands::tr("and %n more lines", nullptr, more));
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
    const bool isOnePoint = m_data.selection().row() >= 0;
    ControlState copy{true, isOnePoint ? tr("Copy the selected point as text")
                                       : tr("Copy the whole program as text")};
    ControlState cut{true, isOnePoint ? tr("Copy the selected point as text, and delete it")
                                      : tr("Copy the whole program as text, and delete it")};
    ControlState paste{true, tr("Add the time points in the clipboard")};
    if (m_data.sequence().count() == 0)
        copy = cut = {false, tr("The program has no points")};
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
        sequence.replaceAll({}, tr("Cut Program"), this);
        return;
    }
    std::vector<AQTimePoint> others = sequence.points();
    others.erase(others.begin() + row);
    const AQTime time = sequence.at(row).time;
    sequence.replaceAll(std::move(others), tr("Cut %1").arg(timeText(time.hour, time.minute)),
                        this);
}

void ClipboardCommands::paste() {
    if (!m_editing.isEnabled)
        return;
    const QMimeData* contents = QGuiApplication::clipboard()->mimeData();
    const QString text = contents ? contents->text() : QString();
    if (text.size() < ProgramText::maxLength && text.trimmed().isEmpty())
        m_prompts.alert(tr("There is no text with time points in the clipboard."),
                        tr("Copy points here, or lines with a time, the intensity and "
                           "the colour temperature from a spreadsheet."),
                        Prompts::Severity::Information);
    else
        pasteText(text);
}

void ClipboardCommands::pasteText(const QString& text) {
    const ProgramText::Reading reading = ProgramText::read(text);
    if (!reading.faults.isEmpty()) {
        m_prompts.alert(tr("The text in the clipboard cannot be pasted."), listed(reading.faults),
                        Prompts::Severity::Information);
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
    const QString message = tr("Not all pasted points fit into the program.");
    const int present = m_data.sequence().count();
    const QString figures =
        (m_data.device()
             ? tr("The program has %1 and the controller holds %2: %3 of the %4 pasted points fit.")
             : tr("The program has %1 and can have %2: %3 of the %4 pasted points fit."))
            .arg(present == 1 ? tr("1 point") : tr("%n points", nullptr, present))
            .arg(limit)
            .arg(count - missing)
            .arg(count);
    if (count > limit) {
        m_prompts.alert(message, figures + u' ' + tr("Nothing was pasted."),
                        Prompts::Severity::Information);
        return;
    }
    m_prompts.offer(message,
                    figures + u' ' + tr("Or they can take the place of the whole program."),
                    tr("&Replace the Program"), [this, pasted](bool isWanted) {
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
    sequence.replaceAll(points, tr("Paste"), this);

    const AQPointId id = sequence.idAt(static_cast<int>(row));
    if (isNew && pasted.size() == 1)
        m_data.selection().selectAdded(id, this);
    else
        m_data.selection().select(id, this);
}
