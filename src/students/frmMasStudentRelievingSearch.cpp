#include "students/frmMasStudentRelievingSearch.h"

#include "core/SessionContext.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/DateFilter.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "students/frmMasStudentRelievingMaster.h"
#include "students/RelievingRepository.h"
#include "ui_frmMasStudentRelievingSearch.h"

namespace tally {

namespace {

const QString CodeHead = QStringLiteral("StudentCode");
const QStringList HiddenHeads{CodeHead, QStringLiteral("RelievingReason"),
                              QStringLiteral("AcademicYearCode")};

/// The texts of two dates of one kind.
DateRange RangeOf(DateFilter* from, DateFilter* to, const QString& kind)
{
    return {
        .from = from,
        .to = to,
        .toBeforeFrom = QStringLiteral("%1 'To Date' Should Be Greater Than %1 'From Date'").arg(kind),
        .fromMissing = QStringLiteral("Select %1 'From Date'").arg(kind),
        .toMissing = QStringLiteral("Select %1 'To Date'").arg(kind),
    };
}

} // namespace

frmMasStudentRelievingSearch::frmMasStudentRelievingSearch()
    : SearchScreen(QStringLiteral("frmMasStudentRelievingSearch")),
      ui_(std::make_unique<Ui::frmMasStudentRelievingSearch>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetSearchControls(ui_->cmdSearch, ui_->cmdExit, ui_->dgdDetails, ui_->txtAdmissionNo);
    TakeOnly(ui_->txtAdmissionNo, &KeyAlphaNumeric, 15);
    TakeOnly(ui_->txtstudentName, &KeyAlphaNumeric, 100);
    admissionFrom_ = new DateFilter(ui_->dtpAdmissionFrom, ui_->lblAdmissionFrom);
    admissionTo_ = new DateFilter(ui_->dtpAdmissionTo, ui_->lblAdmissionTo);
    relievingFrom_ = new DateFilter(ui_->dtpRelievingDateFrom, ui_->lblRelievingDateFrom);
    relievingTo_ = new DateFilter(ui_->dtpRelievingDateTo, ui_->lblRelievingDateTo);
    ResetDates();
    connect(admissionTo_, &DateFilter::Chosen, this,
            [this] { static_cast<void>(RefuseOrder(AdmissionDates())); });
    connect(relievingTo_, &DateFilter::Chosen, this,
            [this] { static_cast<void>(RefuseOrder(RelievingDates())); });
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &frmMasStudentRelievingSearch::cmdSearch_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, [this] {
        cmdCancel_Click();
        ResetDates();
    });
    connect(ui_->dgdDetails, &DataGrid::RowDoubleClicked, this,
            &frmMasStudentRelievingSearch::dgdDetails_DblClick);
}

frmMasStudentRelievingSearch::~frmMasStudentRelievingSearch() = default;

void frmMasStudentRelievingSearch::ResetDates()
{
    for (DateFilter* date : {admissionFrom_, admissionTo_, relievingFrom_, relievingTo_})
        date->Reset(Session().gdtmApplicationDate);
}

DateRange frmMasStudentRelievingSearch::AdmissionDates() const
{
    return RangeOf(admissionFrom_, admissionTo_, QStringLiteral("Admission"));
}

DateRange frmMasStudentRelievingSearch::RelievingDates() const
{
    return RangeOf(relievingFrom_, relievingTo_, QStringLiteral("Relieving"));
}

void frmMasStudentRelievingSearch::cmdSearch_Click()
{
    if (RefuseOrder(AdmissionDates()) || RefuseOrder(RelievingDates()) || RefuseHalf(AdmissionDates()) ||
        RefuseHalf(RelievingDates()))
        return;
    const RelievedFilter filter{
        .admissionNo = ui_->txtAdmissionNo->text().trimmed(),
        .studentName = ui_->txtstudentName->text().trimmed(),
        .admissionFrom = admissionFrom_->Date(),
        .admissionTo = admissionTo_->Date(),
        .relievingFrom = relievingFrom_->Date(),
        .relievingTo = relievingTo_->Date(),
    };
    const bool filtered = !filter.admissionNo.isEmpty() || !filter.studentName.isEmpty() ||
                          filter.admissionFrom.isValid() || filter.relievingFrom.isValid();
    if (WantsSearch(filtered, QStringLiteral("Do You Want To View All Relieved Student Details ?")))
        ShowFound([&] { return RelievingRepository(MainStore()).Search(filter); }, HiddenHeads);
}

void frmMasStudentRelievingSearch::dgdDetails_DblClick(int row)
{
    const int studentCode = ui_->dgdDetails->Code(row, CodeHead);
    if (studentCode <= 0)
        return;
    const auto promoted = Fetch([&] {
        return RelievingRepository(MainStore()).IsPromoted(studentCode, Session().gintAcademicYearCode);
    });
    if (!promoted)
        return;
    const QString question =
        *promoted ? QStringLiteral("Already Selected Student Promoted To Next Year.\n"
                                   "You Cannot Edit/Delete.\nDo You Want To View The Details ?")
                  : QStringLiteral("Do You Want To Edit/Delete ?");
    if (Prompts::Ask(question))
        HandOver<frmMasStudentRelievingMaster>(
            QStringLiteral("frmMasStudentRelievingMaster"),
            [&](frmMasStudentRelievingMaster& master) { return master.LoadEntry(studentCode, *promoted); });
}

} // namespace tally
