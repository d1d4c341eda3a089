#include "students/frmMasStudentRelievingSearch.h"

#include "core/SessionContext.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "students/frmMasStudentRelievingMaster.h"
#include "students/RelievingRepository.h"
#include "ui_frmMasStudentRelievingSearch.h"

namespace tally {

namespace {

/// That of the form to which the row is handed.
constexpr int HelpScreenNo = 12;

const QString CodeHead = QStringLiteral("StudentCode");
const QStringList HiddenHeads{CodeHead, QStringLiteral("RelievingReason"),
                              QStringLiteral("AcademicYearCode")};

/// Two dates of one kind, whose texts name it.
DateRange RangeOf(DateFilter* from, DateFilter* to, const QString& kind)
{
    return {.from = from,
            .to = to,
            .toBeforeFrom = QStringLiteral("%1 'To Date' Should Be Greater Than %1 'From Date'").arg(kind),
            .fromMissing = QStringLiteral("Select %1 'From Date'").arg(kind),
            .toMissing = QStringLiteral("Select %1 'To Date'").arg(kind)};
}

} // namespace

frmMasStudentRelievingSearch::frmMasStudentRelievingSearch()
    : SearchScreen(QStringLiteral("frmMasStudentRelievingSearch"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasStudentRelievingSearch>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetSearchControls(ui_->cmdSearch, ui_->cmdExit, ui_->dgdDetails, ui_->txtAdmissionNo);
    TakeOnly(ui_->txtAdmissionNo, &KeyAlphaNumeric, 15);
    TakeOnly(ui_->txtstudentName, &KeyAlphaNumeric, 100);
    admitted_ =
        RangeOf(new DateFilter(ui_->dtpAdmissionFrom, ui_->lblAdmissionFrom),
                new DateFilter(ui_->dtpAdmissionTo, ui_->lblAdmissionTo), QStringLiteral("Admission"));
    relieved_ = RangeOf(new DateFilter(ui_->dtpRelievingDateFrom, ui_->lblRelievingDateFrom),
                        new DateFilter(ui_->dtpRelievingDateTo, ui_->lblRelievingDateTo),
                        QStringLiteral("Relieving"));
    ResetDates();
    for (const DateRange* range : {&admitted_, &relieved_})
        connect(range->to, &DateFilter::Chosen, this, [range] { static_cast<void>(RefuseOrder(*range)); });
    connect(ui_->cmdSearch, &QPushButton::clicked, this, &frmMasStudentRelievingSearch::cmdSearch_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmMasStudentRelievingSearch::cmdCancel_Click);
    connect(ui_->dgdDetails, &DataGrid::RowDoubleClicked, this,
            &frmMasStudentRelievingSearch::dgdDetails_DblClick);
}

frmMasStudentRelievingSearch::~frmMasStudentRelievingSearch() = default;

void frmMasStudentRelievingSearch::ResetDates()
{
    for (DateFilter* date : {admitted_.from, admitted_.to, relieved_.from, relieved_.to})
        date->Reset(Session().gdtmApplicationDate);
}

void frmMasStudentRelievingSearch::cmdCancel_Click()
{
    SearchScreen::cmdCancel_Click();
    ResetDates();
}

void frmMasStudentRelievingSearch::cmdSearch_Click()
{
    if (RefuseOrder(admitted_) || RefuseOrder(relieved_) || RefuseHalf(admitted_) || RefuseHalf(relieved_))
        return;
    const RelievedFilter filter{
        .admissionNo = ui_->txtAdmissionNo->text().trimmed(),
        .studentName = ui_->txtstudentName->text().trimmed(),
        .admissionFrom = admitted_.from->Date(),
        .admissionTo = admitted_.to->Date(),
        .relievingFrom = relieved_.from->Date(),
        .relievingTo = relieved_.to->Date(),
    };
    const bool filtered = !filter.admissionNo.isEmpty() || !filter.studentName.isEmpty() ||
                          filter.admissionFrom.isValid() || filter.relievingFrom.isValid();
    if (WantsSearch(filtered, QStringLiteral("Do You Want To View All Relieved Student Details ?")))
        ShowFound([&] { return RelievingRepository(MainStore()).Search(filter); }, HiddenHeads);
}

void frmMasStudentRelievingSearch::dgdDetails_DblClick(int row)
{
    const int studentCode = ui_->dgdDetails->Code(row, CodeHead);
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
