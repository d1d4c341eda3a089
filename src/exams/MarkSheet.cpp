#include "exams/MarkSheet.h"

#include "core/Numbers.h"

#include <algorithm>

namespace tally {

namespace {

const QString MarkOfAbsent = QStringLiteral("Mark Entry Is Not Allowed When A Student Is Absent");

QString AboveLimit(double limit)
{
    return QStringLiteral("Entered Mark Should Not Exceed Maximum Allowed Mark : ") + PlainNumber(limit);
}

/// Empty for a text that is neither.
QString PresenceOf(const QString& text)
{
    if (text.startsWith(QLatin1Char('P'), Qt::CaseInsensitive))
        return PresentText;
    return text.startsWith(QLatin1Char('A'), Qt::CaseInsensitive) ? AbsentText : QString();
}

} // namespace

double MarkRow::Mark() const
{
    return Val(mark);
}

bool MarkRow::IsAbsent() const
{
    return presence.startsWith(QLatin1Char('A'));
}

GridTable MarkSheet::Table() const
{
    GridTable table({{QStringLiteral("S.No."), NumberAlignment},
                     {.head = nameHead_, .stretched = true},
                     {QStringLiteral("Mark Obtained"), NumberAlignment},
                     {QStringLiteral("Present/Absent")},
                     {.head = QStringLiteral("Studentcode"), .hidden = true},
                     {.head = QStringLiteral("MaximumAllowed"), .hidden = true},
                     {.head = QStringLiteral("TeacherCode"), .hidden = true},
                     {.head = QStringLiteral("MaximumMark"), .hidden = true}});
    table.Reserve(RowCount() + 1);
    for (int row = 1; row <= RowCount(); ++row)
        table.AddRow(Cells(row));
    table.AddRow();
    return table;
}

GridTable::Row MarkSheet::Cells(int row) const
{
    const MarkRow& entry = Row(row);
    const CellMark mark = entry.IsAbsent() ? CellMark::FailedOrAbsent : CellMark::None;
    const auto limit = [this](double number) {
        return mode_ == MarkMode::Student ? PlainNumber(number) : QString();
    };
    return {{QString::number(row)},
            {entry.name},
            {entry.mark, mark},
            {entry.presence, mark},
            {QString::number(entry.code)},
            {limit(entry.maximumAllowed)},
            {QString::number(entry.teacherCode)},
            {limit(entry.maximumMark)}};
}

void MarkSheet::UseMode(MarkMode mode)
{
    mode_ = mode;
    nameHead_ = mode == MarkMode::Subject ? QStringLiteral("Student Name") : QStringLiteral("Subject Name");
}

void MarkSheet::Clear()
{
    rows_.clear();
}

void MarkSheet::ListStudents(const CodedTexts& students)
{
    rows_.clear();
    for (const auto& [code, name] : students)
        rows_.push_back({.name = name, .code = code, .mark = {}, .presence = PresentText});
}

void MarkSheet::ListStudentsAgain(const CodedTexts& students)
{
    MarkSheet before = *this;
    ListStudents(students);
    for (MarkRow& row : rows_) {
        if (const MarkRow* shown = before.Find(row.code))
            row.teacherCode = shown->teacherCode;
    }
}

void MarkSheet::ListSubjects(const std::vector<MarkSubject>& subjects)
{
    rows_.clear();
    for (const MarkSubject& subject : subjects)
        rows_.push_back({.name = subject.name,
                         .code = subject.subjectCode,
                         .mark = {},
                         .presence = {},
                         .teacherCode = subject.teacherCode,
                         .maximumAllowed = subject.maximumAllowed,
                         .maximumMark = subject.maximumMark});
}

void MarkSheet::EmptyMarks()
{
    for (MarkRow& row : rows_) {
        row.mark.clear();
        row.presence.clear();
    }
}

void MarkSheet::StartSubject(const MarkSubject& subject)
{
    maximumAllowed_ = subject.maximumAllowed;
    maximumMark_ = subject.maximumMark;
    ResetMarks();
    for (MarkRow& row : rows_)
        row.teacherCode = subject.teacherCode;
}

void MarkSheet::ResetMarks()
{
    for (MarkRow& row : rows_) {
        row.mark.clear();
        row.presence = PresentText;
    }
}

std::vector<int> MarkSheet::TakeLimits(const std::vector<MarkSubject>& subjects, int chosenCode)
{
    std::vector<int> lost;
    for (MarkRow& row : rows_) {
        const int code = mode_ == MarkMode::Subject ? chosenCode : row.code;
        const auto subject = std::find_if(subjects.begin(), subjects.end(), [code](const MarkSubject& taken) {
            return taken.subjectCode == code;
        });
        if (subject != subjects.end())
            TakeLimits(row, *subject);
        else if (lost.empty() || lost.back() != code)
            lost.push_back(code);
    }
    return lost;
}

void MarkSheet::TakeLimits(MarkRow& row, const MarkSubject& subject)
{
    row.teacherCode = subject.teacherCode;
    if (mode_ == MarkMode::Subject) {
        maximumAllowed_ = subject.maximumAllowed;
        maximumMark_ = subject.maximumMark;
    } else {
        row.maximumAllowed = subject.maximumAllowed;
        row.maximumMark = subject.maximumMark;
    }
}

void MarkSheet::TakeMarks(const std::vector<StoredMark>& marks)
{
    for (const StoredMark& stored : marks) {
        MarkRow* row = Find(stored.code);
        if (!row)
            continue;
        row->mark = PlainNumber(stored.mark);
        row->presence = stored.present ? PresentText : AbsentText;
    }
}

MarkRow* MarkSheet::Find(int code)
{
    const auto row =
        std::find_if(rows_.begin(), rows_.end(), [code](const MarkRow& entry) { return entry.code == code; });
    return row == rows_.end() ? nullptr : &*row;
}

QString MarkSheet::RefusalWhileTyping(int row, const QString& text) const
{
    const double mark = Val(text);
    const bool bySubject = mode_ == MarkMode::Subject;
    // A student's absence in one subject may be typed over with 0; in the list of a subject it may not.
    if (bySubject ? mark < 0 : mark <= 0)
        return {};
    if (Row(row).IsAbsent())
        return MarkOfAbsent;
    return mark > LimitOf(row) ? AboveLimit(LimitOf(row)) : QString();
}

double MarkSheet::LimitOf(int row) const
{
    return mode_ == MarkMode::Subject ? maximumAllowed_ : Row(row).maximumAllowed;
}

void MarkSheet::SetMark(int row, const QString& text)
{
    At(row).mark = PlainNumber(Val(text));
}

bool MarkSheet::IsPresence(const QString& text)
{
    return !PresenceOf(text).isEmpty();
}

void MarkSheet::SetPresence(int row, const QString& text)
{
    At(row).presence = PresenceOf(text);
}

void MarkSheet::PutBack(int row, const MarkRow& before)
{
    At(row).mark = before.mark;
    At(row).presence = before.presence;
}

MarkStep MarkSheet::EnterMark(int row, const QString& text)
{
    SetMark(row, text);
    if (Row(row).Mark() == 0)
        return {MarkColumn::Presence, row, {}};
    At(row).presence = PresentText;
    return Behind(row);
}

MarkStep MarkSheet::EnterPresence(int row, const QString& text)
{
    if (!IsPresence(text))
        return {MarkColumn::Presence, row, QStringLiteral("Select Present/Absent ")};
    SetPresence(row, text);
    if (Row(row).IsAbsent() && Row(row).Mark() != 0)
        return {MarkColumn::Mark, row, MarkOfAbsent};
    return Behind(row);
}

MarkStep MarkSheet::Behind(int row) const
{
    return row < RowCount() ? MarkStep{MarkColumn::Mark, row + 1, {}} : MarkStep{MarkColumn::Mark, 0, {}};
}

QString MarkSheet::Average() const
{
    ExactSum marks;
    ExactSum maximums;
    for (const MarkRow& row : rows_) {
        if (row.IsAbsent())
            continue;
        marks.Add(row.Mark());
        maximums.Add(mode_ == MarkMode::Subject ? maximumMark_ : row.maximumMark);
    }
    const double sum = marks.Value();
    const double outOf = maximums.Value();
    const bool subjectWithoutLimit = mode_ == MarkMode::Subject && maximumAllowed_ == 0;
    return sum == 0 || outOf == 0 || subjectWithoutLimit ? QString()
                                                         : PlainNumber(Round(sum / outOf * 100, 2));
}

std::optional<MarkStep> MarkSheet::FindFault() const
{
    for (int row = 1; row <= RowCount(); ++row)
        if (Row(row).IsAbsent() && Row(row).Mark() != 0)
            return MarkStep{MarkColumn::Mark, row, MarkOfAbsent};
    for (int row = 1; row <= RowCount(); ++row) {
        if (Row(row).presence.isEmpty())
            return MarkStep{MarkColumn::Presence, row, QStringLiteral("Select Present/Absent")};
        if (Row(row).mark.isEmpty())
            return MarkStep{MarkColumn::Mark, row, QStringLiteral("Enter Mark")};
    }
    return {};
}

std::optional<MarkStep> MarkSheet::FindMarkAboveLimit() const
{
    for (int row = 1; row <= RowCount(); ++row)
        if (Row(row).Mark() > LimitOf(row))
            return MarkStep{MarkColumn::Mark, row, AboveLimit(LimitOf(row))};
    return {};
}

std::vector<MarkRecord> MarkSheet::Records(int chosenCode) const
{
    std::vector<MarkRecord> records;
    records.reserve(rows_.size());
    for (const MarkRow& row : rows_) {
        const bool bySubject = mode_ == MarkMode::Subject;
        records.push_back({.studentCode = bySubject ? row.code : chosenCode,
                           .subjectCode = bySubject ? chosenCode : row.code,
                           .mark = row.Mark(),
                           .present = !row.IsAbsent(),
                           .teacherCode = row.teacherCode});
    }
    return records;
}

} // namespace tally
