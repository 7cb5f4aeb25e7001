#pragma once

class QIcon;

/// The icon of the program's windows. Both need the application object.
namespace ApplicationIcon {

/// The one inside the program, which is there without an installation.
QIcon builtIn();

/// That of the desktop's theme, where the package puts one of all sizes, else the built-in one.
/// Looking for it, and reading any picture, takes part of a start: not before there is something
/// to see.
QIcon fromTheme();

} // namespace ApplicationIcon
