#include "utilities/frmUtilOptions.h"

#include "core/modTallyboard.h"
#include "core/OptionFlags.h"
#include "core/SessionContext.h"
#include "core/SessionRepository.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "store/StoreError.h"
#include "ui_frmUtilOptions.h"
#include "utilities/OptionsRepository.h"

#include <QSignalBlocker>
#include <QTabBar>

#include <algorithm>
#include <array>

namespace tally {

namespace {

constexpr int HelpScreenNo = 37;
/// In the order of the list "All", "Male", "Female".
constexpr std::array Genders{"A", "M", "F"};

int GenderIndex(const QString& gender)
{
    const auto* found = std::find(Genders.begin(), Genders.end(), gender);
    return found == Genders.end() ? -1 : static_cast<int>(found - Genders.begin());
}

} // namespace

frmUtilOptions::frmUtilOptions()
    : Screen(QStringLiteral("frmUtilOptions"), HelpScreenNo), ui_(std::make_unique<Ui::frmUtilOptions>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetExitButton(ui_->cmdExit);
    // A date counts when it is complete, not at each of its digits.
    ui_->DTPDateOfBirthSetting->setKeyboardTracking(false);
    // There is but one tab, so the keyboard has no use for it.
    ui_->SSTab1->setFocusPolicy(Qt::NoFocus);
    ui_->SSTab1->tabBar()->setFocusPolicy(Qt::NoFocus);

    Read([this] { LoadSettings(); });

    connect(ui_->chkFractionMarks, &QCheckBox::toggled, this, &frmUtilOptions::chkFractionMarks_Click);
    for (const QCheckBox* box :
         {ui_->chkPrompt, ui_->chkAutoGen, ui_->chkFractionMarks, ui_->chkRoundedMarks})
        connect(box, &QCheckBox::toggled, this, &frmUtilOptions::Changed);
    connect(ui_->cboGender, &QComboBox::currentIndexChanged, this, &frmUtilOptions::Changed);
    connect(ui_->DTPDateOfBirthSetting, &QDateEdit::dateChanged, this,
            &frmUtilOptions::DTPDateOfBirthSetting_Change);
    connect(ui_->DTPDateOfBirthSetting, &DatePicker::Typed, this, &frmUtilOptions::Changed);
    connect(ui_->lblDateOfBirthSetting, &DateLabel::Cleared, this,
            &frmUtilOptions::lblDateOfBirthSetting_Cleared);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmUtilOptions::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmUtilOptions::cmdCancel_Click);
}

frmUtilOptions::~frmUtilOptions() = default;

void frmUtilOptions::LoadSettings()
{
    SessionContext& session = Session();
    const auto stored = SessionRepository(MainStore()).Options();
    const StoredOptions options = stored.value_or(StoredOptions());
    const bool prompt = OptionsRepository::ExitPromptOf(TempStore(), session.gintUserCode);
    if (stored) {
        TakeOptionFlags(options);
        session.gstrDefaultGender = options.genderOption;
        session.gvarDefaultDOB = ShownDate(options.dateOfBirthSetting.value_or(QDate()));
    }

    ui_->chkPrompt->setChecked(prompt);
    ui_->chkAutoGen->setChecked(stored && session.gblnAutoGenerate);
    ui_->lblDateOfBirthSetting->SetDate(stored ? DateShown(session.gvarDefaultDOB) : QDate());
    ui_->cboGender->setCurrentIndex(GenderIndex(options.genderOption));
    ui_->chkFractionMarks->setChecked(stored && session.gblnFractionMarks);
    ui_->chkRoundedMarks->setChecked(stored && session.gblnRoundedMarks);
    chkFractionMarks_Click(ui_->chkFractionMarks->isChecked());
    ResetDatePicker();
    ui_->cmdSave->setEnabled(false);
}

void frmUtilOptions::ResetDatePicker()
{
    const QSignalBlocker quiet(ui_->DTPDateOfBirthSetting);
    if (Session().gdtmApplicationDate.isValid())
        ui_->DTPDateOfBirthSetting->setDate(Session().gdtmApplicationDate);
}

void frmUtilOptions::DTPDateOfBirthSetting_Change(const QDate& date)
{
    Changed();
    // Without a working date there is no date before it.
    if (!Session().gdtmApplicationDate.isValid() || date >= Session().gdtmApplicationDate)
        Refuse(QStringLiteral("Date Of Birth Should be Less than Application Date"),
               ui_->DTPDateOfBirthSetting);
    else
        ui_->lblDateOfBirthSetting->SetDate(date);
}

void frmUtilOptions::lblDateOfBirthSetting_Cleared()
{
    // From the working date on, the date just cleared is a change again.
    ResetDatePicker();
    Changed();
}

void frmUtilOptions::chkFractionMarks_Click(bool ticked)
{
    ui_->chkRoundedMarks->setEnabled(ticked);
    if (!ticked)
        ui_->chkRoundedMarks->setChecked(false);
}

void frmUtilOptions::cmdSave_Click()
{
    const OptionSettings settings = Settings();
    SessionContext& session = Session();
    try {
        store::Transaction main(MainStore());
        store::Transaction temp(TempStore());
        OptionsRepository::Replace(main, settings);
        OptionsRepository::ReplaceExitPrompt(temp, settings.exitPrompt, session.gintUserCode);
        // Should the school's row fail last, only the tick of this user's own box has changed.
        temp.Commit();
        main.Commit();
    } catch (const store::StoreError& error) {
        Prompts::Critical(error.Description());
        return;
    }
    session.gblnPromptOnExit = settings.exitPrompt;
    session.gblnAutoGenerate = settings.autoGenerate;
    session.gstrDefaultGender = settings.gender;
    session.gblnFractionMarks = settings.fractionMarks;
    session.gblnRoundedMarks = settings.roundedMarks;
    session.gvarDefaultDOB = ShownDate(settings.dateOfBirthLimit);
    Prompts::Information(QStringLiteral("Settings Saved"));
    ui_->cmdSave->setEnabled(false);
}

void frmUtilOptions::cmdCancel_Click()
{
    Read([this] { LoadSettings(); });
}

void frmUtilOptions::Changed()
{
    ui_->cmdSave->setEnabled(true);
}

OptionSettings frmUtilOptions::Settings() const
{
    const int gender = ui_->cboGender->currentIndex();
    return {
        .exitPrompt = ui_->chkPrompt->isChecked(),
        .autoGenerate = ui_->chkAutoGen->isChecked(),
        .dateOfBirthLimit = ui_->lblDateOfBirthSetting->Date(),
        .gender = gender < 0 ? QStringLiteral("")
                             : QString::fromLatin1(Genders.at(static_cast<std::size_t>(gender))),
        .fractionMarks = ui_->chkFractionMarks->isChecked(),
        .roundedMarks = ui_->chkRoundedMarks->isChecked(),
    };
}

} // namespace tally
