#pragma once

class QString;
class QWidget;

namespace Announcement {

/// Lets screen readers say `text`, whatever has the focus in the window of `widget`. Costs nothing
/// while none runs.
void make(const QWidget& widget, const QString& text);

} // namespace Announcement
