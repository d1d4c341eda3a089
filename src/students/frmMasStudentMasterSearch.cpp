#include "students/frmMasStudentMasterSearch.h"

#include "core/SessionContext.h"
#include "core/ui/look/Look.h"
#include "core/ui/PlaceChoice.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "students/frmMasStudentMaster.h"
#include "students/StudentSearchRepository.h"
#include "ui_frmMasStudentMasterSearch.h"

namespace tally {

namespace {

/// That of the form to which the row is handed.
constexpr int HelpScreenNo = 10;

const QString CodeHead = QStringLiteral("StudentCode");

} // namespace

frmMasStudentMasterSearch::frmMasStudentMasterSearch()
    : SearchScreen(QStringLiteral("frmMasStudentMasterSearch"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasStudentMasterSearch>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetSearchControls(ui_->cmdSearch, ui_->cmdExit, ui_->dgdDetails, ui_->txtAdmissionNo);
    TakeOnly(ui_->txtAdmissionNo, &KeyAlphaNumeric, 15);
    TakeOnly(ui_->txtstudentName, &KeyAlphaNumeric, 100);
    places_ = new PlaceChoice(this, ui_->dbcStateName, ui_->dbcCityName);
    admitted_ = {.from = new DateFilter(ui_->dtpAdmissionFrom, ui_->lblAdmissionFrom),
                 .to = new DateFilter(ui_->dtpAdmissionTo, ui_->lblAdmissionTo),
                 .toBeforeFrom = QStringLiteral("'To Date' Should Be Greater Than 'From Date'"),
                 .fromMissing = QStringLiteral("Select 'From Date'"),
                 .toMissing = QStringLiteral("Select 'To Date'")};
    LoadPlaces();
    ResetDates();
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &frmMasStudentMasterSearch::cmdSearch_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmMasStudentMasterSearch::cmdCancel_Click);
    connect(ui_->dgdDetails, &DataGrid::RowDoubleClicked, this,
            &frmMasStudentMasterSearch::dgdDetails_DblClick);
}

frmMasStudentMasterSearch::~frmMasStudentMasterSearch() = default;

void frmMasStudentMasterSearch::LoadPlaces()
{
    Read([this] { places_->Load(); });
}

void frmMasStudentMasterSearch::ResetDates()
{
    for (DateFilter* date : {admitted_.from, admitted_.to})
        date->Reset(Session().gdtmApplicationDate);
}

void frmMasStudentMasterSearch::cmdSearch_Click()
{
    if (RefuseOrder(admitted_) || RefuseHalf(admitted_))
        return;
    const StudentFilters filters{.admissionNo = ui_->txtAdmissionNo->text().trimmed(),
                                 .name = ui_->txtstudentName->text().trimmed(),
                                 .stateCode = ui_->dbcStateName->BoundCode(),
                                 .cityCode = ui_->dbcCityName->BoundCode(),
                                 .admittedFrom = admitted_.from->Date(),
                                 .admittedTo = admitted_.to->Date()};
    if (!WantsSearch(!filters.AreEmpty(), QStringLiteral("Do You Want View All Students' Details ?"))) {
        ui_->txtAdmissionNo->setFocus();
        return;
    }
    ShowFound([&] { return StudentSearchRepository(MainStore()).Search(filters); },
              {CodeHead, QStringLiteral("Telephone"), QStringLiteral("CityCode")});
}

void frmMasStudentMasterSearch::cmdCancel_Click()
{
    SearchScreen::cmdCancel_Click();
    LoadPlaces();
    ResetDates();
}

void frmMasStudentMasterSearch::dgdDetails_DblClick(int row)
{
    const int code = ui_->dgdDetails->Code(row, CodeHead);
    const auto relieved = Fetch([&] { return StudentRepository(MainStore()).IsRelieved(code); });
    if (!relieved ||
        !Prompts::Ask(*relieved ? QStringLiteral("Do You Want To View Relieved Student Details ?")
                                : QStringLiteral("Do You Want To Edit/Delete ? ")))
        return;
    HandOver<frmMasStudentMaster>(QStringLiteral("frmMasStudentMaster"),
                                  [code](frmMasStudentMaster& master) { return master.LoadData(code); });
}

} // namespace tally
