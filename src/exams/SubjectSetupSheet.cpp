#include "exams/SubjectSetupSheet.h"

#include "core/Numbers.h"

#include <algorithm>
#include <functional>

namespace tally {

namespace {

const QString OrderExists = QStringLiteral("Subject Order Already Exists");
const QString SubjectSelected = QStringLiteral("Subject Already Selected");
const QString SelectRank = QStringLiteral("Select Rank");

constexpr auto First = SubjectColumn::Subject;
constexpr auto Last = SubjectColumn::Order;

bool IsBeginningOf(const QString& text, const QString& whole)
{
    return !text.isEmpty() && whole.startsWith(text, Qt::CaseInsensitive);
}

/// Empty for blanks, none for a text that says neither.
std::optional<QString> RankOf(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return QString();
    if (IsBeginningOf(trimmed, YesText))
        return YesText;
    return IsBeginningOf(trimmed, NoText) ? std::optional(NoText) : std::nullopt;
}

SubjectRow RowOf(const TaughtSubject& subject)
{
    return {.subjectName = subject.subjectName,
            .subjectCode = subject.subjectCode,
            .teacherName = subject.teacherName,
            .teacherCode = subject.teacherCode,
            .maximumMark = PlainNumber(subject.maximumMark),
            .maximumAllowed = PlainNumber(subject.maximumAllowed),
            .takenForRank = subject.takenForRank,
            .order = QString::number(subject.slNo),
            .stored = true};
}

/// None for the code 0 of what is only a text.
std::optional<QString> NameOf(int code, const CodedTexts& names)
{
    const auto found =
        std::find_if(names.begin(), names.end(), [code](const auto& name) { return name.first == code; });
    return code == 0 || found == names.end() ? std::nullopt : std::optional(found->second);
}

SubjectColumn Next(SubjectColumn column)
{
    return static_cast<SubjectColumn>(static_cast<int>(column) + 1);
}

} // namespace

QString BelowEnteredMark(double highest)
{
    return QStringLiteral("'Maximum Allowed' Marks Should Not Be Lesser Than Mark (%1) Entered In 'Classwise "
                          "Mark Entry'")
        .arg(PlainNumber(highest));
}

bool SubjectRow::IsBlank() const
{
    const auto isBlank = [](const QString& text) { return text.trimmed().isEmpty(); };
    return isBlank(subjectName) && isBlank(teacherName) && isBlank(maximumMark) && isBlank(maximumAllowed) &&
           isBlank(takenForRank) && isBlank(order);
}

double SubjectRow::MaximumMark() const
{
    return Val(maximumMark);
}

double SubjectRow::MaximumAllowed() const
{
    return Val(maximumAllowed);
}

void SubjectSetupSheet::Clear()
{
    rows_.assign(1, {});
    marks_.clear();
}

void SubjectSetupSheet::Load(const std::vector<TaughtSubject>& subjects, const MarksBySubject& marks)
{
    rows_.clear();
    for (const TaughtSubject& subject : subjects)
        rows_.push_back(RowOf(subject));
    rows_.emplace_back();
    marks_ = marks;
}

void SubjectSetupSheet::PutBackFrozen(const std::vector<TaughtSubject>& stored)
{
    for (const TaughtSubject& subject : stored) {
        if (marks_.count(subject.subjectCode) == 0)
            continue;
        SubjectRow frozen = RowOf(subject);
        if (const int row = FindRow(subject.subjectCode); row > 0) {
            frozen.takenForRank = Row(row).takenForRank;
            if (Row(row).MaximumAllowed() <= subject.maximumMark)
                frozen.maximumAllowed = Row(row).maximumAllowed;
            At(row) = frozen;
        } else {
            rows_.insert(rows_.back().IsBlank() ? rows_.end() - 1 : rows_.end(), frozen);
        }
    }
    EndInBlankRow();
}

void SubjectSetupSheet::RenameSubjects(const CodedTexts& subjects)
{
    for (SubjectRow& row : rows_)
        row.subjectName = NameOf(row.subjectCode, subjects).value_or(row.subjectName);
}

void SubjectSetupSheet::RenameTeachers(const CodedTexts& teachers)
{
    for (SubjectRow& row : rows_)
        row.teacherName = NameOf(row.teacherCode, teachers).value_or(row.teacherName);
}

bool SubjectSetupSheet::IsBlank() const
{
    return std::all_of(rows_.begin(), rows_.end(), std::mem_fn(&SubjectRow::IsBlank));
}

int SubjectSetupSheet::FindRow(int subjectCode) const
{
    for (int row = 1; row <= RowCount(); ++row)
        if (Row(row).IsNamed() && Row(row).subjectCode == subjectCode)
            return row;
    return 0;
}

GridTable SubjectSetupSheet::Table() const
{
    GridTable table({{QStringLiteral("S.No."), NumberAlignment},
                     {.head = QStringLiteral("Subject Name"), .stretched = true},
                     {.head = QStringLiteral("Teacher Name"), .stretched = true},
                     {QStringLiteral("Maximum Mark"), NumberAlignment},
                     {QStringLiteral("Maximum Allowed"), NumberAlignment},
                     {QStringLiteral("Taken For Rank")},
                     {QStringLiteral("Subject Order"), NumberAlignment},
                     {.head = QStringLiteral("SubjectCode"), .hidden = true},
                     {.head = QStringLiteral("Teachercode"), .hidden = true}});
    table.Reserve(RowCount());
    for (int row = 1; row <= RowCount(); ++row)
        table.AddRow(Cells(row));
    return table;
}

GridTable::Row SubjectSetupSheet::Cells(int row) const
{
    const SubjectRow& entry = Row(row);
    const auto code = [](int number) { return number == 0 ? QString() : QString::number(number); };
    return {{QString::number(row)}, {entry.subjectName},       {entry.teacherName},
            {entry.maximumMark},    {entry.maximumAllowed},    {entry.takenForRank},
            {entry.order},          {code(entry.subjectCode)}, {code(entry.teacherCode)}};
}

double SubjectSetupSheet::TotalMark() const
{
    ExactSum total;
    for (const SubjectRow& row : rows_)
        if (row.takenForRank.trimmed() != NoText)
            total.Add(row.MaximumMark());
    return total.Value();
}

double SubjectSetupSheet::HighestMark(int row) const
{
    const auto entered = marks_.find(Row(row).subjectCode);
    return entered == marks_.end() ? 0 : entered->second.highest;
}

bool SubjectSetupSheet::Opens(int row, SubjectColumn column) const
{
    if (!HasRow(row) || column < First || column > Last)
        return false;
    if (IsFrozen(row))
        return column == SubjectColumn::MaximumAllowed || column == SubjectColumn::TakenForRank;
    return column == SubjectColumn::Subject || Row(row).IsNamed();
}

QString SubjectSetupSheet::RefusalToOpen(int row, SubjectColumn column) const
{
    return HasRow(row) && IsFrozen(row) && !Opens(row, column) ? SubjectIsFrozen : QString();
}

SubjectColumn SubjectSetupSheet::FirstOpen(int row) const
{
    return IsFrozen(row) ? SubjectColumn::MaximumAllowed : First;
}

void SubjectSetupSheet::SetSubject(int row, int code, const QString& name)
{
    const bool blank = name.trimmed().isEmpty();
    At(row).subjectName = blank ? QString() : name;
    At(row).subjectCode = blank ? 0 : code;
    At(row).stored = false;
}

QString SubjectSetupSheet::DropRepeatedSubject(int row)
{
    const QString name = Row(row).subjectName.trimmed();
    const int code = Row(row).subjectCode;
    for (int other = 1; other <= RowCount(); ++other) {
        const bool isSame = (code != 0 && Row(other).subjectCode == code) ||
                            Row(other).subjectName.trimmed().compare(name, Qt::CaseInsensitive) == 0;
        if (other == row || name.isEmpty() || !isSame)
            continue;
        SetSubject(row, 0, {});
        return SubjectSelected;
    }
    return {};
}

void SubjectSetupSheet::SetTeacher(int row, int code, const QString& name)
{
    const bool blank = name.trimmed().isEmpty();
    At(row).teacherName = blank ? QString() : name;
    At(row).teacherCode = blank ? 0 : code;
}

void SubjectSetupSheet::SetMaximumMark(int row, const QString& text)
{
    At(row).maximumAllowed = text;
    At(row).maximumMark = PlainNumber(Val(text));
}

QString SubjectSetupSheet::SetMaximumAllowed(int row, const QString& text)
{
    const bool allowed = Val(text) <= Row(row).MaximumMark();
    At(row).maximumAllowed = PlainNumber(allowed ? Val(text) : 0);
    return allowed
               ? QString()
               : QStringLiteral("'Maximum Allowed' Mark Should Not Be Greater Than 'Maximum Mark' Entered");
}

QString SubjectSetupSheet::RefusalOfMaximumAllowed(int row) const
{
    const double highest = HighestMark(row);
    return highest <= Row(row).MaximumAllowed() ? QString() : BelowEnteredMark(highest);
}

void SubjectSetupSheet::SetTakenForRank(int row, const QString& text)
{
    if (const auto rank = RankOf(text))
        At(row).takenForRank = *rank;
}

QString SubjectSetupSheet::RefusalOfRank(const QString& text)
{
    return RankOf(text).value_or(QString()).isEmpty() ? SelectRank : QString();
}

void SubjectSetupSheet::SetOrder(int row, const QString& text)
{
    At(row).order = text;
}

bool SubjectSetupSheet::OrderIsRepeated(int row, bool namedOnly) const
{
    for (int other = 1; other <= RowCount(); ++other)
        if (other != row && Row(row).Order() > 0 && Row(other).Order() == Row(row).Order() &&
            (!namedOnly || Row(other).IsNamed()))
            return true;
    return false;
}

QString SubjectSetupSheet::DropRepeatedOrder(int row)
{
    if (!OrderIsRepeated(row, true))
        return {};
    At(row).order.clear();
    return OrderExists;
}

void SubjectSetupSheet::PutBack(int row, const SubjectRow& before)
{
    At(row) = before;
}

SubjectStep SubjectSetupSheet::Behind(int row, SubjectColumn column) const
{
    for (SubjectColumn next = Next(column); next <= Last; next = Next(next))
        if (Opens(row, next))
            return {next, row, {}};
    const int below = std::min(row + 1, RowCount());
    return {FirstOpen(below), below, {}};
}

SubjectStep SubjectSetupSheet::EnterSubject(int row)
{
    if (!Row(row).IsNamed())
        return {};
    if (const QString refusal = DropRepeatedSubject(row); !refusal.isEmpty())
        return {.message = refusal};
    if (Row(row).subjectCode == 0)
        return {.message = QStringLiteral("Select Subject Name")};
    return Behind(row, SubjectColumn::Subject);
}

SubjectStep SubjectSetupSheet::EnterTeacher(int row) const
{
    if (!Row(row).teacherName.trimmed().isEmpty() && Row(row).teacherCode == 0)
        return {.message = QStringLiteral("Select Teacher Name")};
    return Behind(row, SubjectColumn::Teacher);
}

SubjectStep SubjectSetupSheet::EnterMaximumMark(int row) const
{
    return Row(row).MaximumMark() > 0 ? Behind(row, SubjectColumn::MaximumMark) : SubjectStep{};
}

SubjectStep SubjectSetupSheet::EnterMaximumAllowed(int row)
{
    if (Row(row).MaximumAllowed() <= 0)
        return {};
    if (const QString refusal = SetMaximumAllowed(row, Row(row).maximumAllowed); !refusal.isEmpty())
        return {.message = refusal};
    if (const QString refusal = RefusalOfMaximumAllowed(row); !refusal.isEmpty()) {
        At(row).maximumAllowed = PlainNumber(0);
        return {.message = refusal};
    }
    return Behind(row, SubjectColumn::MaximumAllowed);
}

SubjectStep SubjectSetupSheet::EnterTakenForRank(int row, const QString& text)
{
    if (const QString refusal = RefusalOfRank(text); !refusal.isEmpty())
        return {.message = refusal};
    SetTakenForRank(row, text);
    return Behind(row, SubjectColumn::TakenForRank);
}

SubjectStep SubjectSetupSheet::EnterOrder(int row)
{
    if (Row(row).Order() <= 0)
        return {};
    if (OrderIsRepeated(row, false))
        return {.message = OrderExists};
    At(row).order = QString::number(Row(row).Order());
    if (row == RowCount())
        rows_.emplace_back();
    return Behind(row, SubjectColumn::Order);
}

void SubjectSetupSheet::EndInBlankRow()
{
    if (rows_.empty() || !rows_.back().IsBlank())
        rows_.emplace_back();
}

void SubjectSetupSheet::DeleteRow(int row)
{
    rows_.erase(rows_.begin() + (row - 1));
    EndInBlankRow();
}

int SubjectSetupSheet::RowWithOrderOf(int row) const
{
    for (int later = row + 1; later <= RowCount(); ++later)
        if (Row(row).Order() > 0 && Row(later).Order() == Row(row).Order())
            return later;
    return 0;
}

bool SubjectSetupSheet::IsComplete(int row) const
{
    const SubjectRow& entry = Row(row);
    // What is frozen can't be mended, so it is not judged.
    const bool entered =
        IsFrozen(row) || (entry.subjectCode != 0 && entry.teacherCode != 0 && entry.MaximumMark() > 0);
    return entered && entry.MaximumAllowed() > 0 && !entry.takenForRank.trimmed().isEmpty();
}

std::optional<SubjectStep> SubjectSetupSheet::FindFault() const
{
    for (int row = 1; row <= RowCount(); ++row)
        if (Row(row).IsNamed() && Row(row).takenForRank.trimmed().isEmpty())
            return SubjectStep{SubjectColumn::TakenForRank, row, SelectRank};
    for (int row = 1; row <= RowCount(); ++row)
        if (Row(row).IsNamed() && Row(row).Order() == 0 && !IsFrozen(row))
            return SubjectStep{SubjectColumn::Order, row,
                               QStringLiteral("Subject Order Should Not Be Empty")};
    for (int row = 1; row <= RowCount(); ++row) {
        const int later = RowWithOrderOf(row);
        if (later > 0 && !(IsFrozen(row) && IsFrozen(later)))
            return SubjectStep{SubjectColumn::Order, IsFrozen(row) ? later : row, OrderExists};
    }
    for (int row = 1; row <= RowCount(); ++row) {
        const bool isBlankEnd = row == RowCount() && row > 1 && Row(row).IsBlank();
        if (!isBlankEnd && !IsComplete(row))
            return SubjectStep{FirstOpen(row), row, QStringLiteral("Enter Details Properly")};
    }
    for (int row = 1; row <= RowCount(); ++row)
        if (Row(row).IsNamed() && FindRow(Row(row).subjectCode) != row)
            return SubjectStep{SubjectColumn::Subject, row, SubjectSelected};
    return {};
}

std::vector<TaughtSubject> SubjectSetupSheet::Subjects() const
{
    std::vector<TaughtSubject> subjects;
    for (const SubjectRow& row : rows_)
        if (row.IsNamed())
            subjects.push_back({.subjectCode = row.subjectCode,
                                .subjectName = row.subjectName,
                                .teacherCode = row.teacherCode,
                                .teacherName = row.teacherName,
                                .maximumMark = row.MaximumMark(),
                                .maximumAllowed = row.MaximumAllowed(),
                                .takenForRank = row.takenForRank,
                                .slNo = row.Order()});
    return subjects;
}

} // namespace tally
