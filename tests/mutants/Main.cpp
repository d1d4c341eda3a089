// Proves that the tests would notice if the program were another than it is: a statement without one of its
// terms, or code with one small change.

#include "mutants/CodeCampaign.h"
#include "mutants/StatementCampaign.h"
#include "mutants/TestRuns.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>
#include <optional>

namespace tally::mutants {

namespace {

/// The files under src that differ from a commit.
QStringList ChangedSince(const QString& commit)
{
    const QStringList inFolder{QStringLiteral("-C"), QStringLiteral(TALLY_SOURCE_FOLDER)};
    const QString git = QStringLiteral("git");
    const QString changed =
        OutputOf(git, inFolder + QStringList{QStringLiteral("diff"), QStringLiteral("--name-only"), commit,
                                             QStringLiteral("--"), QStringLiteral("src")});
    const QString added =
        OutputOf(git, inFolder + QStringList{QStringLiteral("ls-files"), QStringLiteral("--others"),
                                             QStringLiteral("--exclude-standard"), QStringLiteral("src")});
    return (changed + added).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/// Whether all is noticed that ought to be; nothing where the words are not understood.
std::optional<bool> Prove(QStringList words)
{
    const QString kind = words.isEmpty() ? QString() : words.takeFirst();
    const QString folder = kind == QLatin1String("code") && !words.isEmpty() ? words.takeFirst() : QString();
    CodeChoice choice;
    if (words.size() == 2 && words[0] == QLatin1String("since"))
        choice.files = ChangedSince(words[1]);
    else if (words.size() == 2 && words[0] == QLatin1String("in"))
        choice.within = words[1];
    else if (words.size() == 2 && words[0] == QLatin1String("sample") && words[1].toInt() > 0)
        choice.sample = words[1].toInt();
    else if (words == QStringList{QStringLiteral("again")})
        choice.again = true;
    else if (!words.isEmpty())
        return {};
    if (kind == QLatin1String("statements") && !choice.within && !choice.sample && !choice.again)
        return ProveStatements(choice.files);
    if (!folder.isEmpty())
        return ProveCode(folder, choice);
    return {};
}

} // namespace
} // namespace tally::mutants

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        if (const auto proved = tally::mutants::Prove(QCoreApplication::arguments().mid(1)))
            return *proved ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tally-mutants: %s\n", error.what());
        return 2;
    }
    std::fputs("Usage: tally-mutants statements [since COMMIT]\n"
               "       tally-mutants code FOLDER [since COMMIT | in PATH | sample NUMBER | again]\n",
               stderr);
    return 2;
}
