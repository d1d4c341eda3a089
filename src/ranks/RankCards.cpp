#include "ranks/RankCards.h"

#include "core/Numbers.h"

#include <QHash>

#include <algorithm>

namespace tally {

namespace {

const QString IncompleteMark = QStringLiteral(". ");
const QString CompleteMark = QStringLiteral("  ");

template <typename Things, typename Code>
QHash<int, std::size_t> NumbersOf(const Things& things, Code code)
{
    QHash<int, std::size_t> numbers;
    for (std::size_t number = 0; number < things.size(); ++number)
        numbers.insert(code(things[number]), number);
    return numbers;
}

/// Builds the lines of all cards, exam by exam within each student.
class CardBuilder
{
public:
    CardBuilder(const RankCardInput& input, int markDecimals)
        : input_(input), markDecimals_(markDecimals),
          students_(
              NumbersOf(input.students, [](const CardStudent& student) { return student.studentCode; })),
          exams_(NumbersOf(input.exams, [](const SchoolExam& exam) { return exam.examCode; })),
          subjects_(
              NumbersOf(input.subjects, [](const CardSubject& subject) { return subject.subjectCode; })),
          lineOf_(input.students.size() * input.exams.size(), 0)
    {}

    RankCardGrid Run()
    {
        AddColumns();
        AddLines();
        for (const CardMark& mark : input_.marks)
            EnterMark(mark);
        for (const CardRank& rank : input_.ranks)
            EnterRank(rank);
        return std::move(cards_);
    }

private:
    /// The place of a student's line in an exam; null for a student or exam that is not ticked.
    template <typename Entry>
    int* LineOf(const Entry& entry)
    {
        const auto student = students_.constFind(entry.studentCode);
        const auto exam = exams_.constFind(entry.examCode);
        if (student == students_.cend() || exam == exams_.cend())
            return nullptr;
        return &lineOf_[*student * input_.exams.size() + *exam];
    }

    void AddColumns()
    {
        std::vector<GridColumn> columns(static_cast<std::size_t>(CardColumn::FirstSubject));
        GridTable::Row codes(columns.size());
        for (const CardSubject& subject : input_.subjects) {
            columns.push_back({subject.shortName, NumberAlignment});
            codes.push_back({QString::number(subject.subjectCode)});
        }
        for (const char* head : {"Total", "Average", "Rank"})
            columns.push_back({QString::fromLatin1(head), NumberAlignment});
        columns.push_back({QStringLiteral("Grade")});
        cards_.table = GridTable(std::move(columns));
        cards_.table.AddRow(std::move(codes));
        cards_.table.HideRow(RankCardGrid::CodesRow);
    }

    void AddLines()
    {
        constexpr int HasMarks = 1;
        for (const CardMark& mark : input_.marks) {
            if (int* line = LineOf(mark))
                *line = HasMarks;
        }
        auto line = lineOf_.begin();
        for (const CardStudent& student : input_.students) {
            for (const SchoolExam& exam : input_.exams) {
                if (*line == HasMarks) {
                    *line = cards_.table.Rows();
                    AddLine(student, exam);
                }
                ++line;
            }
            cards_.table.AddRow();
        }
    }

    void AddLine(const CardStudent& student, const SchoolExam& exam)
    {
        GridTable::Row cells;
        cells.reserve(static_cast<std::size_t>(cards_.table.Cols()));
        for (const QString& text :
             {exam.examName, student.studentName, student.admissionNo, input_.className, input_.divisionName})
            cells.push_back({text});
        cells.resize(static_cast<std::size_t>(cards_.table.Cols()));
        cards_.table.AddRow(std::move(cells));
        ++cards_.lines;
    }

    void EnterMark(const CardMark& mark)
    {
        const int* line = LineOf(mark);
        const auto subject = subjects_.constFind(mark.subjectCode);
        if (line != nullptr && subject != subjects_.cend())
            cards_.table.SetText(*line, ColumnOf(*subject), FormatMark(mark.mark, markDecimals_));
    }

    void EnterRank(const CardRank& rank)
    {
        const int* line = LineOf(rank);
        if (line == nullptr || *line == 0)
            return;
        int column = ColumnOf(input_.subjects.size());
        for (const QString& text :
             {rank.total ? PlainNumber(*rank.total) : QString(),
              rank.average ? PlainNumber(*rank.average) : QString(), RankText(rank.rank), rank.grade})
            cards_.table.SetText(*line, column++, text);
    }

    static int ColumnOf(std::size_t subject)
    {
        return static_cast<int>(CardColumn::FirstSubject) + static_cast<int>(subject);
    }

    const RankCardInput& input_;
    const int markDecimals_;
    const QHash<int, std::size_t> students_;
    const QHash<int, std::size_t> exams_;
    const QHash<int, std::size_t> subjects_;
    std::vector<int> lineOf_; ///< row of each student's line, exam by exam; 0 for no line
    RankCardGrid cards_;
};

} // namespace

std::vector<bool> MarksComplete(const StudentListInput& input, const std::vector<int>& examCodes)
{
    QHash<std::pair<int, int>, int> marks;
    for (const ExamMarkCount& count : input.counts)
        marks.insert({count.studentCode, count.examCode}, count.marks);
    std::vector<bool> complete;
    complete.reserve(input.students.size());
    for (const ListedStudent& student : input.students)
        complete.push_back(std::all_of(examCodes.begin(), examCodes.end(), [&](int examCode) {
            return marks.value({student.studentCode, examCode}, 0) == input.subjectCount;
        }));
    return complete;
}

ListItem StudentItem(const ListedStudent& student, bool complete)
{
    const QString text = (complete ? CompleteMark : IncompleteMark) + student.studentName;
    if (complete)
        return {student.studentCode, text, {}};
    return {student.studentCode, text,
            QStringLiteral("'Classwise Mark Entry' Is Not Made For This Student - ") + text};
}

RankCardGrid ComputeRankCards(const RankCardInput& input, int markDecimals)
{
    return CardBuilder(input, markDecimals).Run();
}

} // namespace tally
