// tally-sample FOLDER makes the four databases with an invented school in them, to try the program out.
//
// Exit codes: 0 the school was made, 1 a file or the logins could not be written, 2 wrong arguments, 3 the
// folder holds a Tallyboard.mdb already, and nothing was changed.

#include "core/DatabasePassword.h"
#include "store/StoreError.h"
#include "tools/SampleSchool.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <array>

namespace {

constexpr int Failed = 1;
constexpr int WrongArguments = 2;
constexpr int SchoolExists = 3;

/// An option that takes a whole number, and the place the number goes to.
template <typename Number>
struct NumberOption
{
    QCommandLineOption option;
    Number* target;

    bool Read(const QCommandLineParser& parser) const
    {
        if (!parser.isSet(option))
            return true;
        bool isNumber = false;
        const qulonglong value = parser.value(option).toULongLong(&isNumber);
        *target = static_cast<Number>(value);
        return isNumber && static_cast<qulonglong>(*target) == value;
    }
};

void Print(QTextStream& out, const QVector<tally::DeliveredFile>& files)
{
    for (const tally::DeliveredFile& file : files)
        out << (file.made ? "made " : "kept ") << file.name << '\n';
    out << "\nUsers:\n";
    for (const tally::SampleAccount& account : tally::SampleAccounts())
        out << "  login " << account.loginId << ", password " << account.password << " (" << account.person
            << "): " << account.rights << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);

    tally::SampleOptions options;
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Makes the databases of KITE - Tally Board in a folder, filled with an invented school."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("FOLDER"),
                                 QStringLiteral("a folder without a Tallyboard.mdb"));
    const auto option = [](const char* name, const char* meaning) {
        return QCommandLineOption(QLatin1String(name), QLatin1String(meaning), QStringLiteral("N"));
    };
    const NumberOption<quint64> seed{option("seed", "the same number gives the same school"), &options.seed};
    const std::array numbers{
        NumberOption<int>{option("classes", "number of classes"), &options.classes},
        NumberOption<int>{option("divisions", "divisions of each class"), &options.divisions},
        NumberOption<int>{option("students", "students of each division"), &options.students},
        NumberOption<int>{option("subjects", "subjects of the highest class"), &options.subjects},
        NumberOption<int>{option("exams", "exams of each year"), &options.exams},
        NumberOption<int>{option("years", "1: the active year only, 2: a finished one before it"),
                          &options.years},
    };
    parser.addOption(seed.option);
    for (const auto& number : numbers)
        parser.addOption(number.option);
    parser.process(application);

    bool numbersFit = seed.Read(parser);
    for (const auto& number : numbers)
        numbersFit &= number.Read(parser);
    if (parser.positionalArguments().size() != 1 || !numbersFit) {
        err << parser.helpText();
        return WrongArguments;
    }
    const QString objection = tally::SampleObjection(options);
    if (!objection.isEmpty()) {
        err << objection << '\n';
        return WrongArguments;
    }

    const QString folder = parser.positionalArguments().constFirst();
    if (QFileInfo::exists(QDir(folder).filePath(QStringLiteral("Tallyboard.mdb")))) {
        err << "The folder holds a Tallyboard.mdb already; it is left as it is.\n";
        return SchoolExists;
    }
    try {
        tally::SessionContext session;
        tally::BuildDatabasePassword(session);
        Print(out, tally::MakeDeliveredDatabases(folder, tally::DatabasePassword(session),
                                                 [&](tally::store::Transaction& transaction) {
                                                     FillSampleSchool(transaction, options);
                                                 }));
    } catch (const tally::store::StoreError& error) {
        err << error.Description() << '\n';
        return Failed;
    }
    out.flush();
    if (out.status() != QTextStream::Ok) {
        err << "The school is made, but its logins could not be written. Is the disk full?\n";
        return Failed;
    }
    return 0;
}
