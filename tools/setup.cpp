// tally-setup FOLDER makes the four databases that the program needs beside it, and leaves those that are
// there.
//
// Exit codes: 0 every file is there, 1 a file or the list of files could not be written, 2 wrong arguments.

#include "core/DatabasePassword.h"
#include "store/StoreError.h"
#include "tools/DeliveredDatabases.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

namespace {

constexpr int Failed = 1;
constexpr int WrongArguments = 2;

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Makes the databases of KITE - Tally Board in a folder. "
                                                    "Files that exist already are never touched."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("FOLDER"),
                                 QStringLiteral("the folder that holds the program"));
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        err << parser.helpText();
        return WrongArguments;
    }

    try {
        tally::SessionContext session;
        tally::BuildDatabasePassword(session);
        const auto files = tally::MakeDeliveredDatabases(parser.positionalArguments().constFirst(),
                                                         tally::DatabasePassword(session));
        for (const tally::DeliveredFile& file : files)
            out << (file.made ? "made " : "kept ") << file.name << '\n';
    } catch (const tally::store::StoreError& error) {
        err << error.Description() << '\n';
        return Failed;
    }
    out.flush();
    if (out.status() != QTextStream::Ok) {
        err << "The files are there, but their list could not be written. Is the disk full?\n";
        return Failed;
    }
    return 0;
}
