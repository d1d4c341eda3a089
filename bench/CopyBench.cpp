// Measures backup and restore of a school with 1,000,000 marks against a plain copy of the same file that is
// brought to the disk, and compacting against the engine's bare VACUUM, taking turns. Exit code 1: a limit is
// not kept.

#include "store/Backup.h"
#include "store/Compact.h"
#include "store/DeliveredRows.h"
#include "store/OwnFiles.h"
#include "store/Restore.h"
#include "store/Tables.h"
#include "store/Transaction.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

using tally::store::Connection;

constexpr int Rounds = 5;
constexpr int Students = 20000;
constexpr int Exams = 5;
constexpr int Subjects = 10;
constexpr double CopyLimit = 3;
constexpr double CompactLimit = 3;

const QString Password = QStringLiteral("a_bench-needs_some_password");

void LaySchool(const QString& path)
{
    Connection main(path, Password, Connection::Mode::Create);
    // Only the marks are of weight here, so the masters they belong to are left out.
    main.Execute(QStringLiteral("PRAGMA foreign_keys = OFF"));
    tally::store::Transaction laying(main);
    tally::store::CreateMainTables(laying);
    tally::store::InsertDeliveredMainRows(laying);
    tally::store::Statement insert = laying.Prepare(QStringLiteral(
        "INSERT INTO MarkMaster (AcademicYearCode, StudentCode, ExamCode, ClassCode, DivisionCode,"
        " SubjectCode, Mark, LeaveOrPresent, TeacherCode, UserCode)"
        " VALUES (1, ?, ?, ?, 1, ?, ?, 'P', ?, 1)"));
    for (int student = 1; student <= Students; ++student)
        for (int exam = 1; exam <= Exams; ++exam)
            for (int subject = 1; subject <= Subjects; ++subject)
                insert.Run(student, exam, 1 + student / 50, subject, student * subject % 101, subject);
    laying.Commit();
}

void PlainCopy(const QString& from, const QString& to)
{
    constexpr qint64 Piece = 1 << 20;
    QFile source(from);
    QFile copy(to);
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("no plain copy");
    while (!source.atEnd())
        copy.write(source.read(Piece));
    if (!tally::store::BringToDisk(copy))
        qFatal("no plain copy");
}

double Seconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

struct Measured
{
    const char* name;
    std::function<void()> work;
    std::vector<double> times;

    double Median()
    {
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    }
};

bool Keeps(const char* name, double time, double base, double limit)
{
    std::printf("%-20s %6.2f s %6.1f times, at most %.0f\n", name, time, time / base, limit);
    return time <= limit * base;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const auto in = [&folder](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
    const QString school = in("Tallyboard.mdb");
    LaySchool(school);
    PlainCopy(school, in("Source.mdb"));
    PlainCopy(school, in("Vacuum.mdb"));

    std::vector<Measured> all{
        {"plain copy", [&] { PlainCopy(school, in("Plain.mdb")); }, {}},
        {"backup",
         [&] {
             Connection main(school, Password);
             tally::store::BackUp(main, Password, in("Backup.mdb"));
         },
         {}},
        {"restore",
         [&] {
             tally::store::Restore restore(in("Source.mdb"), Password);
             Connection main(school, Password);
             restore.PourInto(main, QDateTime::currentDateTime());
         },
         {}},
        {"bare VACUUM", [&] { Connection(in("Vacuum.mdb"), Password).Vacuum(); }, {}},
        {"compact",
         [&] {
             Connection main(school, Password);
             tally::store::Compact(main, Password);
         },
         {}},
    };
    for (int round = 0; round < Rounds; ++round)
        for (Measured& one : all)
            one.times.push_back(Seconds(one.work));

    const double plain = all[0].Median();
    const double vacuum = all[3].Median();
    std::printf("%lld bytes, plain copy %.2f s, bare VACUUM %.2f s\n",
                static_cast<long long>(QFile(school).size()), plain, vacuum);
    const bool backup = Keeps("backup", all[1].Median(), plain, CopyLimit);
    const bool restore = Keeps("restore", all[2].Median(), plain, CopyLimit);
    const bool compact = Keeps("compact", all[4].Median(), vacuum, CompactLimit);
    return backup && restore && compact ? 0 : 1;
}
