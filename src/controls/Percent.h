#pragma once

#include <QString>

#include <cmath>

/// A fraction in whole percent.
inline int percent(double fraction) {
    return static_cast<int>(std::lround(fraction * 100.0));
}

/// The same as people read it.
inline QString percentText(double fraction) {
    return QStringLiteral("%1%").arg(percent(fraction));
}
