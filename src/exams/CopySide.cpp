#include "exams/CopySide.h"

#include "core/ui/controls/DataCombo.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"

#include <algorithm>
#include <iterator>

namespace tally {

namespace {

int CodeIn(const DataCombo* list)
{
    return list ? list->BoundCode() : 0;
}

} // namespace

CopySide::CopySide(const QString& name, const Lists& lists) : name_(name), lists_(lists)
{
    const Line all[] = {{lists.year, QStringLiteral("Academic Year")},
                        {lists.exam, QStringLiteral("Exam Name")},
                        {lists.classes, QStringLiteral("Class")},
                        {lists.divisions, QStringLiteral("Division")}};
    std::copy_if(std::begin(all), std::end(all), std::back_inserter(lines_),
                 [](const Line& line) { return line.list != nullptr; });
}

SchoolScope CopySide::Scope() const
{
    return {CodeIn(lists_.year), CodeIn(lists_.exam), CodeIn(lists_.classes), CodeIn(lists_.divisions)};
}

void CopySide::Offer(const CodedTexts& years, const CopyChoices& choices)
{
    const SchoolScope chosen = Scope();
    lists_.year->SetListBehindBlank(years);
    lists_.year->SetBoundCode(chosen.academicYearCode);
    if (lists_.exam) {
        lists_.exam->SetList(choices.exams);
        lists_.exam->SetBoundCode(chosen.examCode);
    }
    lists_.classes->SetListBehindBlank(choices.classes);
    lists_.classes->SetBoundCode(chosen.classCode);
    OfferDivisions(CodedTexts());
}

void CopySide::OfferDivisions(const CodedTexts& divisions)
{
    if (lists_.divisions)
        lists_.divisions->SetListBehindBlank(divisions);
}

void CopySide::OfferDivisions(const std::vector<ListItem>& divisions)
{
    CodedTexts texts;
    for (const ListItem& division : divisions)
        texts.emplace_back(division.code, division.text);
    OfferDivisions(texts);
}

void CopySide::BlankBelow(const DataCombo* list)
{
    auto line =
        std::find_if(lines_.begin(), lines_.end(), [list](const Line& one) { return one.list == list; });
    for (++line; line != lines_.end(); ++line)
        line->list->SetBoundCode(0);
    OfferDivisions(CodedTexts());
}

void CopySide::Blank()
{
    lists_.year->SetBoundCode(0);
    BlankBelow(lists_.year);
}

bool CopySide::IsChosen(DataCombo* list) const
{
    if (CodeIn(list) != 0)
        return true;
    const auto line =
        std::find_if(lines_.begin(), lines_.end(), [list](const Line& one) { return one.list == list; });
    return Refuse(QStringLiteral("Select %1 On The '%2' Side").arg(line->what, name_), list);
}

bool CopySide::IsComplete() const
{
    return std::all_of(lines_.begin(), lines_.end(),
                       [this](const Line& line) { return IsChosen(line.list); });
}

bool AskToCopyAgain(const QString& result)
{
    Prompts::Information(result);
    return Prompts::Ask(QStringLiteral("Do You Want To Copy This Setup To Any Other Class ?"));
}

} // namespace tally
