#include "reports/DivisionSubjectChoice.h"

#include "core/school/DivisionRepository.h"
#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/FormKeys.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/Screen.h"
#include "core/ui/SelectAllBox.h"
#include "reports/DivisionReportRepository.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>

namespace tally {

DivisionSubjectChoice::DivisionSubjectChoice(Screen* screen, const Controls& controls,
                                             const DivisionReportRules& rules)
    : QObject(screen), screen_(screen), controls_(controls), rules_(rules),
      subjects_(new SelectAllBox(controls.selectSubjects, controls.Lstsubjects))
{
    using Choice = DivisionSubjectChoice;
    connect(controls.Cboexamname, &DataCombo::Chosen, this, &Choice::Cboexamname_Click);
    connect(controls.cboClass, &DataCombo::Chosen, this, &Choice::cboClass_Click);
    connect(controls.Lstdivision, &CheckList::Ticked, this, &Choice::Lstdivision_ItemCheck);
    connect(controls.selectDivisions, &QCheckBox::clicked, this, &Choice::selectDivisions_Click);
    connect(subjects_, &SelectAllBox::Changed, this, &Choice::Changed);
    connect(controls.Optsubjectdisplayyes, &QRadioButton::toggled, this, &Choice::Changed);
    // An arrow key gives the option the focus after switching it on, so what is missing takes it after that.
    connect(controls.Optsubjectdisplayyes, &QRadioButton::toggled, this, &Choice::LoadSubjects,
            Qt::QueuedConnection);
    for (DataCombo* combo : {controls.Cboexamname, controls.cboClass})
        combo->setProperty(EnterNeedsText, true);
}

void DivisionSubjectChoice::Reset()
{
    {
        const QSignalBlocker unheard(controls_.Optsubjectdisplayyes);
        controls_.Optsubjectdisplayno->setChecked(true);
    }
    for (DataCombo* combo : {controls_.Cboexamname, controls_.cboClass})
        combo->SetListBehindBlank({});
    screen_->Read([this] {
        SchoolListRepository lists(MainStore());
        controls_.Cboexamname->SetListBehindBlank(lists.Exams());
        controls_.cboClass->SetListBehindBlank(lists.Classes());
    });
    controls_.cboClass->setEnabled(false);
    ClearDivisions();
}

SchoolScope DivisionSubjectChoice::Scope() const
{
    return {Session().gintAcademicYearCode, controls_.Cboexamname->BoundCode(),
            controls_.cboClass->BoundCode()};
}

SubjectDisplay DivisionSubjectChoice::Display() const
{
    return ChosenDisplay(controls_.Optsubjectdisplayyes->isChecked());
}

std::vector<int> DivisionSubjectChoice::DivisionCodes() const
{
    return controls_.Lstdivision->TickedData();
}

std::vector<int> DivisionSubjectChoice::SubjectCodes() const
{
    return controls_.Lstsubjects->TickedData();
}

std::vector<ListItem> DivisionSubjectChoice::Divisions() const
{
    std::vector<ListItem> divisions;
    for (const int index : controls_.Lstdivision->TickedIndexes())
        divisions.push_back(
            {controls_.Lstdivision->ItemData(index), controls_.Lstdivision->item(index)->text(), {}});
    return divisions;
}

QString DivisionSubjectChoice::ExamName() const
{
    return controls_.Cboexamname->currentText().trimmed();
}

QString DivisionSubjectChoice::ClassName() const
{
    return controls_.cboClass->currentText().trimmed();
}

QString DivisionSubjectChoice::DivisionNames() const
{
    QStringList names;
    for (const ListItem& division : Divisions())
        names.append(WithoutMark(division.text));
    return names.join(QLatin1Char(','));
}

bool DivisionSubjectChoice::IsComplete()
{
    if (controls_.Cboexamname->BoundCode() == 0)
        return Refuse(QStringLiteral("Select Exam Name"), controls_.Cboexamname);
    if (controls_.cboClass->BoundCode() == 0)
        return Refuse(QStringLiteral("Select Class"), controls_.cboClass);
    if (controls_.Lstdivision->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Division(s)"), controls_.Lstdivision);
    if (!controls_.Optsubjectdisplayyes->isChecked() && !controls_.Optsubjectdisplayno->isChecked())
        return Refuse(QStringLiteral("Select 'Subjects Taken For Rank' Option"),
                      controls_.Optsubjectdisplayno);
    if (controls_.Lstsubjects->TickedIndexes().isEmpty())
        return Refuse(QStringLiteral("Select Subject(s)"), controls_.Lstsubjects);
    return true;
}

void DivisionSubjectChoice::Cboexamname_Click()
{
    controls_.cboClass->SetBoundCode(0);
    controls_.cboClass->setEnabled(controls_.Cboexamname->BoundCode() != 0);
    ClearDivisions();
    Q_EMIT Changed();
}

void DivisionSubjectChoice::cboClass_Click()
{
    ClearDivisions();
    LoadDivisions();
    Q_EMIT Changed();
}

void DivisionSubjectChoice::ClearDivisions()
{
    base_ = 0;
    controls_.Lstdivision->clear();
    controls_.selectDivisions->setChecked(false);
    controls_.selectDivisions->setEnabled(true);
    subjects_->Clear();
}

void DivisionSubjectChoice::LoadDivisions()
{
    if (controls_.cboClass->BoundCode() == 0)
        return;
    const auto divisions = screen_->Fetch([this] {
        const HourGlass hourGlass;
        return DivisionRepository(MainStore()).LoadDivisionFacts(Scope(), DivisionOrder::ByName);
    });
    if (!divisions) {
        // A class over no divisions could not be chosen again.
        controls_.cboClass->SetBoundCode(0);
        return;
    }
    bool allUsable = true;
    for (const DivisionFacts& facts : *divisions) {
        const ListItem item = DivisionLine(facts, Display(), rules_);
        controls_.Lstdivision->AddItem(item);
        allUsable = allUsable && IsUsable(item.text);
    }
    controls_.selectDivisions->setEnabled(allUsable || !rules_.wantsAllMarks);
}

void DivisionSubjectChoice::Lstdivision_ItemCheck(int index, bool ticked)
{
    CheckList* list = controls_.Lstdivision;
    if (ticked && !IsUsable(list->item(index)->text())) {
        list->SetTicked(index, false);
        const QString refusal = list->Refusal(index);
        if (!refusal.isEmpty())
            Prompts::Information(refusal);
        return;
    }
    Q_EMIT Changed();
    if (!ticked)
        controls_.selectDivisions->setChecked(false);
    KeepBase();
    if (!ticked || CompareWithBase())
        LoadSubjects();
    else
        // What could not be compared is not shown together.
        Untick({list->ItemData(index)});
}

void DivisionSubjectChoice::KeepBase()
{
    const std::vector<int> ticked = DivisionCodes();
    if (std::find(ticked.begin(), ticked.end(), base_) == ticked.end())
        base_ = ticked.empty() ? 0 : ticked.front();
}

bool DivisionSubjectChoice::CompareWithBase()
{
    std::vector<int> others = DivisionCodes();
    std::erase(others, base_);
    if (others.empty())
        return true;
    const auto setup =
        screen_->Fetch([this] { return DivisionRepository(MainStore()).LoadSubjectSetup(Scope()); });
    if (!setup)
        return false;
    const std::vector<int> differing = DivisionsThatDiffer(*setup, base_, others, Display(), rules_);
    Untick(differing);
    if (!differing.empty())
        Prompts::Information(QString::fromLatin1(rules_.subjectsDiffer));
    return true;
}

void DivisionSubjectChoice::Untick(const std::vector<int>& divisionCodes)
{
    if (divisionCodes.empty())
        return;
    CheckList* list = controls_.Lstdivision;
    for (int index = 0; index < list->count(); ++index)
        if (std::find(divisionCodes.begin(), divisionCodes.end(), list->ItemData(index)) !=
            divisionCodes.end())
            list->SetTicked(index, false);
    controls_.selectDivisions->setChecked(false);
    KeepBase();
    Q_EMIT Changed();
}

void DivisionSubjectChoice::selectDivisions_Click(bool ticked)
{
    Untick(DivisionCodes());
    if (!ticked || TickAll())
        LoadSubjects();
    else
        subjects_->Clear();
}

bool DivisionSubjectChoice::TickAll()
{
    const auto setup =
        screen_->Fetch([this] { return DivisionRepository(MainStore()).LoadSubjectSetup(Scope()); });
    controls_.selectDivisions->setChecked(false);
    if (!setup)
        return false;
    CheckList* list = controls_.Lstdivision;
    std::vector<ListItem> items;
    items.reserve(static_cast<std::size_t>(list->count()));
    for (int index = 0; index < list->count(); ++index)
        items.push_back({list->ItemData(index), list->item(index)->text(), {}});
    const AllDivisions all = ChooseAllDivisions(items, *setup, Display(), rules_);
    for (int index = 0; index < list->count(); ++index)
        list->SetTicked(index, std::find(all.ticked.begin(), all.ticked.end(), list->ItemData(index)) !=
                                   all.ticked.end());
    controls_.selectDivisions->setChecked(!items.empty() && all.ticked.size() == items.size());
    KeepBase();
    Q_EMIT Changed();
    for (const QString& message : all.messages)
        Prompts::Information(message);
    return true;
}

void DivisionSubjectChoice::LoadSubjects()
{
    subjects_->Clear();
    const std::vector<int> divisions = DivisionCodes();
    if (divisions.empty()) {
        Refuse(QString::fromLatin1(rules_.noDivision), controls_.Lstdivision);
        return;
    }
    struct Read
    {
        std::vector<SubjectSetup> setup;
        CommonSubjectsInput subjects;
    };
    const auto read = screen_->Fetch([&] {
        const HourGlass hourGlass;
        return Read{DivisionRepository(MainStore()).LoadSubjectSetup(Scope()),
                    DivisionReportRepository(MainStore()).LoadCommonSubjects(Scope(), divisions, Display())};
    });
    if (!read)
        return;
    if (SubjectsOf(read->setup, base_, Display()).empty()) {
        Untick(divisions);
        return;
    }
    subjects_->SetItems(CommonSubjects(read->subjects, rules_));
}

} // namespace tally
