#include "CommandLine.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

// There is no application object here, as in the program when it reads its command line.

namespace {

CommandLine read(QStringList arguments) {
    arguments.prepend(QStringLiteral("/usr/bin/aquelon"));
    return CommandLine::read(arguments);
}

} // namespace

TEST(CommandLine, fileStandsAmongQtsOwnOptions) {
    const auto line = read({u"-platform"_qs, u"offscreen"_qs, u"-style=fusion"_qs, u"--reverse"_qs,
                            u"Day.sq"_qs, u"-qwindowgeometry"_qs, u"900x640"_qs});
    EXPECT_TRUE(line.answer.isEmpty()) << line.answer.toStdString();
    EXPECT_EQ(line.file, u"Day.sq");
    EXPECT_EQ(read({u"--"_qs, u"--help"_qs}).file, u"--help");

    const char* const given[] = {"aquelon", "Größe.sq"};
    EXPECT_EQ(CommandLine::read(2, given).file, u"Größe.sq");
}

TEST(CommandLine, helpAndVersionAreAnswers) {
    QCoreApplication::setApplicationName(QStringLiteral("Aquelon"));
    QCoreApplication::setApplicationVersion(QStringLiteral("7.8.9"));
    for (const QString& option : {u"-v"_qs, u"--version"_qs}) {
        const auto version = read({u"-platform"_qs, u"xcb"_qs, option, u"Day.sq"_qs});
        EXPECT_EQ(version.answer, u"Aquelon 7.8.9\n");
        EXPECT_EQ(version.status, 0);
    }
    for (const QString& option : {u"-h"_qs, u"--help"_qs}) {
        const auto help = read({option});
        EXPECT_TRUE(help.answer.startsWith(u"Usage: aquelon [options] [FILE]\n"_qs))
            << help.answer.toStdString();
        EXPECT_EQ(help.status, 0);
    }
}

TEST(CommandLine, anythingElseIsAMistake) {
    const QList<QStringList> lines = {
        {u"--bogus"_qs}, {u"Day.sq"_qs, u"-x"_qs}, {u"-platform"_qs}, {u"A.sq"_qs, u"B.sq"_qs}};
    for (const QStringList& arguments : lines) {
        const auto line = read(arguments);
        EXPECT_EQ(line.status, 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(line.answer.startsWith(u"aquelon: "_qs)) << line.answer.toStdString();
    }
    EXPECT_TRUE(read({u"--bogus"_qs}).answer.contains(u"'bogus'"_qs));
}
