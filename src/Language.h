#pragma once

class QCoreApplication;

/// The language of the window: of those that the person wants, in their order, the first one that
/// the program has. English is that of the sources and needs no translation.
namespace Language {

/// Before the first text is made. The translations live as long as `application`.
void install(QCoreApplication& application);

} // namespace Language
