#pragma once

#include "data/DeviceImage.h"
#include "data/DocumentContents.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

/// What is known of the program in a controller.
struct StoredProgram {
    DeviceImage image;
    /// As it was read, if it was. Light that was read cannot always be given back exactly, so a
    /// document that holds this is the controller's program too.
    std::optional<DocumentContents> contents;
};

/// Tells what differs between the program here and the one in the lamp.
///
/// Points and the task light are compared one by one: what gives the same levels, or is as it was
/// read, is equal. Only channels that both images have are compared, and the mode is not. Lists of
/// the lamp's that make no program are compared channel by channel.
class ProgramComparison {
public:
    /// For a document.
    ProgramComparison(const DocumentContents& here, const StoredProgram& lamp);
    /// For what was sent, and what the controller says it stored: by levels and times alone.
    ProgramComparison(const DocumentContents& sent, const DeviceImage& image,
                      const DeviceImage& stored);

    bool isEqual() const { return m_lines.isEmpty(); }
    /// One line for each difference in plain text, in the order of the day, then the task light:
    /// "10:00: 80 % here, 75 % in the lamp", "21:30 only in the lamp", "Task light: 1 min here,
    /// 15 min in the lamp". Percents are whole where that shows the difference, else with one
    /// decimal, else the output levels stand for them.
    const QStringList& differences() const { return m_lines; }
    /// "3 points and the task light change", "Nothing changes", or what becomes of lists that make
    /// no program.
    QString change() const;

private:
    struct Side;
    struct Item;

    void compare(const Side& here, const Side& lamp);
    void comparePoints(const Side& here, const Side& lamp);
    void comparePoint(const Item& here, const Item& lamp);
    void compareTaskLights(const Item& here, const Item& lamp);
    void compareTaskModes(const DeviceImage::TaskMode& here, const DeviceImage::TaskMode& lamp);
    enum class Rest { ExceptPoints, All };
    void compareChannels(const DeviceImage& here, const DeviceImage& lamp, Rest rest);
    void addLight(const QString& place, const Item& here, const Item& lamp);

    bool m_countsAsRead = false; ///< what is as it was read is equal
    QStringList m_lines;
    int m_points = 0; ///< differing
    int m_others = 0; ///< differences of neither points nor task light
    bool m_isTaskLightEqual = true;
    bool m_isWhole = true; ///< the lamp's lists make a program

    Q_DECLARE_TR_FUNCTIONS(ProgramComparison)
};
