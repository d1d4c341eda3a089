// Measures how soon each screen of the masters and the calendar is painted, and each search box its grid, in
// a school with long lists; the searches also against the bare statement. Exit code 1: a limit is not kept.

#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/MasterScreensSchool.h"
#include "bench/ScreenTimes.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataGrid.h"
#include "masters/SimpleMasterDefinitions.h"

#include <QLineEdit>

#include <array>
#include <memory>
#include <vector>

namespace {

using namespace tally;
using namespace tally::bench;

const std::array<QString, 8> OtherScreens{"frmMasSchoolSetup",
                                          "frmMasClassSectionEntry",
                                          "frmTeacherMaster",
                                          "frmTeacherSearch",
                                          "frmMasAcademicYearSetup",
                                          "frmMasAcademicYearChange",
                                          "frmUtilApplicationDateSetup",
                                          "frmUtilApplicationDateChange"};
constexpr const char* TeacherSearch =
    "SELECT a.TeacherName, a.TeacherShortName, CASE WHEN d.StateCode = 0 THEN '' ELSE d.StateName END,"
    " CASE WHEN b.CityCode = 0 THEN '' ELSE b.CityName END, a.Telephone, a.TeacherCode FROM TeacherMaster a"
    " LEFT JOIN CityMaster b ON a.CityCode = b.CityCode LEFT JOIN StateMaster d ON b.StateCode = d.StateCode"
    " WHERE a.TeacherCode > 0 AND upper(a.TeacherName) LIKE :Name ORDER BY a.TeacherName";

/// One that many names hold, of the long lists nearly all. No salutation has an "a".
QString CommonLetter(const QString& form)
{
    return form == QStringLiteral("frmSalutationMaster") ? QStringLiteral("r") : QStringLiteral("a");
}

void TypeLetter(QLineEdit* box, const QString& letter)
{
    PressKey(box, letter.at(0).toUpper().unicode(), letter);
    if (box->text() != letter)
        qFatal("%s did not take the letter", qUtf8Printable(box->objectName()));
}

bool ReportSearches(BareStore& store)
{
    bool kept = true;
    for (const SimpleMasterDefinition& master : SimpleMasterDefinitions()) {
        const QString form = QLatin1String(master.formName);
        const QString letter = CommonLetter(form);
        const auto search = [&](QLineEdit* box, DataGrid* grid) {
            return Painted(grid->viewport(), [&] { TypeLetter(box, letter); });
        };
        kept &= ReportSearch(store, form, master.searchControl, search, master.grid, letter);
    }

    const QString teachers = QStringLiteral("frmTeacherSearch");
    kept &= ReportSearch(
        store, teachers, "txtTeacherName",
        [&](QLineEdit* box, DataGrid* grid) {
            TypeLetter(box, CommonLetter(teachers));
            return SearchByButton(teachers, grid);
        },
        TeacherSearch, QStringLiteral("%A%"));
    return kept;
}

} // namespace

int main(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    const MasterScreensSchool school;
    OpenSession(school.Folder());
    const std::unique_ptr<mdiTallyboard> window(ShowMainWindow());

    std::vector<QString> forms;
    for (const SimpleMasterDefinition& master : SimpleMasterDefinitions())
        forms.push_back(QLatin1String(master.formName));
    forms.insert(forms.end(), OtherScreens.begin(), OtherScreens.end());
    bool kept = ReportOpenings(forms);

    BareStore store(school.Folder());
    PrintSearchHeads();
    kept &= ReportSearches(store);
    return kept ? 0 : 1;
}
