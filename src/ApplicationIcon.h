#pragma once

class QIcon;

/// The program's icon: that of the desktop's theme, into which the package puts it, or the one
/// inside the program when it is not installed. Needs the application object and its desktop file's
/// name.
QIcon applicationIcon();
