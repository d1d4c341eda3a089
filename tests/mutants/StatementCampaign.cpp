#include "mutants/StatementCampaign.h"

#include "mutants/Equivalents.h"
#include "mutants/SourceTexts.h"
#include "mutants/Statements.h"
#include "mutants/Terms.h"
#include "mutants/TestRuns.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <map>
#include <mutex>
#include <set>
#include <stdexcept>

namespace tally::mutants {

namespace {

enum class Fate
{
    Lives,
    CaughtByRules,
    CaughtByScreens,
    Refused, ///< the engine does not take it, so it is no mutant
};

struct Case
{
    QString shape;
    QString change;
    bool equivalent; ///< as the list says
    Fate fate = Fate::Lives;
};

class StatementCampaign
{
public:
    explicit StatementCampaign(const std::optional<QStringList>& files) : files_(files)
    {
        environment_.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment_.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(TALLY_STATEMENT_SWITCH));
        ReadSources();
    }

    /// Whether no mutant lives that is not known to be equivalent.
    bool Run()
    {
        Watch(true);
        Judge(true);
        // Tests of screens take minutes, and most often nothing is left for them.
        if (!Report()) {
            Watch(false);
            Judge(false);
            return Report();
        }
        return true;
    }

private:
    bool IsAsked(const QString& file) const { return !files_ || files_->contains(file); }

    bool IsAsked(const QString& shape, const Statement& statement) const
    {
        const auto asked = [this](const QString& place) {
            return IsAsked(place.section(QLatin1Char(':'), 0, 0));
        };
        return std::any_of(statement.places.begin(), statement.places.end(), asked) ||
               std::any_of(sources_.begin(), sources_.end(), [&](const SourceText& source) {
                   return IsAsked(source.file) && shape.contains(ShapeOf(source.text));
               });
    }

    void ReadSources()
    {
        const QString folder = QStringLiteral(TALLY_SOURCE_FOLDER "/");
        QDirIterator iterator(folder + QLatin1String("src"), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                              QDir::Files, QDirIterator::Subdirectories);
        while (iterator.hasNext()) {
            const QString path = iterator.next();
            const auto texts = StatementTextsIn(path.mid(folder.size()), QString::fromUtf8(ReadAll(path)));
            sources_.insert(sources_.end(), texts.begin(), texts.end());
        }
    }

    /// Runs each test of rules, or of screens, as it is, and notes the statements that it prepares.
    void Watch(bool ofRules)
    {
        std::vector<std::size_t> watched;
        for (std::size_t test = 0; test < tests_.size(); ++test)
            if (tests_[test].ofRules == ofRules)
                watched.push_back(test);
        Say(QStringLiteral("%1 tests of %2 are watched")
                .arg(watched.size())
                .arg(ofRules ? QStringLiteral("rules") : QStringLiteral("screens")));
        std::mutex guard;
        ForEach(watched.size(), [&](std::size_t number, unsigned) {
            const Test& test = tests_[watched[number]];
            const QString path = folder_.filePath(QStringLiteral("record%1").arg(watched[number]));
            QProcessEnvironment environment = environment_;
            environment.insert(QStringLiteral("TALLY_STATEMENTS_RECORD"), path);
            QElapsedTimer timer;
            const auto passes = [&] {
                timer.start();
                return RunTests(test.program, {test.name}, environment).passed;
            };
            // The machine may have been too busy once.
            if (!passes() && !passes())
                throw std::runtime_error(test.name.toStdString() + " fails with the statements as they are");
            milliseconds_[watched[number]] = timer.elapsed();
            const QByteArray record = ReadAll(path);
            QFile::remove(path);
            const std::lock_guard lock(guard);
            statements_.Add(watched[number], record);
        });
        statements_.Resolve();
        for (auto entry = statements_.ByShape().begin(); entry != statements_.ByShape().end(); ++entry) {
            const std::vector<Mutant> mutants = MutantsOf(*entry->texts.begin());
            if (mutants.empty() || !IsAsked(entry.key(), entry.value()) || !tried_.insert(entry.key()).second)
                continue;
            for (const Mutant& mutant : mutants)
                cases_.push_back({entry.key(), mutant.change, equivalents_.Take(entry.key(), mutant.change)});
        }
    }

    /// Runs the tests of rules, or of screens, with each mutant that lives.
    void Judge(bool ofRules)
    {
        std::vector<Case*> living;
        for (Case& one : cases_)
            if (one.fate == Fate::Lives)
                living.push_back(&one);
        Say(QStringLiteral("%1 mutants of %2 statements are tried").arg(living.size()).arg(tried_.size()));
        ForEach(living.size(), [&](std::size_t number, unsigned worker) {
            living[number]->fate = FateOf(*living[number], ofRules, worker);
        });
    }

    Fate FateOf(const Case& one, bool ofRules, unsigned worker) const
    {
        const Statement statement = statements_.ByShape().value(one.shape);
        const QString orders = folder_.filePath(QStringLiteral("orders%1").arg(worker));
        const QString report = folder_.filePath(QStringLiteral("report%1").arg(worker));
        WriteOrders(orders, statement, one.change);
        QProcessEnvironment environment = environment_;
        environment.insert(QStringLiteral("TALLY_STATEMENTS_SWITCH"), orders);
        environment.insert(QStringLiteral("TALLY_STATEMENTS_REPORT"), report);

        for (const auto& [program, names] : RunsOf(statement, ofRules)) {
            QFile::remove(report);
            const bool passed = RunTests(program, names, environment).passed;
            const QByteArray told = ReadAll(report);
            if (told.contains("refused") && !told.contains("taken"))
                return Fate::Refused;
            if (passed)
                continue;
            if (!told.contains("taken"))
                throw std::runtime_error(names.join(QLatin1Char(' ')).toStdString() +
                                         " fails without having met the mutant");
            return ofRules ? Fate::CaughtByRules : Fate::CaughtByScreens;
        }
        return Fate::Lives;
    }

    static void WriteOrders(const QString& path, const Statement& statement, const QString& change)
    {
        QString orders;
        for (const Caller& caller : statement.callers)
            orders += QStringLiteral("caller\x1f%1\x1f%2\x1e").arg(caller.first, caller.second);
        for (const QString& text : statement.texts)
            for (const Mutant& mutant : MutantsOf(text))
                if (mutant.change == change)
                    orders += QStringLiteral("text\x1f") + text + QChar(0x1f) + mutant.sql + QChar(0x1e);
        QFile file(path);
        if (!file.open(QFile::WriteOnly) || file.write(orders.toUtf8()) < 0)
            throw std::runtime_error("cannot write " + path.toStdString());
    }

    /// Tests of one program that are run by one process.
    struct TestRun
    {
        QStringList names;
        qint64 milliseconds = 0; ///< that they took with the statements as they are
    };

    /// The runs in which the statement is prepared, the quickest first.
    std::vector<std::pair<QString, QStringList>> RunsOf(const Statement& statement, bool ofRules) const
    {
        std::map<QString, TestRun> shared;
        for (const std::size_t number : statement.tests) {
            const Test& test = tests_[number];
            if (test.ofRules != ofRules)
                continue;
            // Each test of screens has a process of its own.
            TestRun& run = shared[ofRules ? test.program : test.program + QLatin1Char('\n') + test.name];
            run.names.append(test.name);
            run.milliseconds += milliseconds_[number];
        }
        std::vector<std::pair<QString, TestRun>> ordered(shared.begin(), shared.end());
        std::stable_sort(ordered.begin(), ordered.end(), [](const auto& left, const auto& right) {
            return left.second.milliseconds < right.second.milliseconds;
        });
        std::vector<std::pair<QString, QStringList>> runs;
        for (const auto& [key, run] : ordered)
            runs.emplace_back(key.section(QLatin1Char('\n'), 0, 0), run.names);
        return runs;
    }

    /// The pieces of statements with terms in the sources that no test has prepared.
    std::vector<SourceText> Unseen() const
    {
        static const QRegularExpression term(
            QStringLiteral("\\b(WHERE|AND|OR|ON|HAVING|SET|GROUP BY|ORDER BY|DISTINCT|COLLATE)\\b"));
        std::vector<SourceText> unseen;
        for (const SourceText& source : sources_)
            if (IsAsked(source.file) && term.match(source.text).hasMatch() && !statements_.Hold(source.text))
                unseen.push_back(source);
        return unseen;
    }

    bool Report()
    {
        std::map<Fate, int> fates;
        int known = 0;
        bool good = true;
        for (const Case& one : cases_) {
            ++fates[one.fate];
            const bool lives = one.fate == Fate::Lives;
            if (lives && one.equivalent) {
                ++known;
            } else if (lives != one.equivalent) {
                good = false;
                QStringList places = statements_.ByShape().value(one.shape).places.values();
                places.sort();
                Say(QStringLiteral("\n%1: %2\n%3\n  %4")
                        .arg(places.join(QLatin1Char(' ')),
                             one.equivalent ? QStringLiteral("on the list of equivalents, yet it is noticed")
                                            : QStringLiteral("no test notices it"),
                             one.shape, one.change));
            }
        }
        for (const SourceText& source : Unseen()) {
            good = false;
            Say(QStringLiteral("\n%1:%2: no test runs this statement\n%3")
                    .arg(source.file)
                    .arg(source.line)
                    .arg(source.text));
        }
        if (!files_) {
            for (const QString& entry : equivalents_.Rest()) {
                good = false;
                Say(QStringLiteral("\nOn the list of equivalents there stands what is not there:\n") + entry);
            }
        }
        Say(QStringLiteral(
                "\n%1 statements with terms, %2 mutants, and %3 more that the engine refuses: %4 noticed by "
                "tests of rules, %5 by tests of screens, %6 equivalent, %7 living; %8 s")
                .arg(tried_.size())
                .arg(cases_.size() - static_cast<std::size_t>(fates[Fate::Refused]))
                .arg(fates[Fate::Refused])
                .arg(fates[Fate::CaughtByRules])
                .arg(fates[Fate::CaughtByScreens])
                .arg(known)
                .arg(fates[Fate::Lives] - known)
                .arg(timer_.elapsed() / 1000));
        return good;
    }

    QElapsedTimer timer_ = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    std::optional<QStringList> files_;
    std::vector<Test> tests_ = TestsOf(QStringLiteral(TALLY_BUILD_FOLDER));
    std::vector<qint64> milliseconds_ = std::vector<qint64>(tests_.size()); ///< that each test took
    std::vector<SourceText> sources_;
    QTemporaryDir folder_;
    QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
    Statements statements_{QStringLiteral(TALLY_SOURCE_FOLDER), QStringLiteral(TALLY_BUILD_FOLDER "/bin")};
    Equivalents equivalents_ =
        Equivalents::FromText(QString::fromUtf8(ReadAll(QStringLiteral(TALLY_EQUIVALENTS))));
    std::set<QString> tried_;
    std::vector<Case> cases_;
};

} // namespace

bool ProveStatements(const std::optional<QStringList>& files)
{
    return StatementCampaign(files).Run();
}

} // namespace tally::mutants
