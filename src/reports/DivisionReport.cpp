#include "reports/DivisionReport.h"

#include <QHash>

#include <algorithm>

namespace tally {

namespace {

const QLatin1String Ready("  ");
const QLatin1String NoStudents(". ");
const QLatin1String NoSubjects("$ ");
const QLatin1String IncompleteMarks("# ");
const QLatin1String MarkMissing(". ");

bool IsSameSubject(const SubjectSetup& one, const SubjectSetup& other)
{
    return one.subjectCode == other.subjectCode && one.maximumMark == other.maximumMark &&
           one.maximumAllowed == other.maximumAllowed && one.takenForRank == other.takenForRank;
}

bool HasSameSubjects(const std::vector<SubjectSetup>& setup, int base, int division, SubjectDisplay display)
{
    const std::vector<SubjectSetup> wanted = SubjectsOf(setup, base, display);
    const std::vector<SubjectSetup> found = SubjectsOf(setup, division, display);
    return found.size() == wanted.size() &&
           std::all_of(wanted.begin(), wanted.end(), [&found](const SubjectSetup& subject) {
               return std::any_of(found.begin(), found.end(), [&subject](const SubjectSetup& other) {
                   return IsSameSubject(subject, other);
               });
           });
}

SubjectDisplay Compared(SubjectDisplay display, const DivisionReportRules& rules)
{
    return rules.comparesAllSubjects ? SubjectDisplay::All : display;
}

/// Names the divisions of a kind and why they are not chosen; nothing where there are none.
QStringList Told(const char* before, const QStringList& names, const char* behind = "")
{
    if (names.isEmpty())
        return {};
    return {QLatin1String(before) + names.join(QLatin1Char(',')) + QLatin1String(behind)};
}

QStringList NamesBehind(const std::vector<ListItem>& items, QLatin1String mark)
{
    QStringList names;
    for (const ListItem& item : items)
        if (item.text.startsWith(mark))
            names.append(WithoutMark(item.text));
    return names;
}

} // namespace

bool IsUsable(const QString& item)
{
    return item.startsWith(Ready);
}

QString WithoutMark(const QString& item)
{
    return item.mid(LengthOfMark);
}

ListItem DivisionLine(const DivisionFacts& facts, SubjectDisplay display, const DivisionReportRules& rules)
{
    const auto line = [&facts](QLatin1String mark, const QString& refusal = {}) {
        return ListItem{facts.division.divisionCode, mark + facts.division.divisionName, refusal};
    };
    if (!CheckStudentsExist(facts))
        return line(NoStudents, QStringLiteral("Student Admission Entry Is Not Made In This Class-Division"));
    if ((display == SubjectDisplay::All ? facts.subjects : facts.subjectsTakenForRank) == 0)
        return line(NoSubjects,
                    QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division"));
    if (rules.wantsAllMarks && !CheckMarksComplete(facts, display))
        return line(IncompleteMarks);
    return line(Ready);
}

std::vector<int> DivisionsThatDiffer(const std::vector<SubjectSetup>& setup, int base,
                                     const std::vector<int>& divisions, SubjectDisplay display,
                                     const DivisionReportRules& rules)
{
    std::vector<int> differing;
    std::copy_if(divisions.begin(), divisions.end(), std::back_inserter(differing), [&](int division) {
        return rules.comparesAllSubjects
                   ? !HasSameSubjects(setup, base, division, SubjectDisplay::All)
                   : SubjectsOf(setup, division, display).size() != SubjectsOf(setup, base, display).size();
    });
    return differing;
}

AllDivisions ChooseAllDivisions(const std::vector<ListItem>& items, const std::vector<SubjectSetup>& setup,
                                SubjectDisplay display, const DivisionReportRules& rules)
{
    AllDivisions all;
    all.messages = Told("Student Admission Entry Is Not Made For The Following Division(s) ",
                        NamesBehind(items, NoStudents));
    if (all.messages.isEmpty() || !rules.tellsOneReason)
        all.messages +=
            Told("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Following Division(s) ",
                 NamesBehind(items, NoSubjects));

    const auto first =
        std::find_if(items.begin(), items.end(), [](const ListItem& item) { return IsUsable(item.text); });
    if (first == items.end())
        return all;
    QStringList differing;
    for (const ListItem& item : items) {
        if (!HasSameSubjects(setup, first->code, item.code, Compared(display, rules)))
            differing.append(WithoutMark(item.text));
        else if (IsUsable(item.text))
            all.ticked.push_back(item.code);
    }
    all.messages += Told("Subjects' Maximum Mark For ", differing,
                         " Division(s) Does Not Match With The Selected Division(s)");
    return all;
}

std::vector<SubjectSetup> SubjectsOf(const std::vector<SubjectSetup>& setup, int division,
                                     SubjectDisplay display)
{
    std::vector<SubjectSetup> subjects;
    std::copy_if(setup.begin(), setup.end(), std::back_inserter(subjects), [&](const SubjectSetup& subject) {
        return subject.divisionCode == division && (display == SubjectDisplay::All || subject.takenForRank);
    });
    return subjects;
}

std::vector<ListItem> CommonSubjects(const CommonSubjectsInput& input, const DivisionReportRules& rules)
{
    QHash<int, std::size_t> students;
    for (std::size_t number = 0; number < input.students.size(); ++number)
        students.insert(input.students[number], number);
    QHash<int, std::size_t> subjects;
    for (std::size_t number = 0; number < input.subjects.size(); ++number)
        subjects.insert(input.subjects[number].first, number);

    std::vector<std::size_t> marks(subjects.size(), 0);
    std::vector<std::size_t> marked(subjects.size(), 0);
    std::vector<std::size_t> hasMark(input.students.size() * input.subjects.size(), 0); // 0 or 1
    for (const EnteredMark& mark : input.marks) {
        const auto subject = subjects.constFind(mark.subjectCode);
        if (subject == subjects.cend())
            continue;
        ++marks[*subject];
        const auto student = students.constFind(mark.studentCode);
        if (student == students.cend())
            continue;
        std::size_t& has = hasMark[*student * input.subjects.size() + *subject];
        marked[*subject] += 1 - has;
        has = 1;
    }

    std::vector<ListItem> items;
    for (std::size_t number = 0; number < input.subjects.size(); ++number) {
        const auto& [code, name] = input.subjects[number];
        if (marks[number] == 0 || marks[number] != input.students.size())
            continue;
        if (rules.marksSubjects && marked[number] != input.students.size())
            items.push_back(
                {code, MarkMissing + name,
                 QStringLiteral(
                     "'Classwise Mark Entry' Is Not Made To The Subject-%1 For One Or More Student(s)")
                     .arg(name)});
        else
            items.push_back({code, Ready + name, {}});
    }
    return items;
}

} // namespace tally
