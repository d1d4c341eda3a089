#include "core/school/DivisionSelection.h"

#include <algorithm>

namespace tally {

namespace {

/// The ticked divisions while a check takes ticks away.
class Ticks
{
public:
    explicit Ticks(std::vector<int> ticked) : ticked_(std::move(ticked)) {}

    /// Divisions that are still ticked, without the base.
    std::vector<int> Others(int base) const
    {
        std::vector<int> others = ticked_;
        std::erase(others, base);
        return others;
    }

    void Untick(int division)
    {
        if (std::erase(ticked_, division) > 0)
            result_.untick.push_back(division);
    }

    void UntickMismatch(int division)
    {
        Untick(division);
        result_.mismatch = true;
    }

    void UntickAll()
    {
        result_.untick.insert(result_.untick.end(), ticked_.begin(), ticked_.end());
        ticked_.clear();
    }

    const MatchResult& Result() const { return result_; }

private:
    std::vector<int> ticked_;
    MatchResult result_;
};

void ChooseBase(MatchBase& base, const std::vector<int>& ticked)
{
    if (base.set)
        return;
    base = {true, ticked.front()};
}

auto CountSubjects(const std::vector<SubjectSetup>& setup, int division, bool takenForRank)
{
    return std::count_if(setup.begin(), setup.end(), [&](const SubjectSetup& subject) {
        return subject.divisionCode == division && subject.takenForRank == takenForRank;
    });
}

void CompareCounts(const std::vector<SubjectSetup>& setup, int base, bool takenForRank, Ticks& ticks)
{
    const auto expected = CountSubjects(setup, base, takenForRank);
    for (const int division : ticks.Others(base)) {
        if (CountSubjects(setup, division, takenForRank) != expected)
            ticks.UntickMismatch(division);
    }
}

/// `text` against a pattern in which % stands for any letters and _ for one, small and capital letters alike.
bool Like(QStringView text, QStringView pattern)
{
    constexpr qsizetype None = -1;
    qsizetype at = 0;
    qsizetype in = 0;
    qsizetype behindPercent = None;
    qsizetype percentUpTo = None; // what the last % stands for ends here in the text
    while (at < text.size()) {
        const QChar wanted = in < pattern.size() ? pattern[in] : QChar();
        if (wanted == QLatin1Char('%')) {
            behindPercent = ++in;
            percentUpTo = at;
        } else if (in < pattern.size() &&
                   (wanted == QLatin1Char('_') || wanted.toCaseFolded() == text[at].toCaseFolded())) {
            ++at;
            ++in;
        } else if (behindPercent != None) {
            // Only the last % has to be tried again: what stands before it has its place already.
            in = behindPercent;
            at = ++percentUpTo;
        } else {
            return false;
        }
    }
    return std::all_of(pattern.begin() + in, pattern.end(),
                       [](QChar letter) { return letter == QLatin1Char('%'); });
}

} // namespace

bool CheckStudentsExist(const DivisionFacts& facts)
{
    return facts.students > 0;
}

bool CheckSubjectsExist(const DivisionFacts& facts)
{
    return facts.subjects > 0;
}

bool CheckGradesExist(const DivisionFacts& facts)
{
    return facts.gradeBands > 0;
}

bool CheckMarksComplete(const DivisionFacts& facts, SubjectDisplay display)
{
    return display == SubjectDisplay::All ? facts.completeSubjects == facts.subjects
                                          : facts.completeSubjectsTakenForRank == facts.subjectsTakenForRank;
}

ListItem DivisionItem(const DivisionFacts& facts, SubjectDisplay display)
{
    const auto line = [&facts](const char* mark, const QString& refusal) {
        return ListItem{facts.division.divisionCode, QLatin1String(mark) + facts.division.divisionName,
                        refusal};
    };
    if (!CheckStudentsExist(facts))
        return line(". ", QStringLiteral("Student Admission Entry Is Not Made In This Division"));
    if (!CheckSubjectsExist(facts))
        return line("* ",
                    QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division"));
    if (!CheckGradesExist(facts))
        return line("# ", QStringLiteral("'Classwise Rank-Grade Setup' Is Not Made For This Division"));
    if (!CheckMarksComplete(facts, display))
        return line("$ ", QStringLiteral("'Classwise Mark Entry' Is Not Fully Completed For Student(s) In "
                                         "This Division"));
    return line("  ", {});
}

MatchResult CheckSubjectMatch(const std::vector<SubjectSetup>& setup, const std::vector<int>& ticked,
                              SubjectDisplay display, MatchBase& base)
{
    if (ticked.empty())
        return {};
    ChooseBase(base, ticked);
    Ticks ticks(ticked);
    const bool all = display == SubjectDisplay::All;
    CompareCounts(setup, base.divisionCode, true, ticks);
    if (all)
        CompareCounts(setup, base.divisionCode, false, ticks);

    std::vector<SubjectSetup> expected;
    std::copy_if(setup.begin(), setup.end(), std::back_inserter(expected), [&](const SubjectSetup& subject) {
        return subject.divisionCode == base.divisionCode && (all || subject.takenForRank);
    });
    if (expected.empty()) {
        ticks.UntickAll();
        return ticks.Result();
    }
    for (const int division : ticks.Others(base.divisionCode)) {
        const bool agrees = std::all_of(expected.begin(), expected.end(), [&](const SubjectSetup& wanted) {
            return std::any_of(setup.begin(), setup.end(), [&](const SubjectSetup& subject) {
                return subject.divisionCode == division && (all || subject.takenForRank) &&
                       subject.subjectCode == wanted.subjectCode &&
                       subject.maximumMark == wanted.maximumMark &&
                       subject.maximumAllowed == wanted.maximumAllowed;
            });
        });
        if (!agrees) {
            // One division at a time: the user is told of the first that differs.
            ticks.UntickMismatch(division);
            break;
        }
    }
    return ticks.Result();
}

MatchResult CheckGradeMatch(const std::vector<GradeBand>& bands, const std::vector<int>& ticked,
                            MatchBase& base)
{
    if (ticked.empty())
        return {};
    ChooseBase(base, ticked);
    Ticks ticks(ticked);
    const auto ofBase = [&](const GradeBand& band) { return band.divisionCode == base.divisionCode; };
    if (std::none_of(bands.begin(), bands.end(), ofBase)) {
        ticks.Untick(base.divisionCode);
        return ticks.Result();
    }
    for (const int division : ticks.Others(base.divisionCode)) {
        const bool agrees = std::all_of(bands.begin(), bands.end(), [&](const GradeBand& wanted) {
            return !ofBase(wanted) || std::any_of(bands.begin(), bands.end(), [&](const GradeBand& band) {
                return band.divisionCode == division && band.totalAverage == wanted.totalAverage &&
                       band.subjectAverage == wanted.subjectAverage && Like(band.grade, wanted.grade);
            });
        });
        if (!agrees)
            ticks.UntickMismatch(division);
    }
    return ticks.Result();
}

} // namespace tally
