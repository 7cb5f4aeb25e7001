#pragma once

#include "data/AQSelection.h"
#include "data/AQSequence.h"
#include "data/AQTimePoint.h"
#include "data/Acclimation.h"
#include "data/DocumentContents.h"
#include "data/History.h"
#include "data/NotificationCenter.h"
#include "data/ProgramPreview.h"
#include "yprotocoll/DeviceInfo.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

/// The document: the light program with its selection, the task light, the mode, the acclimation,
/// the dirty flag and the history.
///
/// Its contents are replaced in place, so observers register once. Nothing here can fail. Whoever
/// changes them says so by `noteEdit` or `noteStep`, and then announces it.
///
///     NotificationCenter notifications;
///     AQDataSource document(notifications); // the default program, clean
///     QObject::connect(&notifications, &NotificationCenter::dataChanged, &view,
///                      [&](const QObject* sender) {
///                          if (sender != &view) // not the echo of the view's own change
///                              view.show(document.sequence().points());
///                      });
///     AQDataSourceReader(document).loadFromFile(path);  // posts dataChanged, dataLoaded
///     document.sequence().addNewAfter(-1, &view);       // marks dirty: dataDirty, dataChanged
///     AQDataSourceWriter(document).saveToFile(path);    // clean again: dataDirty
class AQDataSource : public QObject {
    Q_OBJECT

public:
    /// What the link knows about the connected controller, asked for whenever a limit is needed.
    using DeviceInfoSource = std::function<std::optional<DeviceInfo>()>;

    /// The date of today, asked for whenever today's light is needed.
    using DateSource = std::function<QDate()>;

    using Contents = DocumentContents;

    /// Holds the default document, clean and unannounced. `notifications` must outlive it; without
    /// `device` there is never a controller. Without `date` the computer's date decides.
    explicit AQDataSource(NotificationCenter& notifications, DeviceInfoSource device = {},
                          DateSource date = {});

    /// The document of the running program, once `main` has shared it. Only who composes the
    /// program asks for it.
    static AQDataSource& sharedInstance() { return *s_sharedInstance; }
    static void share(AQDataSource& document) { s_sharedInstance = &document; }

    NotificationCenter& notifications() const { return m_notifications; }
    std::optional<DeviceInfo> device() const;

    AQSequence& sequence() { return m_sequence; }
    const AQSequence& sequence() const { return m_sequence; }
    AQSelection& selection() { return m_selection; }
    History& history() { return m_history; }
    ProgramPreview& preview() { return m_preview; }
    const ProgramPreview& preview() const { return m_preview; }

    /// `time` is the duration: hour x 60 + minute minutes and `second` seconds.
    const AQTimePoint& taskLight() const { return m_taskLight; }
    /// Plain store: posts nothing and does not mark dirty.
    void setTaskLight(const AQTimePoint& taskLight) { m_taskLight = taskLight; }

    /// True: the controller runs the program; false: it follows its analog 1-10 V input.
    bool isProgramMode() const { return m_isProgramMode; }
    /// Plain store: posts nothing and does not mark dirty.
    void setIsProgramMode(bool isProgramMode) { m_isProgramMode = isProgramMode; }

    const std::optional<Acclimation>& acclimation() const { return m_acclimation; }
    /// Plain store of a valid one or none: posts nothing and does not mark dirty.
    void setAcclimation(const std::optional<Acclimation>& acclimation) {
        m_acclimation = acclimation;
    }
    QDate today() const { return m_date(); }
    /// The light that these points give today.
    std::vector<AQTimePoint> todaysLight(std::vector<AQTimePoint> points) const {
        return lightOn(today(), std::move(points), m_acclimation);
    }

    /// One value, or everything, was changed by a person: a part of a step, or a step, of the
    /// history. Marks dirty or clean.
    void noteEdit(History::Value value);
    void noteStep(const QString& name = {}, std::optional<AQPointId> selected = {});

    /// Clean is what is stored as the contents are that were saved, opened or made new last, or
    /// loaded from the controller last.
    bool isDirty() const { return m_isDirty; }
    /// Posts dataDirty when the value changes. The next change marks as the contents say.
    void setIsDirty(bool isDirty);
    void markDirtyOrClean();
    /// The contents are in a file, or the defaults.
    void markSaved();
    /// The contents are nowhere but here. Whatever they become, they are dirty until they are saved
    /// or loaded anew.
    void markUnsaved();
    /// The contents are in the controller.
    void markLoaded();
    /// The controller has been given the present contents or others. If these are not the ones
    /// that it was loaded from, those are nowhere any more.
    void markSent(const Contents& sent);

    Contents contents() const {
        return {m_sequence.points(), m_taskLight, m_isProgramMode, m_acclimation};
    }
    /// What the lamp is to hold today: the program in today's light, which knows no acclimation.
    Contents contentsToday() const {
        return {todaysLight(m_sequence.points()), m_taskLight, m_isProgramMode};
    }

    /// For who has replaced the contents: posts sectionChanged (-1) and dataChanged if that took
    /// the points in, dataLoaded always.
    void announceReplacement(const QObject* sender, bool pointsReplaced = true);
    /// For the history: as before or after `change`. `isEdit` tells a person's edit, which may be
    /// announced as one, from a replacement.
    void restore(const Contents& contents, const ContentsChange& change, AQPointId selected,
                 bool isEdit);

    /// Installs the defaults and posts sectionChanged (-1), dataChanged, dataLoaded. Leaves the
    /// dirty flag to the caller.
    void loadDefaults();
    /// The same with other points, in ascending order of the minute.
    void loadDefaultsWith(std::vector<AQTimePoint> points);

private:
    static inline AQDataSource* s_sharedInstance = nullptr;

    void installDefaults(std::vector<AQTimePoint> points);

    NotificationCenter& m_notifications;
    DeviceInfoSource m_device;
    DateSource m_date;
    AQSequence m_sequence;
    AQSelection m_selection;
    AQTimePoint m_taskLight;
    bool m_isProgramMode = true;
    std::optional<Acclimation> m_acclimation;
    bool m_isDirty = false;
    std::optional<Contents> m_saved; ///< in a file, or the defaults
    std::optional<Contents> m_loaded;
    ProgramPreview m_preview{*this};
    History m_history{*this};
};
