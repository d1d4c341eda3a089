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
          exams_(NumbersOf(input.exams, [](const RankExam& exam) { return exam.examCode; })),
          subjects_(
              NumbersOf(input.subjects, [](const CardSubject& subject) { return subject.subjectCode; })),
          columns_(static_cast<std::size_t>(RankCardRows::FirstSubjectColumn) + input.subjects.size() +
                   RankCardRows::ColumnsBehindSubjects),
          lineOf_(input.students.size() * input.exams.size(), 0)
    {}

    RankCardRows Run()
    {
        AddHeads();
        AddLines();
        for (const CardMark& mark : input_.marks)
            EnterMark(mark);
        for (const CardRank& rank : input_.ranks)
            EnterRank(rank);
        return std::move(cards_);
    }

private:
    using Row = std::vector<QString>;

    /// The place of a student's line in an exam; null for a student or exam that is not ticked.
    template <typename Entry>
    std::size_t* LineOf(const Entry& entry)
    {
        const auto student = students_.constFind(entry.studentCode);
        const auto exam = exams_.constFind(entry.examCode);
        if (student == students_.cend() || exam == exams_.cend())
            return nullptr;
        return &lineOf_[*student * input_.exams.size() + *exam];
    }

    void AddHeads()
    {
        Row heads(columns_);
        Row codes(columns_);
        std::size_t column = RankCardRows::FirstSubjectColumn;
        for (const CardSubject& subject : input_.subjects) {
            heads[column] = subject.shortName;
            codes[column] = QString::number(subject.subjectCode);
            ++column;
        }
        for (const char* head : {"Total", "Average", "Rank", "Grade"})
            heads[column++] = QString::fromLatin1(head);
        cards_.rows.push_back(std::move(heads));
        cards_.rows.push_back(std::move(codes));
    }

    void AddLines()
    {
        constexpr std::size_t HasMarks = 1;
        for (const CardMark& mark : input_.marks) {
            if (std::size_t* line = LineOf(mark))
                *line = HasMarks;
        }
        auto line = lineOf_.begin();
        for (const CardStudent& student : input_.students) {
            for (const RankExam& exam : input_.exams) {
                if (*line == HasMarks) {
                    *line = cards_.rows.size();
                    AddLine(student, exam);
                }
                ++line;
            }
            cards_.rows.emplace_back();
        }
    }

    void AddLine(const CardStudent& student, const RankExam& exam)
    {
        Row& row = cards_.rows.emplace_back(columns_);
        row[0] = exam.examName;
        row[1] = student.studentName;
        row[2] = student.admissionNo;
        row[3] = input_.className;
        row[4] = input_.divisionName;
        ++cards_.lines;
    }

    void EnterMark(const CardMark& mark)
    {
        const std::size_t* line = LineOf(mark);
        const auto subject = subjects_.constFind(mark.subjectCode);
        if (line != nullptr && subject != subjects_.cend())
            cards_.rows[*line][RankCardRows::FirstSubjectColumn + *subject] =
                FormatMark(mark.mark, markDecimals_);
    }

    void EnterRank(const CardRank& rank)
    {
        const std::size_t* line = LineOf(rank);
        if (line == nullptr || *line == 0)
            return;
        Row& row = cards_.rows[*line];
        auto cell = row.end() - RankCardRows::ColumnsBehindSubjects;
        *cell++ = rank.total ? PlainNumber(*rank.total) : QString();
        *cell++ = rank.average ? PlainNumber(*rank.average) : QString();
        *cell++ = RankText(rank.rank);
        *cell = rank.grade;
    }

    const RankCardInput& input_;
    const int markDecimals_;
    const QHash<int, std::size_t> students_;
    const QHash<int, std::size_t> exams_;
    const QHash<int, std::size_t> subjects_;
    const std::size_t columns_;
    std::vector<std::size_t> lineOf_; ///< row of each student's line, exam by exam; 0 for no line
    RankCardRows cards_;
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

QString StudentItem(const QString& studentName, bool complete)
{
    return (complete ? CompleteMark : IncompleteMark) + studentName;
}

QString StudentRefusal(const QString& item)
{
    if (!item.startsWith(IncompleteMark.front()))
        return {};
    return QStringLiteral("'Classwise Mark Entry' Is Not Made For This Student - ") + item;
}

RankCardRows ComputeRankCards(const RankCardInput& input, int markDecimals)
{
    return CardBuilder(input, markDecimals).Run();
}

} // namespace tally
