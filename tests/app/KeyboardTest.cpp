// Where Tab and the letters of each window lead. A clerk's fingers know these ways, so none changes by
// chance.

#include "WindowsFixture.h"

#include <QAbstractButton>
#include <QLabel>

#include <algorithm>
#include <iterator>

namespace tally::test {
namespace {

struct Ways
{
    const char* window;
    const char* tab;     ///< the controls at which Tab stops while they are on, in its order
    const char* letters; ///< each letter with its control
    const char* chosen;  ///< the options and boxes that are on when the window opens
};

constexpr Ways Known[] = {
    {"AboutUs", "cmdClose", "C:cmdClose", ""},
    {"frmClassRankSetup",
     "dbcExam cboClass cboDivision msgDetails Txttotalaverage txtsubjectaverage Txtgrade txtDeleteSlNo "
     "cmdDeleteRow cmdNew cmdEdit cmdDelete cmdSave cmdCancel cmdExit",
     "Alt+Shift+C:cmdAddClass Alt+Shift+E:cmdAddExam C:cmdCancel D:cmdDelete E:cmdEdit L:cboClass M:dbcExam "
     "N:cmdNew O:txtDeleteSlNo R:cmdDeleteRow S:cmdSave V:cboDivision X:cmdExit",
     ""},
    {"frmClassRankTransferSetup",
     "cboFromAcademicyear dbcExamFrom cboFromClass cboFromDivision cboToAcademicYear dbcExamTo cboToClass "
     "chkSelectAll lstDivision cmdTransfer msgFromDetails msgToDetails cmdNew cmdSave cmdCancel cmdExit",
     "A:cboToClass Alt+Shift+C:cmdAddClass Alt+Shift+E:cmdAddExam C:cmdCancel D:cboFromDivision E:dbcExamTo "
     "I:lstDivision L:cboFromClass M:dbcExamFrom N:cmdNew O:cmdTransfer R:cboToAcademicYear S:cmdSave "
     "X:cmdExit Y:cboFromAcademicyear",
     ""},
    {"frmClassSubjectTeacher",
     "cboClass cboDivision msgDetails dbcSubject dbcTeacher txtmaximummark TxtMaximumAllowed cboRankYesNo "
     "txtOrder txtDeleteSlNo cmdDeleteRow cmdNew cmdEdit cmdDelete cmdSave cmdCancel cmdExit",
     "Alt+Shift+C:cmdAddClass Alt+Shift+S:cmdAddSubject Alt+Shift+T:cmdAddTeacher C:cmdCancel D:cmdDelete "
     "E:cmdEdit L:cboClass N:cmdNew O:txtDeleteSlNo R:cmdDeleteRow S:cmdSave V:cboDivision X:cmdExit",
     ""},
    {"frmClassSubjectTeacherTransfer",
     "cboFromAcademicyear cboClassFrom cboDivision cboAcademicYearTo cboClassTo cboDivisionTo cmdTransfer "
     "msgDetails msgToDetails cmdNew cmdSave cmdCancel cmdExit",
     "A:cboClassTo C:cmdCancel D:cboDivision I:cboDivisionTo L:cboClassFrom N:cmdNew O:cmdTransfer "
     "R:cboAcademicYearTo S:cmdSave X:cmdExit Y:cboFromAcademicyear",
     ""},
    {"frmHelp", "tvwDisplay cmdExit", "X:cmdExit", ""},
    {"frmMasAcademicYearChange", "txtAcademicYearFrom cmdSave cmdCancel cmdExit",
     "C:cmdCancel F:txtAcademicYearFrom S:cmdSave X:cmdExit", ""},
    {"frmMasAcademicYearSetup",
     "dgdDetails txtAcademicYearFrom cbostatus cmdOpenSchoolSetup cmdNew cmdEdit cmdDelete cmdSave cmdCancel "
     "cmdExit",
     "A:cmdOpenSchoolSetup C:cmdCancel D:cmdDelete E:cmdEdit F:txtAcademicYearFrom N:cmdNew S:cmdSave "
     "V:cbostatus X:cmdExit",
     ""},
    {"frmMasBloodGroupMaster",
     "txtSearchBloodGroupName dgdDetails txtBloodGroupName cmdNew cmdEdit cmdDelete cmdSave cmdCancel "
     "cmdExit",
     "B:txtSearchBloodGroupName C:cmdCancel D:cmdDelete E:cmdEdit G:txtBloodGroupName N:cmdNew S:cmdSave "
     "X:cmdExit",
     ""},
    {"frmMasCityMaster",
     "txtSearchCityName dgdDetails dbcStateName txtCityName cmdNew cmdEdit cmdDelete cmdSave cmdCancel "
     "cmdExit",
     "A:cmdAddStateName C:cmdCancel D:cmdDelete E:cmdEdit I:txtCityName M:dbcStateName N:cmdNew S:cmdSave "
     "T:txtSearchCityName X:cmdExit",
     ""},
    {"frmMasClassSectionEntry",
     "cmdClose msgClassDetails txtClassName txtNoOfDivisions txtClassOrder msgDivisionDetails "
     "txtDivisionName txtDeleteSlNo cmdDeleteRow cmdNew cmdEdit cmdSave cmdCancel cmdExit",
     "C:cmdCancel D:cmdDeleteRow E:cmdEdit L:cmdClose N:cmdNew O:txtDeleteSlNo S:cmdSave X:cmdExit", ""},
    {"frmMasOptionalAdmissionNoChange",
     "dbcClass dbcDivision msgDetails txtOptionalAdmissionNo cmdEdit cmdSave cmdCancel cmdExit",
     "C:cmdCancel D:dbcDivision E:cmdEdit L:dbcClass S:cmdSave X:cmdExit", ""},
    {"frmMasSchoolSetup",
     "txtSchoolName txtAddress1 txtAddress2 dbcStateName dbcCity txtPincode cboAcademicYearCodeStartMonth "
     "cmdNew cmdEdit cmdSave cmdCancel cmdExit",
     "A:txtAddress1 C:cmdCancel D:cmdAddStateName E:cmdEdit H:cboAcademicYearCodeStartMonth I:dbcCity "
     "M:txtSchoolName N:cmdNew P:txtPincode R:txtAddress2 S:cmdSave T:dbcStateName X:cmdExit Y:cmdAddCity",
     ""},
    {"frmMasStateMaster",
     "txtSearchStateName dgdDetails txtStateName cmdNew cmdEdit cmdDelete cmdSave cmdCancel cmdExit",
     "C:cmdCancel D:cmdDelete E:cmdEdit M:txtStateName N:cmdNew S:cmdSave T:txtSearchStateName X:cmdExit",
     ""},
    {"frmMasStudentAdmissionEntry",
     "dbcAdmissionNo dbcClass dbcDivision cmdNew cmdEdit cmdDelete cmdSave cmdCancel cmdSearch cmdExit",
     "A:dbcAdmissionNo Alt+Shift+C:cmdAddClass C:cmdCancel D:cmdDelete E:cmdEdit L:dbcClass N:cmdNew "
     "R:cmdSearch S:cmdSave V:dbcDivision X:cmdExit",
     ""},
    {"frmMasStudentAdmissionSearch",
     "txtAdmissionNo txtSearchStudentName dbcClass dbcDivision cmdSearch cmdCancel dgdDetails cmdExit",
     "A:txtAdmissionNo C:cmdCancel L:dbcClass N:txtSearchStudentName S:cmdSearch V:dbcDivision X:cmdExit",
     ""},
    {"frmMasStudentMaster",
     "txtAdmissionNumber txtOptionalAdmissionNo dtpAdmissiondate txtstudentName txtFGName cboSex dtpDOB "
     "dbcBloodGroup txtTelephone txtEmail txtAddress1 txtAddress2 dbcStateName dbcCity txtPincode cmdNew "
     "cmdEdit cmdDelete cmdSave cmdCancel cmdSearch cmdExit",
     "1:txtAddress1 2:txtAddress2 A:dtpAdmissiondate Alt+Shift+B:cmdAddBloodGroup Alt+Shift+C:cmdAddCity "
     "Alt+Shift+S:cmdAddStateName B:dtpDOB C:cmdCancel D:cmdDelete E:cmdEdit F:txtFGName G:cboSex "
     "H:txtTelephone I:txtPincode L:txtEmail M:txtstudentName N:cmdNew O:txtAdmissionNumber "
     "P:txtOptionalAdmissionNo R:cmdSearch S:cmdSave T:dbcStateName U:dbcBloodGroup X:cmdExit Y:dbcCity",
     ""},
    {"frmMasStudentMasterSearch",
     "txtAdmissionNo txtstudentName dbcStateName dbcCityName dtpAdmissionFrom lblAdmissionFrom "
     "dtpAdmissionTo lblAdmissionTo cmdSearch cmdCancel dgdDetails cmdExit",
     "A:txtAdmissionNo C:cmdCancel F:dtpAdmissionFrom N:txtstudentName O:dtpAdmissionTo S:cmdSearch "
     "T:dbcStateName X:cmdExit Y:dbcCityName",
     ""},
    {"frmMasStudentRelievingMaster",
     "txtOptionalAdmissionNo dtpRelievingDate txtRelievingReason txtTCNo dtpTCDate cmdNew cmdEdit cmdDelete "
     "cmdSave cmdCancel cmdSearch cmdExit",
     "A:txtOptionalAdmissionNo Alt+Shift+A:cmdSearchAdmissionNo C:cmdCancel D:cmdDelete E:cmdEdit "
     "L:dtpRelievingDate N:cmdNew O:txtTCNo R:cmdSearch S:cmdSave T:dtpTCDate V:txtRelievingReason "
     "X:cmdExit",
     ""},
    {"frmMasStudentRelievingSearch",
     "txtAdmissionNo txtstudentName dtpAdmissionFrom lblAdmissionFrom dtpAdmissionTo lblAdmissionTo "
     "dtpRelievingDateFrom lblRelievingDateFrom dtpRelievingDateTo lblRelievingDateTo cmdSearch cmdCancel "
     "dgdDetails cmdExit",
     "A:txtAdmissionNo C:cmdCancel F:dtpAdmissionFrom N:txtstudentName O:dtpRelievingDateTo "
     "R:dtpRelievingDateFrom S:cmdSearch T:dtpAdmissionTo X:cmdExit",
     ""},
    {"frmPromotionEntry",
     "optpromote optnotpromote cbofromClass cbofromDivision chkSelectAllFrom lstfromlist cmdMoveFromToTo "
     "cbotoclass Cbotodivision chkSelectAllTo lsttolist cmdMoveToToFrom cmdNew cmdSave cmdCancel cmdExit",
     "A:cbotoclass Alt+Left:cmdMoveToToFrom Alt+Right:cmdMoveFromToTo C:cmdCancel D:cbofromDivision "
     "I:Cbotodivision L:cbofromClass N:cmdNew P:optpromote R:optnotpromote S:cmdSave T:lstfromlist "
     "U:lsttolist X:cmdExit",
     "optpromote"},
    {"frmRankCalculation",
     "Cboexamname cboClass chkRankSkipping Optsubjectdisplayno Optsubjectdisplayyes chkSelectAll Lstdivision "
     "cmdUpdate msgDisplayDetails optRankOrder optGradeOrder optAdmissionNoOrder optAlphabeticalOrder "
     "cmdView cmdPrintSetup cmdSave cmdExport cmdTotalDetails cmdCancel cmdExit msgGrade cmdClose",
     "C:cmdCancel D:Lstdivision E:cmdExport K:cmdUpdate L:cboClass N:Cboexamname S:cmdSave X:cmdExit",
     "Optsubjectdisplayno optRankOrder"},
    {"frmRankCardPrinting",
     "chkSelectExamName Lstexamnames cboClass cboDivision chkSelectStudents LstStudents Optsubjectdisplayno "
     "Optsubjectdisplayyes cmdView msgDetails cmdExport cmdCancel cmdExit txtmarkobtained cmdPrint",
     "C:cmdCancel D:cboDivision E:cmdExport K:cmdView L:cboClass N:Lstexamnames P:cmdPrint S:LstStudents "
     "X:cmdExit",
     "Optsubjectdisplayno"},
    {"frmSalutationMaster",
     "txtSearchSalutationName dgdDetails txtSalutationName cmdNew cmdEdit cmdDelete cmdSave cmdCancel "
     "cmdExit",
     "C:cmdCancel D:cmdDelete E:cmdEdit M:txtSalutationName N:cmdNew S:cmdSave T:txtSearchSalutationName "
     "X:cmdExit",
     ""},
    {"frmStudentExamAvgChart", "mscChart cmdPrint cmdClose", "", ""},
    {"frmStudentList",
     "cboClass optAdmissionOrder optAlphabeticalOrder chkSelectAll Lstdivision txtNoOfColumn cmdView "
     "msgDetails txtColumnNumber txtColumnName cmdAddColumnName cmdPrint cmdCancel cmdExit",
     "A:cmdAddColumnName C:cmdCancel D:Lstdivision L:cboClass M:txtColumnName N:txtNoOfColumn P:cmdPrint "
     "U:txtColumnNumber V:cmdView X:cmdExit",
     "optAlphabeticalOrder"},
    {"frmrptClassList",
     "cboClass optAdmissionOrder optAlphabeticalOrder chkSelectAll Lstdivision cmdView msgDetails cmdExport "
     "cmdCancel cmdExit",
     "C:cmdCancel D:Lstdivision E:cmdExport L:cboClass V:cmdView X:cmdExit", "optAlphabeticalOrder"},
    {"frmrptClasssubjectteacher",
     "optAllClass dbcClass optAllDivision optSpecificDivision dbcDivision cmdView msgDetails "
     "cmdExport cmdCancel cmdExit",
     "C:cmdCancel E:cmdExport V:cmdView X:cmdExit", "optAllClass optAllDivision"},
    {"frmSubjectMaster",
     "txtSubjectNameSearch dgdDetails txtSubjectName txtSubjectShort cmdNew cmdEdit cmdDelete cmdSave "
     "cmdCancel cmdExit",
     "C:cmdCancel D:cmdDelete E:cmdEdit H:txtSubjectShort M:txtSubjectName N:cmdNew S:cmdSave "
     "T:txtSubjectNameSearch X:cmdExit",
     ""},
    {"frmTeacherMaster",
     "cboPrefix txtTeacherName txtTeacherShortName txtFHName dtpDOB optMarried optSingle dtpWedding "
     "dtpJoining txtQualification dbcBloodGroup txtAddress1 txtAddress2 dbcStateName dbcCityName txtPincode "
     "txtTelephone cmdNew cmdEdit cmdDelete cmdSave cmdCancel cmdSearch cmdExit",
     "1:txtAddress1 2:txtAddress2 A:txtTeacherName Alt+Shift+B:cmdAddBloodGroup Alt+Shift+C:cmdAddCity "
     "Alt+Shift+S:cmdAddStateName B:dtpDOB C:cmdCancel D:cmdDelete E:cmdEdit F:txtFHName G:dbcBloodGroup "
     "H:txtTeacherShortName I:optMarried J:dtpJoining L:txtTelephone N:cmdNew P:txtPincode "
     "Q:txtQualification R:cmdSearch S:cmdSave T:dbcStateName U:cboPrefix W:dtpWedding X:cmdExit "
     "Y:dbcCityName",
     "optSingle"},
    {"frmTeacherSearch", "txtTeacherName txtCity cmdSearch cmdCancel dgdDetails cmdExit",
     "C:cmdCancel S:cmdSearch T:txtTeacherName X:cmdExit Y:txtCity", ""},
    {"frmUtilApplicationDateChange", "dtpApplicationDate cmdSave cmdCancel cmdExit",
     "A:dtpApplicationDate C:cmdCancel S:cmdSave X:cmdExit", ""},
    {"frmUtilApplicationDateSetup", "cmdAddOneDay cmdDeleteLastDay cmdExit", "X:cmdExit", ""},
    {"frmUtilBackupRestore",
     "optBackUp txtSourcePath cmdSourcePath txtDestinationPath cmdDestPath cmdBackup cmdCancel cmdExit "
     "cmdDetails msgDetails",
     "B:optBackUp C:cmdCancel D:txtDestinationPath E:cmdDestPath L:cmdDetails R:optRecovery S:txtSourcePath "
     "U:cmdBackup W:cmdSourcePath X:cmdExit",
     "optBackUp"},
    {"frmUtilOptions",
     "chkPrompt chkAutoGen DTPDateOfBirthSetting lblDateOfBirthSetting cboGender chkFractionMarks "
     "chkRoundedMarks cmdSave cmdCancel cmdExit",
     "C:cmdCancel S:cmdSave X:cmdExit", ""},
    {"frmUtilUserMaster",
     "txtSearchUserName dgdDetails txtName cmdNew cmdEdit cmdDelete cmdSave cmdCancel cmdExit",
     "C:cmdCancel D:cmdDelete E:cmdEdit M:txtName N:cmdNew S:cmdSave U:txtSearchUserName X:cmdExit", ""},
    {"frmdivisionsubjectexamavg",
     "chkSelectExamName Lstexamnames cboClass cboDivision cbostudent Optsubjectdisplayno "
     "Optsubjectdisplayyes chkSelectSubjects Lstsubjects cmdView msgDetails optBarGrph optLineGrph cmdChart "
     "cmdPrint cmdExport cmdCancel cmdExit",
     "C:cmdCancel D:cboDivision E:cmdExport H:cmdChart K:cmdView L:cboClass N:Lstexamnames P:cmdPrint "
     "S:cbostudent U:Lstsubjects X:cmdExit",
     "Optsubjectdisplayno optBarGrph"},
    {"frmclassdivisionsubjectavg",
     "Cboexamname cboClass Optsubjectdisplayno Optsubjectdisplayyes ChkSelectDivision Lstdivision "
     "chkSelectSubjects Lstsubjects cmdView msgDetails cmdChart optBarGrph optLineGrph cmdExport cmdPrint "
     "cmdCancel cmdExit",
     "C:cmdCancel D:Lstdivision E:cmdExport H:cmdChart K:cmdView L:cboClass N:Cboexamname P:cmdPrint "
     "S:Lstsubjects X:cmdExit",
     "Optsubjectdisplayno optBarGrph"},
    {"frmUtilUserPrivileges",
     "dbcUserName txtLoginID txtPassword txtRePassword cboBlocked txtDays tvwDisplay cmdNew cmdEdit cmdSave "
     "cmdCancel cmdExit dbcFromUser dbcToUser cmdTransfer",
     "Alt+Shift+U:cmdAddUserName B:cboBlocked C:cmdCancel E:cmdEdit F:dbcFromUser G:tvwDisplay L:txtLoginID "
     "N:cmdNew O:cmdTransfer P:txtPassword R:txtRePassword S:cmdSave T:dbcToUser U:dbcUserName X:cmdExit "
     "Y:txtDays",
     ""},
    {"frmexammarkentry",
     "dbcExam cboClass cboDivision Optsubject Optstudent dbcSubject dbcStudent msgDetails txtmarkobtained "
     "cboPresentAbsent txtpresentorabsent cmdNew cmdEdit cmdDelete cmdSave cmdCancel cmdExit",
     "Alt+Shift+E:cmdAddExam C:cmdCancel D:cmdDelete E:cmdEdit L:cboClass M:dbcExam N:cmdNew S:cmdSave "
     "V:cboDivision X:cmdExit",
     "Optsubject"},
    {"frmexamnamemaster",
     "txtExamNameSearch dgdDetails txtExamName txtExamOrder cmdNew cmdEdit cmdDelete cmdSave cmdCancel "
     "cmdExit",
     "A:txtExamNameSearch C:cmdCancel D:cmdDelete E:cmdEdit M:txtExamName N:cmdNew R:txtExamOrder S:cmdSave "
     "X:cmdExit",
     ""},
    {"frmstudentexamavg",
     "chkSelectExamName Lstexamnames cboClass cboDivision cbostudent Optsubjectdisplayno "
     "Optsubjectdisplayyes chkSelectSubjects Lstsubjects cmdView msgDetails optBarGrph optLineGrph cmdChart "
     "cmdPrint cmdExport cmdCancel cmdExit",
     "C:cmdCancel D:cboDivision E:cmdExport H:cmdChart K:cmdView L:cboClass N:Lstexamnames P:cmdPrint "
     "S:cbostudent U:Lstsubjects X:cmdExit",
     "Optsubjectdisplayno optBarGrph"},
    {"frmstudentyearlyexamavg",
     "cboClass cboDivision cbostudent chkSelectYear Lstacademicyear Cboexamname chkSelectSubjects "
     "Lstsubjects cmdView msgDetails optBarGrph optLineGrph cmdChart cmdPrint cmdExport cmdCancel cmdExit",
     "A:Lstacademicyear C:cmdCancel D:cboDivision E:cmdExport H:cmdChart K:cmdView L:cboClass N:Cboexamname "
     "P:cmdPrint S:cbostudent U:Lstsubjects X:cmdExit",
     "optBarGrph"},
    {"frmstudentslistabove",
     "Cboexamname cboClass Optsubjectdisplayno Optsubjectdisplayyes chkSelectAllDivision Lstdivision "
     "chkSelectAll Lstsubjects optClassAverage optGivenValue Txtgivenvalue optAll optAnyOne cboReportType "
     "cmdView msgDetails msgSummary cmdExport cmdPrint cmdCancel cmdExit",
     "C:cmdCancel D:Lstdivision E:cmdExport K:cmdView L:cboClass N:Cboexamname P:cmdPrint S:Lstsubjects "
     "T:cboReportType X:cmdExit",
     "Optsubjectdisplayno optAll optClassAverage"},
    {"frmstudentslistbelow",
     "Cboexamname cboClass Optsubjectdisplayno Optsubjectdisplayyes chkSelectAllDivision Lstdivision "
     "chkSelectAll Lstsubjects optClassAverage optGivenValue Txtgivenvalue optAll optAnyOne cboReportType "
     "cmdView msgDetails msgSummary cmdExport cmdPrint cmdCancel cmdExit",
     "C:cmdCancel D:Lstdivision E:cmdExport K:cmdView L:cboClass N:Cboexamname P:cmdPrint S:Lstsubjects "
     "T:cboReportType X:cmdExit",
     "Optsubjectdisplayno optAll optClassAverage"},
    {"frmStartLock", "", "", ""},
    {"frmStartLogin", "txtLoginID txtPassword ImgOK ImgCancel cmdExit",
     "L:txtLoginID P:txtPassword X:cmdExit", ""},
    {"frmStartUnlock", "txtLoginID txtPassword cmdOK cmdCancel",
     "C:cmdCancel L:txtLoginID O:cmdOK P:txtPassword", ""},
};

QString NameOf(const QWidget* control)
{
    const QString name = control->objectName();
    return name.isEmpty() ? NameOf(control->parentWidget()) : name;
}

QString TabOf(const QWidget& window)
{
    QStringList names;
    const QWidget* control = window.nextInFocusChain();
    for (; control != &window; control = control->nextInFocusChain())
        if (window.isAncestorOf(control) && (control->focusPolicy() & Qt::TabFocus) != 0 &&
            !control->focusProxy() && !control->parentWidget()->inherits("QTabBar") &&
            !names.contains(NameOf(control)))
            names.append(NameOf(control));
    return names.join(QLatin1Char(' '));
}

QString LettersOf(const QWidget& window)
{
    QStringList letters;
    const auto add = [&letters](const QString& text, const QWidget* control) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (!letter.isEmpty())
            letters.append(letter.back() + QLatin1Char(':') + NameOf(control));
    };
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->buddy())
            add(label->text(), label->buddy());
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        add(button->text(), button);
        const QKeySequence shortcut = button->shortcut();
        if (!shortcut.isEmpty() && shortcut != QKeySequence::mnemonic(button->text()))
            letters.append(shortcut.toString() + QLatin1Char(':') + NameOf(button));
    }
    letters.sort();
    return letters.join(QLatin1Char(' '));
}

QString ChosenOf(const QWidget& window)
{
    QStringList names;
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (button->isChecked())
            names.append(NameOf(button));
    names.sort();
    return names.join(QLatin1Char(' '));
}

const Ways* WaysOf(const QString& window)
{
    const auto* ways = std::find_if(std::begin(Known), std::end(Known),
                                    [&](const Ways& one) { return window == QLatin1String(one.window); });
    return ways == std::end(Known) ? nullptr : ways;
}

class KeyboardTest : public WindowsFixture
{};

TEST_F(KeyboardTest, TabLettersAndPresetOptionsOfEachWindowAreThoseThatTheOfficeKnows)
{
    std::size_t looked = 0;
    ForEachWindow([&](const QString& name, const QWidget& shown) {
        SCOPED_TRACE(name.toStdString());
        const Ways* ways = WaysOf(name);
        ASSERT_NE(ways, nullptr);
        ++looked;
        EXPECT_EQ(TabOf(shown).toStdString(), ways->tab);
        EXPECT_EQ(LettersOf(shown).toStdString(), ways->letters);
        EXPECT_EQ(ChosenOf(shown).toStdString(), ways->chosen);
    });
    EXPECT_EQ(looked, std::size(Known));
}

} // namespace
} // namespace tally::test
