#include "students/frmMasStudentAdmissionSearch.h"

#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "students/AdmissionRepository.h"
#include "students/frmMasStudentAdmissionEntry.h"
#include "students/frmMasStudentRelievingMaster.h"
#include "ui_frmMasStudentAdmissionSearch.h"

#include <algorithm>

namespace tally {

namespace {

/// That of the form to which the row is handed.
constexpr int HelpScreenNo = 11;

const QString CodeHead = QStringLiteral("StudentCode");
const QStringList HiddenHeads{CodeHead, QStringLiteral("Class Code"), QStringLiteral("ClassOrder"),
                              QStringLiteral("AcademicYearCode")};

} // namespace

frmMasStudentAdmissionSearch::frmMasStudentAdmissionSearch()
    : SearchScreen(QStringLiteral("frmMasStudentAdmissionSearch"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasStudentAdmissionSearch>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetSearchControls(ui_->cmdSearch, ui_->cmdExit, ui_->dgdDetails, ui_->txtAdmissionNo);
    TakeOnly(ui_->txtAdmissionNo, &KeyAlphaNumeric, 15);
    TakeOnly(ui_->txtSearchStudentName, &KeyAlphaNumeric, 100);
    classDivision_ = new DivisionChoice(this, ui_->dbcClass, ui_->dbcDivision, DivisionChoice::Order::ByName);
    Read([this] { classDivision_->Load(); });
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &frmMasStudentAdmissionSearch::cmdSearch_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmMasStudentAdmissionSearch::cmdCancel_Click);
    connect(ui_->dgdDetails, &DataGrid::RowDoubleClicked, this,
            &frmMasStudentAdmissionSearch::dgdDetails_DblClick);
}

frmMasStudentAdmissionSearch::~frmMasStudentAdmissionSearch() = default;

void frmMasStudentAdmissionSearch::cmdSearch_Click()
{
    const PlacementFilter filter{
        .admissionNo = ui_->txtAdmissionNo->text().trimmed(),
        .studentName = ui_->txtSearchStudentName->text().trimmed(),
        .classCode = ui_->dbcClass->BoundCode(),
        .divisionCode = ui_->dbcDivision->BoundCode(),
        .onRollOnly = Session().gblnCalledFromSearch,
    };
    const bool filtered =
        !filter.admissionNo.isEmpty() || !filter.studentName.isEmpty() || filter.classCode != 0;
    if (!WantsSearch(filtered, QStringLiteral("Do You Want To View All The Admissions ? "))) {
        ui_->txtAdmissionNo->setFocus();
        return;
    }
    ShowFound([&] { return AdmissionRepository(MainStore()).Search(Session().gintAcademicYearCode, filter); },
              HiddenHeads);
}

void frmMasStudentAdmissionSearch::cmdCancel_Click()
{
    SearchScreen::cmdCancel_Click();
    Read([this] { classDivision_->Load(); });
}

void frmMasStudentAdmissionSearch::dgdDetails_DblClick(int row)
{
    const int studentCode = ui_->dgdDetails->Code(row, CodeHead);
    const QString admissionNo = ui_->dgdDetails->Text(row, QStringLiteral("Admission No"));
    if (Session().gblnCalledFromSearch)
        LoadForRelieving(admissionNo);
    else
        LoadForAdmission(studentCode, admissionNo);
}

void frmMasStudentAdmissionSearch::LoadForRelieving(const QString& admissionNo)
{
    if (Prompts::Ask(QStringLiteral("Do You Want To Load The Relieving Student Details ?")))
        HandOver<frmMasStudentRelievingMaster>(
            QStringLiteral("frmMasStudentRelievingMaster"),
            [&](frmMasStudentRelievingMaster& master) { return master.LoadNumber(admissionNo); });
}

void frmMasStudentAdmissionSearch::LoadForAdmission(int studentCode, const QString& admissionNo)
{
    if (!Prompts::Ask(QStringLiteral("Do You Want To Edit/Delete ?")))
        return;
    const auto facts = Fetch(
        [&] { return AdmissionRepository(MainStore()).Facts(studentCode, Session().gintAcademicYearCode); });
    if (!facts)
        return;
    const QStringList questions = QuestionsBeforeViewing(*facts, admissionNo);
    if (!std::all_of(questions.begin(), questions.end(),
                     [](const QString& question) { return Prompts::Ask(question); }))
        return;
    HandOver<frmMasStudentAdmissionEntry>(QStringLiteral("frmMasStudentAdmissionEntry"),
                                          [&](frmMasStudentAdmissionEntry& entry) {
                                              return entry.LoadPlacement(studentCode, !questions.isEmpty());
                                          });
}

} // namespace tally
