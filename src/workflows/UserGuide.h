#pragma once

#include <QCoreApplication>
#include <QString>

class Prompts;

/// The guide that is installed with the program, in the person's web browser.
class UserGuide {
    Q_DECLARE_TR_FUNCTIONS(UserGuide)

public:
    /// The page, where it was installed, or else where the build has made it, both seen from the
    /// program's folder; empty when there is none.
    static QString page();
    /// Opens the page; an alert tells when there is none or no program shows it.
    static void show(Prompts& prompts);
};
