#pragma once

#include "data/DocumentContents.h"

#include <QCoreApplication>
#include <QString>

/// What one step did to the document, found by comparing its contents before and after.
struct ContentsChange {
    enum class Kind {
        none,
        time,
        colorTemp,
        brightness,
        point, ///< several values of one point
        added, ///< one point
        deleted,
        points, ///< several
        taskLight,
        mode,
        acclimationBegun,
        acclimationChanged,
        acclimationEnded,
        several ///< more than one of these
    };

    static ContentsChange between(const DocumentContents& before, const DocumentContents& after);

    /// As the menu names it: "Move 14:00 to 15:10".
    QString name() const;

    Kind kind = Kind::none;
    AQTimePoint before; ///< the one point, unless it was added
    AQTimePoint after;  ///< the one point, unless it was deleted
    bool isProgramMode = true;

    Q_DECLARE_TR_FUNCTIONS(ContentsChange)
};
