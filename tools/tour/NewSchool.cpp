#include "NewSchool.h"

#include "core/DatabasePassword.h"
#include "core/SessionContext.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/Screen.h"
#include "ExamSetup.h"
#include "ProgramSteps.h"
#include "StudentLife.h"
#include "tools/DeliveredDatabases.h"
#include "tools/SampleSchool.h"
#include "Tour.h"

#include <QTemporaryDir>

namespace tally {

namespace {

/// The password of all databases, without a session that is open.
QString Password()
{
    SessionContext session;
    BuildDatabasePassword(session);
    return DatabasePassword(session);
}

void Save(Tour& tour, const char* result)
{
    tour.Expect(QString::fromLatin1(result));
    tour.Press(Qt::Key_S, Qt::AltModifier);
}

/// Adds one entry of a small master screen that is open, and leaves it.
void AddEntry(Tour& tour, QWidget* window, const char* formName, const QString& name, const char* picture)
{
    tour.Type(name);
    Save(tour, "Record Saved");
    const QString form = QString::fromLatin1(formName);
    const QString caption = AwaitScreen(tour, form)->windowTitle();
    tour.Picture(QStringLiteral("%1: %2 saved").arg(caption, name), QString::fromLatin1(picture), window);
    LeaveScreen(tour, formName, caption);
}

void AddStateAndCity(Tour& tour, QWidget* window)
{
    tour.Press(Qt::Key_D, Qt::AltModifier);
    AwaitScreen(tour, QStringLiteral("frmMasStateMaster"));
    tour.Press(Qt::Key_N, Qt::AltModifier);
    AddEntry(tour, window, "frmMasStateMaster", QStringLiteral("Kerala"), "new-state.png");

    AwaitScreen(tour, QStringLiteral("frmMasSchoolSetup"));
    tour.Press(Qt::Key_Y, Qt::AltModifier);
    AwaitScreen(tour, QStringLiteral("frmMasCityMaster"));
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.ChooseNext();
    AddEntry(tour, window, "frmMasCityMaster", QStringLiteral("Kochi"), "new-city.png");
}

void EnterSchool(Tour& tour, QWidget* window)
{
    const QString form = QStringLiteral("frmMasSchoolSetup");
    const QString caption = AwaitScreen(tour, form)->windowTitle();
    tour.Picture(QStringLiteral("a new system asks for its school"), QStringLiteral("new-school.png"),
                 window);
    tour.Press(Qt::Key_N, Qt::AltModifier);
    AddStateAndCity(tour, window);

    AwaitScreen(tour, form);
    tour.Press(Qt::Key_M, Qt::AltModifier);
    for (const char* text : {"Hill View School", "1 Bell Road", ""})
        tour.Fill(QString::fromLatin1(text));
    tour.ChooseNext();
    tour.ChooseNext();
    tour.Fill(QStringLiteral("682001"));
    constexpr int June = 6;
    tour.ChooseNext(June);
    tour.Picture(QStringLiteral("the school is entered"), QStringLiteral("new-school-entered.png"), window);
    Save(tour, "Record Saved");
    tour.Picture(QStringLiteral("the school is saved"), QStringLiteral("new-school-saved.png"), window);
    LeaveScreen(tour, "frmMasSchoolSetup", caption);
}

void EnterAcademicYear(Tour& tour, QWidget* window)
{
    const QString caption = AwaitScreen(tour, QStringLiteral("frmMasAcademicYearSetup"))->windowTitle();
    tour.Picture(QStringLiteral("then it asks for the academic year"), QStringLiteral("new-year.png"),
                 window);
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.Fill(QStringLiteral("2025"));
    tour.ChooseNext();
    Save(tour, "Academic Year Saved");
    tour.Picture(QStringLiteral("the year is saved"), QStringLiteral("new-year-saved.png"), window);
    LeaveScreen(tour, "frmMasAcademicYearSetup", caption);
}

/// The people of the office by name, still without a login.
void EnterPeople(Tour& tour, QWidget* window)
{
    OpenScreen(tour, Qt::Key_U, "frmUtilUserMaster");
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.Type(QStringLiteral("Daniel Roy"));
    Save(tour, "Record Saved");
    tour.Press(Qt::Key_N, Qt::AltModifier);
    AddEntry(tour, window, "frmUtilUserMaster", QStringLiteral("Asha Menon"), "people.png");
}

/// Chooses the person in a new entry and types the login, up to the tree of rights.
void EnterLogin(Tour& tour, int person, const SampleAccount& account, const char* days)
{
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.ChooseNext(person);
    tour.Fill(QString::fromLatin1(account.loginId));
    tour.Fill(QString::fromLatin1(account.password));
    tour.Fill(QString::fromLatin1(account.password));
    // "YES" is the first entry, "NO" the second one.
    tour.ChooseNext(2);
    tour.Fill(QString::fromLatin1(days));
}

/// Ticks whole menus of the tree, from the first one on, and passes over what stands below them.
void TickMenus(Tour& tour, int menus)
{
    for (int menu = 0; menu < menus; ++menu) {
        tour.Press(Qt::Key_Space);
        tour.Press(Qt::Key_Left);
        tour.Press(Qt::Key_Down);
    }
}

/// The first login has all rights. With it the time is over in which everybody may do everything.
void MakeFirstLogin(Tour& tour, QWidget* window)
{
    const Screen* screen = OpenScreen(tour, Qt::Key_U, "frmUtilUserPrivileges");
    EnterLogin(tour, 1, SampleAccounts().at(0), "365");
    TickMenus(tour, 4);
    tour.Picture(QStringLiteral("the first login, with all rights"), QStringLiteral("privileges-entered.png"),
                 window);
    Save(tour, "Record Saved");
    tour.Picture(QStringLiteral("the first login is saved"), QStringLiteral("privileges-saved.png"), window);
    LeaveScreen(tour, "frmUtilUserPrivileges", screen->windowTitle());
}

/// Without any user yet, whatever is typed at the login opens the program.
void StartForTheFirstTime(Tour& tour, const QDir& folder)
{
    const ProgramRun run(tour, folder);
    run.LogIn({QStringLiteral("anybody"), QStringLiteral("anything"),
               QStringLiteral("first login, with any text"), QStringLiteral("first-login.png")});
    QWidget* window = ShowMainWindow(tour);
    EnterSchool(tour, window);
    EnterAcademicYear(tour, window);
    EnterPeople(tour, window);
    MakeFirstLogin(tour, window);
    CloseProgram(tour);
}

/// A second login: all masters and transactions, but neither reports nor utilities.
void MakeOfficeLogin(Tour& tour, QWidget* window)
{
    const Screen* screen = OpenScreen(tour, Qt::Key_U, "frmUtilUserPrivileges");
    EnterLogin(tour, 2, SampleAccounts().at(1), "30");
    TickMenus(tour, 2);
    Save(tour, "Record Saved");
    tour.Picture(QStringLiteral("the office has its login too"), QStringLiteral("office-login.png"), window);
    LeaveScreen(tour, "frmUtilUserPrivileges", screen->windowTitle());
}

void EnterClasses(Tour& tour, QWidget* window)
{
    const Screen* screen = OpenScreen(tour, Qt::Key_M, "frmMasClassSectionEntry");
    tour.Picture(QStringLiteral("a note about the order of the classes"), QStringLiteral("class-note.png"),
                 window);
    tour.Press(Qt::Key_Space);
    tour.Press(Qt::Key_N, Qt::AltModifier);
    for (const char* text : {"X", "2", "", "IX", "2"})
        tour.Fill(QString::fromLatin1(text));
    tour.Picture(QStringLiteral("two classes with two divisions each"), QStringLiteral("class-entered.png"),
                 window);
    Save(tour, "Record Saved");
    const auto* classes = screen->findChild<FlexGrid*>(QStringLiteral("msgClassDetails"));
    tour.Await(QStringLiteral("the saved classes"), [&] {
        return classes->TextMatrix(1, 1) == QLatin1String("X") &&
               classes->TextMatrix(1, 2) == QLatin1String("2") &&
               classes->TextMatrix(2, 1) == QLatin1String("IX");
    });
    tour.Picture(QStringLiteral("the classes are saved"), QStringLiteral("class-saved.png"), window);
    LeaveScreen(tour, "frmMasClassSectionEntry", screen->windowTitle());
}

void EnterTeacher(Tour& tour, QWidget* window)
{
    OpenScreen(tour, Qt::Key_M, "frmSalutationMaster");
    tour.Press(Qt::Key_N, Qt::AltModifier);
    AddEntry(tour, window, "frmSalutationMaster", QStringLiteral("Mrs"), "salutation.png");

    const Screen* screen = OpenScreen(tour, Qt::Key_M, "frmTeacherMaster");
    tour.Press(Qt::Key_N, Qt::AltModifier);
    tour.ChooseNext();
    tour.Fill(QStringLiteral("Asha Menon"));
    tour.Fill(QStringLiteral("ASH"));
    tour.TabTo(QStringLiteral("txtQualification"));
    tour.Fill(QStringLiteral("B.Ed"));
    tour.Picture(QStringLiteral("a teacher"), QStringLiteral("teacher-entered.png"), window);
    Save(tour, "Record Saved");
    tour.Picture(QStringLiteral("the teacher is saved"), QStringLiteral("teacher-saved.png"), window);
    LeaveScreen(tour, "frmTeacherMaster", screen->windowTitle());
}

void AddWorkingDay(Tour& tour, QWidget* window)
{
    const Screen* screen = OpenScreen(tour, Qt::Key_U, "frmUtilApplicationDateSetup");
    tour.TabTo(QStringLiteral("cmdAddOneDay"));
    tour.Expect(QStringLiteral("Do You Want To Add Application Date : 02/Jun/2025 ?"));
    tour.Expect(QStringLiteral("Application Date Added"));
    tour.Press(Qt::Key_Space);
    tour.Picture(QStringLiteral("a working day is added"), QStringLiteral("working-day.png"), window);
    LeaveScreen(tour, "frmUtilApplicationDateSetup", screen->windowTitle());
}

void FillMasters(Tour& tour, const QDir& folder)
{
    const SampleAccount account = SampleAccounts().constFirst();
    const ProgramRun run(tour, folder);
    run.LogIn({QString::fromLatin1(account.loginId), QString::fromLatin1(account.password),
               QStringLiteral("login of the new school's administrator"),
               QStringLiteral("second-login.png")});
    QWidget* window = ShowMainWindow(tour);
    MakeOfficeLogin(tour, window);
    EnterClasses(tour, window);
    EnterTeacher(tour, window);
    SetUpExams(tour, window);
    AddWorkingDay(tour, window);
    AdmitFirstStudents(tour, window);
    RankFirstExam(tour, window);
    GoOnToNextYear(tour, window);
    CloseProgram(tour);
}

} // namespace

void SetUpNewSchool(Tour& tour)
{
    const QTemporaryDir temporary;
    if (!temporary.isValid())
        throw TourError(QStringLiteral("no folder can be made for the new school"));
    const QDir folder(temporary.path());
    MakeDeliveredDatabases(folder.path(), Password());
    tour.Done(QStringLiteral("databases as they are delivered"));
    StartForTheFirstTime(tour, folder);
    FillMasters(tour, folder);
}

} // namespace tally
