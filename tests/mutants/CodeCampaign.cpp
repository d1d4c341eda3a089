#include "mutants/CodeCampaign.h"

#include "mutants/CodePlaces.h"
#include "mutants/Equivalents.h"
#include "mutants/Reach.h"
#include "mutants/TestRuns.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>

namespace tally::mutants {

namespace {

constexpr auto Fates = "/fates.tsv";
constexpr auto Lives = "lives";
constexpr auto NotReached = "not reached";

/// What the tests have to notice of all changes that are not equivalent.
constexpr double Aim = 0.95;

/// So many of the tests that reach a change are tried on it. What they do not notice counts as living: a
/// change that hundreds of tests pass by is none that a test is there for.
constexpr std::size_t MostTests = 200;

/// A change that makes a test so much slower has been noticed. The machine may have other work to do.
constexpr int Patience = 5'000;
constexpr int TimesSlower = 6;

/// So many of the tests that noticed the last changes of a file, and of all files of its kind, are tried
/// first on the next.
constexpr std::size_t NoticersKept = 12;

struct Case
{
    CodePlace place;
    bool equivalent; ///< as the list says
    QString noticed; ///< by this test
    bool reached = true;
};

/// What one form is tested by, others often are too.
QString KindOf(const QString& file)
{
    return file.section(QLatin1Char('.'), -1);
}

QString FolderOf(const QString& file)
{
    return file.section(QLatin1Char('/'), 0, -2);
}

QString Percent(std::size_t part, std::size_t whole)
{
    return whole == 0
               ? QStringLiteral("-")
               : QString::number(100.0 * static_cast<double>(part) / static_cast<double>(whole), 'f', 1) +
                     QStringLiteral(" %");
}

class CodeCampaign
{
public:
    CodeCampaign(const QString& folder, const CodeChoice& choice)
        : folder_(folder), whole_(!choice.files && !choice.within && !choice.sample && !choice.again)
    {
        timer_.start();
        std::vector<CodePlace> places =
            CodePlacesIn(QString::fromUtf8(ReadAll(folder + QStringLiteral("/places.tsv"))));
        QHash<std::uint32_t, QString> files;
        for (const CodePlace& place : places)
            files.insert(place.number, place.file);
        reach_.emplace(tests_, files);
        if (choice.files)
            std::erase_if(places,
                          [&](const CodePlace& place) { return !choice.files->contains(place.file); });
        if (choice.within) {
            places = PlacesWithin(places, *choice.within);
            if (places.empty())
                throw std::runtime_error("no change in " + choice.within->toStdString());
        }
        if (choice.again)
            std::erase_if(places, [living = LivingBefore()](const CodePlace& place) {
                return !living.contains(place.number);
            });
        if (choice.sample)
            places = EvenlyFrom(places, static_cast<std::size_t>(*choice.sample));
        for (const CodePlace& place : places)
            cases_.push_back(
                {place, equivalents_.Take(place.file + QStringLiteral(": ") + place.text, place.change), {}});
        for (unsigned worker = 0; worker < Workers(); ++worker)
            GiveFolder(worker);
    }

    bool Run()
    {
        if (!cases_.empty()) {
            Watch();
            Judge();
        }
        WriteFates();
        return Report();
    }

private:
    QSet<std::uint32_t> LivingBefore() const
    {
        QSet<std::uint32_t> living;
        const QList<QByteArray> fates = ReadAll(folder_ + QLatin1String(Fates)).split('\n');
        for (const QByteArray& fate : fates)
            if (fate.endsWith(QByteArray("\t") + Lives) || fate.endsWith(QByteArray("\t") + NotReached))
                living.insert(fate.left(fate.indexOf('\t')).toUInt());
        return living;
    }

    QString FolderOfWorker(unsigned worker) const { return scratch_.filePath(QString::number(worker)); }

    /// A mutant may leave behind, and take away, what it likes in there. Some tests run as an ordinary user.
    void GiveFolder(unsigned worker) const
    {
        constexpr QFile::Permissions Everybody = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                 QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                                 QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        const QString folder = FolderOfWorker(worker);
        QDir(folder).removeRecursively();
        for (const char* name : {"tmp", "home", "run"})
            QDir().mkpath(folder + QLatin1Char('/') + QLatin1String(name));
        for (const QString& path :
             {scratch_.path(), folder, folder + QStringLiteral("/tmp"), folder + QStringLiteral("/home")})
            QFile::setPermissions(path, Everybody);
        QFile::setPermissions(folder + QStringLiteral("/run"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QProcessEnvironment EnvironmentOf(unsigned worker) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        const QString folder = FolderOfWorker(worker);
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("TMPDIR"), folder + QStringLiteral("/tmp"));
        environment.insert(QStringLiteral("HOME"), folder + QStringLiteral("/home"));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder + QStringLiteral("/run"));
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
            environment.remove(QString::fromLatin1(name));
        return environment;
    }

    /// What a test was seen to reach, and how long it took.
    struct Seen
    {
        int milliseconds = 0;
        QByteArray record;
    };

    /// Runs each test as it is, and notes the changes that it reaches. One that fails says nothing of any
    /// change. What was seen is kept until the program of the test is another.
    void Watch()
    {
        Say(QStringLiteral("%1 tests are watched").arg(tests_.size()));
        QHash<QString, QByteArray> programs;
        for (const Test& test : tests_)
            if (!programs.contains(test.program))
                programs.insert(test.program,
                                QCryptographicHash::hash(ReadAll(test.program), QCryptographicHash::Sha1));
        const QDir kept(folder_ + QStringLiteral("/reach"));
        kept.mkpath(QStringLiteral("."));
        QStringList old = kept.entryList(QDir::Files);
        std::mutex guard;
        ForEach(tests_.size(), [&](std::size_t number, unsigned worker) {
            const Test& test = tests_[number];
            const QString name = QString::fromLatin1(
                QCryptographicHash::hash(programs.value(test.program) + test.name.toUtf8(),
                                         QCryptographicHash::Sha1)
                    .toHex());
            const auto seen = Look(test, kept.filePath(name), worker);
            const std::lock_guard lock(guard);
            if (seen)
                reach_->Add(number, seen->record, seen->milliseconds);
            else
                failing_.append(test.name);
            old.removeAll(name);
        });
        reach_->ForgetWhatAllReach();
        for (const QString& name : old)
            QFile::remove(kept.filePath(name));
        Say(QStringLiteral("after %1 s").arg(timer_.elapsed() / 1000));
    }

    /// What the file has kept, or else what is seen; nothing for a test that fails.
    std::optional<Seen> Look(const Test& test, const QString& kept, unsigned worker) const
    {
        if (const QByteArray known = ReadAll(kept); !known.isEmpty()) {
            const qsizetype end = known.indexOf('\n');
            return Seen{known.left(end).toInt(), known.mid(end + 1)};
        }
        // The machine may have been too busy once.
        std::optional<Seen> seen = See(test, worker);
        if (!seen)
            seen = See(test, worker);
        if (seen)
            Write(kept, QByteArray::number(seen->milliseconds) + '\n' + seen->record);
        return seen;
    }

    std::optional<Seen> See(const Test& test, unsigned worker) const
    {
        GiveFolder(worker);
        const QString path = FolderOfWorker(worker) + QStringLiteral("/record");
        Write(path, {});
        QFile::setPermissions(path,
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther | QFile::WriteOther);
        QProcessEnvironment environment = EnvironmentOf(worker);
        environment.insert(QStringLiteral("TALLY_MUTANTS_RECORD"), path);
        QElapsedTimer timer;
        timer.start();
        if (!RunTests(test.program, {test.name}, environment).passed)
            return {};
        return Seen{static_cast<int>(timer.elapsed()) + 1, ReadAll(path)};
    }

    static void Write(const QString& path, const QByteArray& text)
    {
        QFile file(path);
        if (!file.open(QFile::WriteOnly) || file.write(text) != text.size())
            throw std::runtime_error("cannot write " + path.toStdString());
    }

    void Judge()
    {
        Say(QStringLiteral("%1 changes are tried").arg(cases_.size()));
        std::size_t judged = 0;
        std::size_t living = 0;
        ForEach(cases_.size(), [&](std::size_t number, unsigned worker) {
            Try(cases_[number], worker);
            const std::lock_guard lock(guard_);
            living += cases_[number].noticed.isEmpty() ? 1 : 0;
            if (++judged % 100 == 0)
                Say(QStringLiteral("%1 tried, %2 living, %3 s")
                        .arg(judged)
                        .arg(living)
                        .arg(timer_.elapsed() / 1000));
        });
    }

    std::vector<std::size_t> TestsFor(const CodePlace& place)
    {
        const std::lock_guard lock(guard_);
        std::vector<std::size_t> noticers = noticers_[place.file];
        const std::vector<std::size_t>& alike = noticers_[KindOf(place.file)];
        noticers.insert(noticers.end(), alike.begin(), alike.end());
        return reach_->TestsOf(place.number, noticers, MostTests);
    }

    void PutFirst(const QString& file, std::size_t noticer)
    {
        const std::lock_guard lock(guard_);
        for (std::vector<std::size_t>* noticers : {&noticers_[file], &noticers_[KindOf(file)]}) {
            std::erase(*noticers, noticer);
            noticers->insert(noticers->begin(), noticer);
            noticers->resize(std::min(noticers->size(), NoticersKept));
        }
    }

    void Try(Case& one, unsigned worker)
    {
        const std::vector<std::size_t> order = TestsFor(one.place);
        one.reached = !order.empty();
        QProcessEnvironment environment = EnvironmentOf(worker);
        environment.insert(QStringLiteral("TALLY_MUTANT"), QString::number(one.place.number));
        for (const Batch& batch : reach_->Batches(order)) {
            const Outcome outcome = RunTests(batch.program, batch.names, environment,
                                             Patience + TimesSlower * batch.milliseconds);
            if (outcome.passed)
                continue;
            GiveFolder(worker);
            one.noticed = outcome.last.isEmpty() ? batch.names.first() : outcome.last;
            const auto noticer = std::find_if(order.begin(), order.end(), [&](std::size_t test) {
                return tests_[test].program == batch.program && tests_[test].name == one.noticed;
            });
            if (noticer != order.end())
                PutFirst(one.place.file, *noticer);
            return;
        }
    }

    /// What became of each change, for who wants to look closer.
    void WriteFates() const
    {
        QString told;
        for (const Case& one : cases_)
            told += QStringList{QString::number(one.place.number),
                                one.place.file,
                                QString::number(one.place.line),
                                one.place.change,
                                one.place.text,
                                one.noticed.isEmpty() ? QString::fromLatin1(one.reached ? Lives : NotReached)
                                                      : one.noticed}
                        .join(QLatin1Char('\t')) +
                    QLatin1Char('\n');
        Write(folder_ + QLatin1String(Fates), told.toUtf8());
    }

    bool Report()
    {
        struct Share
        {
            std::size_t noticed = 0;
            std::size_t all = 0;
        };
        std::map<QString, Share> folders;
        Share total;
        std::size_t known = 0;
        bool good = failing_.isEmpty();
        for (const QString& name : failing_)
            Say(QStringLiteral("\n%1 fails with nothing changed, and was left out").arg(name));
        for (const Case& one : cases_) {
            const bool lives = one.noticed.isEmpty();
            if (one.equivalent && lives) {
                ++known;
                continue;
            }
            for (Share* share : {&folders[FolderOf(one.place.file)], &total}) {
                ++share->all;
                share->noticed += lives ? 0 : 1;
            }
            if (lives == one.equivalent)
                continue;
            if (one.equivalent)
                good = false;
            if (lives || one.equivalent)
                Say(QStringLiteral("\n%1:%2: %3\n    %4\n  %5")
                        .arg(one.place.file)
                        .arg(one.place.line)
                        .arg(one.equivalent
                                 ? QStringLiteral("on the list of equivalents, yet it is noticed by ") +
                                       one.noticed
                             : one.reached ? QStringLiteral("no test notices it")
                                           : QStringLiteral("no test reaches it"),
                             one.place.text, one.place.change));
        }
        if (whole_) {
            for (const QString& entry : equivalents_.Rest()) {
                good = false;
                Say(QStringLiteral("\nOn the list of equivalents there stands what is not there:\n") + entry);
            }
        }
        Say(QString());
        for (const auto& [folder, share] : folders)
            Say(QStringLiteral("%1 %2 of %3, %4")
                    .arg(folder, -20)
                    .arg(share.noticed)
                    .arg(share.all)
                    .arg(Percent(share.noticed, share.all)));
        Say(QStringLiteral("\n%1 changes, %2 of them equivalent: %3 of the others noticed, %4; %5 s")
                .arg(cases_.size())
                .arg(known)
                .arg(total.noticed)
                .arg(Percent(total.noticed, total.all))
                .arg(timer_.elapsed() / 1000));
        return good && static_cast<double>(total.noticed) >= Aim * static_cast<double>(total.all);
    }

    QElapsedTimer timer_;
    QString folder_;
    bool whole_;
    std::vector<Test> tests_ = TestsOf(folder_ + QStringLiteral("/build"));
    std::optional<Reach> reach_;
    Equivalents equivalents_ =
        Equivalents::FromText(QString::fromUtf8(ReadAll(QStringLiteral(TALLY_CODE_EQUIVALENTS))));
    std::vector<Case> cases_;
    QStringList failing_;
    QTemporaryDir scratch_;
    std::mutex guard_;
    std::map<QString, std::vector<std::size_t>> noticers_;
};

} // namespace

bool ProveCode(const QString& folder, const CodeChoice& choice)
{
    return CodeCampaign(folder, choice).Run();
}

} // namespace tally::mutants
