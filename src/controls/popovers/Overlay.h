#pragma once

class QWidget;

/// Makes `overlay`, which `owner` speaks through, a child of the window that `owner` is in now,
/// above everything else there. From then on it goes with `owner`, and as an event filter hears
/// what moves, hides and shows `owner`.
///
/// A window of its own could neither follow on Wayland nor have corners without a compositor.
void layOver(QWidget& overlay, QWidget& owner);
