#include "app/Screens.h"

#include "calendar/frmMasAcademicYearChange.h"
#include "calendar/frmMasAcademicYearSetup.h"
#include "calendar/frmUtilApplicationDateChange.h"
#include "calendar/frmUtilApplicationDateSetup.h"
#include "core/shell/AboutUs.h"
#include "core/shell/frmStartLock.h"
#include "core/shell/mdiTallyboard.h"
#include "core/shell/MenuCommands.h"
#include "core/ui/ScreenRegistry.h"
#include "exams/frmClassRankSetup.h"
#include "exams/frmClassRankTransferSetup.h"
#include "exams/frmClassSubjectTeacher.h"
#include "exams/frmClassSubjectTeacherTransfer.h"
#include "exams/frmexammarkentry.h"
#include "masters/frmMasClassSectionEntry.h"
#include "masters/frmMasSchoolSetup.h"
#include "masters/frmSimpleMaster.h"
#include "masters/frmTeacherMaster.h"
#include "masters/frmTeacherSearch.h"
#include "ranks/frmRankCalculation.h"
#include "ranks/frmRankCardPrinting.h"
#include "reports/frmclassdivisionsubjectavg.h"
#include "reports/frmExamComparison.h"
#include "reports/frmrptClassList.h"
#include "reports/frmrptClasssubjectteacher.h"
#include "reports/frmStudentExamAvgChart.h"
#include "reports/frmStudentList.h"
#include "reports/frmstudentslist.h"
#include "reports/frmstudentyearlyexamavg.h"
#include "students/frmMasOptionalAdmissionNoChange.h"
#include "students/frmMasStudentAdmissionEntry.h"
#include "students/frmMasStudentAdmissionSearch.h"
#include "students/frmMasStudentMaster.h"
#include "students/frmMasStudentMasterSearch.h"
#include "students/frmMasStudentRelievingMaster.h"
#include "students/frmMasStudentRelievingSearch.h"
#include "students/frmPromotionEntry.h"
#include "utilities/CompactDatabase.h"
#include "utilities/frmHelp.h"
#include "utilities/frmUtilBackupRestore.h"
#include "utilities/frmUtilOptions.h"
#include "utilities/frmUtilUserPrivileges.h"

#include <QDir>

#include <utility>

// The resources of a static library are linked only where they are asked for, and by a name outside all
// namespaces.
static void InitResources()
{
    Q_INIT_RESOURCE(tallyboard);
}

namespace tally {

namespace {

void Enter(const char* formName, ScreenRegistry::Factory factory)
{
    if (!ScreenRegistry::Register(QString::fromLatin1(formName), std::move(factory)))
        qFatal("The screen %s is entered twice", formName);
}

template <typename Form>
void Register(const char* formName)
{
    Enter(formName, [] { return new Form; });
}

/// Screens that are one class and a table of definitions.
template <typename Form, typename Definitions>
void RegisterEach(const Definitions& definitions)
{
    for (const auto& definition : definitions)
        Enter(definition.formName, [&definition] { return new Form(definition); });
}

} // namespace

void RegisterScreens()
{
    InitResources();
    Register<AboutUs>("AboutUs");
    Register<frmClassRankSetup>("frmClassRankSetup");
    Register<frmClassRankTransferSetup>("frmClassRankTransferSetup");
    Register<frmClassSubjectTeacher>("frmClassSubjectTeacher");
    Register<frmClassSubjectTeacherTransfer>("frmClassSubjectTeacherTransfer");
    Register<frmexammarkentry>("frmexammarkentry");
    Register<frmHelp>("frmHelp");
    Register<frmMasAcademicYearChange>("frmMasAcademicYearChange");
    Register<frmMasAcademicYearSetup>("frmMasAcademicYearSetup");
    Register<frmUtilApplicationDateChange>("frmUtilApplicationDateChange");
    Register<frmUtilApplicationDateSetup>("frmUtilApplicationDateSetup");
    RegisterEach<frmSimpleMaster>(SimpleMasterDefinitions());
    Register<frmMasClassSectionEntry>("frmMasClassSectionEntry");
    Register<frmMasOptionalAdmissionNoChange>("frmMasOptionalAdmissionNoChange");
    Register<frmMasSchoolSetup>("frmMasSchoolSetup");
    Register<frmMasStudentAdmissionEntry>("frmMasStudentAdmissionEntry");
    Register<frmMasStudentAdmissionSearch>("frmMasStudentAdmissionSearch");
    Register<frmMasStudentMaster>("frmMasStudentMaster");
    Register<frmMasStudentMasterSearch>("frmMasStudentMasterSearch");
    Register<frmMasStudentRelievingMaster>("frmMasStudentRelievingMaster");
    Register<frmMasStudentRelievingSearch>("frmMasStudentRelievingSearch");
    Register<frmPromotionEntry>("frmPromotionEntry");
    Register<frmRankCalculation>("frmRankCalculation");
    Register<frmRankCardPrinting>("frmRankCardPrinting");
    RegisterEach<frmstudentslist>(StudentsListDefinitions());
    RegisterEach<frmExamComparison>(ExamComparisons());
    Register<frmclassdivisionsubjectavg>("frmclassdivisionsubjectavg");
    Register<frmrptClassList>("frmrptClassList");
    Register<frmrptClasssubjectteacher>("frmrptClasssubjectteacher");
    Register<frmStudentExamAvgChart>("frmStudentExamAvgChart");
    Register<frmStudentList>("frmStudentList");
    Register<frmstudentyearlyexamavg>("frmstudentyearlyexamavg");
    Register<frmTeacherMaster>("frmTeacherMaster");
    Register<frmTeacherSearch>("frmTeacherSearch");
    Register<frmUtilBackupRestore>("frmUtilBackupRestore");
    Register<frmUtilOptions>("frmUtilOptions");
    Register<frmUtilUserPrivileges>("frmUtilUserPrivileges");
    RegisterCommands();
}

void RegisterCommands()
{
    MenuCommands::Register(QStringLiteral("frmCompactDatabase"), &CompactDatabase);
    // The menus in which these stand are the window's own.
    MenuCommands::Register(QStringLiteral("Lock"), [] { frmStartLock::Lock(mdiTallyboard::Instance()); });
    MenuCommands::Register(QStringLiteral("Close"), [] { mdiTallyboard::Instance()->mnuClose_Click(); });
}

} // namespace tally
