#pragma once

class QIcon;

/// The icon of the program's windows. Both need the application object.
namespace ApplicationIcon {

/// The one inside the program, which is there at once and without an installation.
QIcon builtIn();

/// That of the desktop's theme, where the package puts one of all sizes, else the built-in one.
/// Looking for it takes about a fifth of a start: not before there is something to see.
QIcon fromTheme();

} // namespace ApplicationIcon
