#pragma once

namespace TimeFieldAccessible {

/// Makes QAccessible show each time editor as one object: a spin button with text. Any number of
/// times.
void install();

} // namespace TimeFieldAccessible
