#pragma once

#include <QCoreApplication>

#include <array>
#include <cstddef>

/// The values of a point as the table shows them and as cellChanged names them.
struct PointColumn {
    static constexpr int time = 0;
    static constexpr int colorTemp = 1;
    static constexpr int brightness = 2;
    static constexpr int count = 3;

    /// What the person reads.
    static QString title(int column) {
        constexpr std::array titles{QT_TRANSLATE_NOOP("PointColumn", "Time"),
                                    QT_TRANSLATE_NOOP("PointColumn", "Colour temperature"),
                                    QT_TRANSLATE_NOOP("PointColumn", "Intensity")};
        return QCoreApplication::translate("PointColumn",
                                           titles.at(static_cast<std::size_t>(column)));
    }
};
