#include "core/modTallyboard.h"

#include "core/DatabasePassword.h"
#include "core/DayCopy.h"
#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "core/SessionRepository.h"
#include "core/StartPatience.h"
#include "store/Upgrade.h"

#include <QDate>
#include <QElapsedTimer>
#include <QLocale>

namespace tally {

namespace {

const QString DateFormat = QStringLiteral("dd/MMM/yyyy");

SessionRepository Repository()
{
    return SessionRepository(MainStore());
}

/// The refusal text of a guarded action; empty for the right that guards none.
QString RefusalText(Right right)
{
    switch (right) {
    case Right::New: return QStringLiteral("You Have No Privilege To Create New Entry");
    case Right::Edit: return QStringLiteral("You Have No Privilege To Modify This Entry");
    case Right::Delete: return QStringLiteral("You Have No Privilege To Delete");
    case Right::Print: return QStringLiteral("You Have No Privilege To Export This Report");
    case Right::Save: return QStringLiteral("You Have No Privilege To Change The Academic Year");
    case Right::Backup: return QStringLiteral("You Have No Privilege To Take Database Backup");
    case Right::Restore: return QStringLiteral("You Have No Privilege To Restore Database");
    case Right::Modify:
    case Right::Add: return QStringLiteral("You Have No Privilege To Modify Application Date");
    case Right::Change: return QStringLiteral("You Have No Privilege To Change");
    case Right::Open: break;
    }
    return {};
}

/// A client that restores or compacts holds the file for longer than any save does.
std::unique_ptr<store::Connection> OpenMain()
{
    QElapsedTimer waited;
    waited.start();
    for (;;) {
        try {
            auto main = std::make_unique<store::Connection>(MainFile(), DatabasePassword(Session()));
            DayCopy::NoteOpening();
            return main;
        } catch (const store::StoreError& error) {
            if (!error.IsLocked() || waited.hasExpired(StartPatience.count()))
                throw;
        }
    }
}

} // namespace

QString MainFile()
{
    return ProgramFile(QStringLiteral("Tallyboard.mdb"));
}

void OpenMainAgain()
{
    Session().gcnnMain = OpenMain();
}

void OpenConnections()
{
    SessionContext& session = Session();
    BuildDatabasePassword(session);
    const QString password = DatabasePassword(session);
    auto main = OpenMain();
    auto temp =
        std::make_unique<store::Connection>(ProgramFile(QStringLiteral("TempTallyboard.mdb")), password);
    temp->HoldsWorkingTables();
    main->SetPatience(StartPatience);
    store::Upgrade(*main, StartPatience);
    main->SetPatience(store::Connection::DefaultPatience);
    session.gcnnMain = std::move(main);
    session.gcnnTemp = std::move(temp);
}

void GetActiveAcademicYear()
{
    SessionContext& session = Session();
    const auto year = Repository().ActiveAcademicYear();
    session.gblnActiveYearExists = year.has_value();
    if (!year)
        return;
    session.gintAcademicYearCode = year->code;
    session.gintYearFrom = year->yearFrom;
    session.gintYearTo = year->yearTo;
    session.gdtmFromDate = year->fromDate;
    session.gdtmToDate = year->toDate;
}

void LoadActiveAcademicYear()
{
    GetActiveAcademicYear();
    if (Session().gblnActiveYearExists)
        Session().gblnApplicationDateExists = true;
}

void LoadApplicationDate(int yearCode)
{
    const auto last = Repository().LastApplicationDate(yearCode);
    Session().gblnApplicationDateExists = last.has_value();
    if (last)
        Session().gdtmApplicationDate = *last;
}

void LoadSchoolDetails()
{
    SessionContext& session = Session();
    const auto school = Repository().School();
    session.gblnSchoolExists = school.has_value();
    if (!school)
        return;
    session.gstrSchoolName = school->name;
    session.gstrSchoolAddress =
        school->address2 ? school->address1 + QLatin1Char(',') + *school->address2 : school->address1;
    session.gstrSchoolCity =
        school->city + QLatin1Char(',') + school->state + QLatin1String(" - ") + school->pinCode;
}

void LoadReportSchoolDetails()
{
    SessionContext& session = Session();
    const auto school = Repository().ReportSchool();
    if (!school)
        return;
    session.gstrReportSchoolName = school->name;
    session.gstrReportSchoolAddress =
        school->address1 + QLatin1Char(',') + school->address2.value_or(QString());
    session.gstrReportSchoolCity = school->city + QLatin1Char('-') + school->pinCode;
}

void LoadOptions()
{
    SessionContext& session = Session();
    const auto options = Repository().Options();
    if (!options) {
        session.gstrDefaultGender.clear();
        session.gvarDefaultDOB.clear();
        return;
    }
    session.gvarDefaultDOB = ShownDate(options->dateOfBirthSetting.value_or(QDate()));
    if (!options->genderOption.isEmpty())
        session.gstrDefaultGender = options->genderOption;
}

int GetNextCode(store::Transaction& saving, const QString& column, const QString& table, int year)
{
    return SessionRepository::HighestCode(saving, column, table, year) + 1;
}

bool CheckPrivilege(const QString& formName, Right right)
{
    SessionRepository repository = Repository();
    if (repository.IsNewInstallation() ||
        repository.HasPrivilege(formName, right, Session().gintPrivilegeUserCode))
        return true;
    const QString refusal = RefusalText(right);
    if (!refusal.isEmpty())
        Session().gstrPrivilegeMessage = refusal;
    return false;
}

QString ShownDate(const QDate& date)
{
    return date.isValid() ? QLocale::c().toString(date, DateFormat) : QString();
}

QDate DateShown(const QString& shown)
{
    return QLocale::c().toDate(shown, DateFormat);
}

} // namespace tally
