// The shared folder may go at any moment of anything that a clerk does. Whatever screen it is, he is told so
// in one box, nothing goes on behind it, and what he does again when the folder is back goes its usual way.

#include "support/LostStore.h"

#include "core/modTallyboard.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/Grid.h"
#include "core/ui/ScreenRegistry.h"
#include "reports/ReportOutput.h"
#include "support/ScreenFixture.h"
#include "tools/SampleSchool.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QRadioButton>

namespace tally::test {
namespace {

class LostStoreTest : public ScreenFixture, public testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        LeaveOthersUnguarded();
        output_.emplace(Folder());
        window->setWindowState(Qt::WindowNoState);
        window->resize(1920, 1080);
        {
            SampleOptions options;
            options.classes = 2;
            options.divisions = 2;
            options.students = 3;
            options.subjects = 4;
            options.exams = 2;
            store::Transaction transaction(MainStore());
            FillSampleSchool(transaction, options);
            transaction.Execute(QStringLiteral(
                "INSERT INTO AcademicYearSetup SELECT 3, YearFrom + 1, YearTo + 1, ToDate, ToDate,"
                " 'N', 'N', 1 FROM AcademicYearSetup WHERE Status = 'Y'"));
            transaction.Commit();
        }
        LoadActiveAcademicYear();
        LoadApplicationDate(Session().gintAcademicYearCode);
        LoadSchoolDetails();
        Session().gintUserCode = 1;
        Session().gintPrivilegeUserCode = 1;
        Prompts::AnswerWith([this](Prompts::Kind kind, const QString& text) {
            told_.append({kind, text});
            return true;
        });
        Open();
    }

    void TearDown() override
    {
        output_.reset();
        ScreenFixture::TearDown();
    }

    void Open()
    {
        screen_ = OpenScreen(QString::fromLatin1(GetParam()));
        ASSERT_NE(screen_, nullptr);
        told_.clear();
    }

    /// Does something on the screen as often as it has statements, each time without the store from the next
    /// of them on, and at last with it.
    void Do(const QString& what, const std::function<void()>& work, int screens = 1)
    {
        constexpr std::size_t Most = 200;
        SCOPED_TRACE(what.toStdString());
        for (std::size_t number = 0; number < Most; ++number) {
            told_.clear();
            const bool lost = LosesStoreAt(number, [&work] {
                work();
                Settle();
            });
            if (ScreenRegistry::OpenInstance(QString::fromLatin1(GetParam())) != screen_)
                return Open();
            if (!lost)
                return;
            ++losses_;
            ExpectToldOnceAndLast(number, screens);
            EXPECT_EQ(MainStore().TransactionDepth(), 0);
            if (HasFailure())
                return;
        }
        ADD_FAILURE() << "never comes to its end";
    }

    /// The change may be stored already: then it is told that only the screen could not be read anew. Where
    /// another screen opens, each tells for itself.
    void ExpectToldOnceAndLast(std::size_t number, int screens)
    {
        QStringList all;
        int failures = 0;
        int behind = 0;
        for (const auto& [kind, text] : told_) {
            const bool failure =
                kind == Prompts::Kind::Critical ||
                text.startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again."));
            failures += failure ? 1 : 0;
            behind += !failure && failures > 0 ? 1 : 0;
            all.append(text);
        }
        EXPECT_TRUE(failures >= 1 && failures <= screens && behind == 0)
            << "at the statement " << number << ": " << all.join(QStringLiteral(" / ")).toStdString();
    }

    void PressInTurn(const char* name)
    {
        auto* button = screen_->findChild<QAbstractButton*>(QString::fromLatin1(name));
        if (!button || !IsOn(button))
            return;
        // To leave a field is something by itself.
        Do(QStringLiteral("in front of ") + button->objectName(), [button] { button->setFocus(); });
        if (IsOn(button))
            Do(button->objectName(), [button] { Press(button); });
    }

    /// The fields and lists from the first to the last, as far as they are on when their turn comes.
    void Fill()
    {
        for (QWidget* field = screen_->nextInFocusChain(); field != screen_;
             field = field->nextInFocusChain()) {
            if (!screen_->isAncestorOf(field) || !IsOn(field) || field->focusProxy())
                continue;
            if (auto* date = qobject_cast<QDateEdit*>(field); date && date->isVisibleTo(screen_))
                Do(date->objectName(), [date] { QTest::keyClick(date, Qt::Key_Down); });
            else if (field->objectName() == QLatin1String("cbofromClass"))
                // A class brings its own divisions and those of the class that it leads to, which is told
                // twice.
                QTest::keyClick(field, Qt::Key_End);
            else if (auto* box = qobject_cast<QComboBox*>(field);
                     box && box->objectName() != QLatin1String("cbotoclass"))
                Choose(box);
            else if (auto* text = qobject_cast<QLineEdit*>(field); text && text->text().isEmpty())
                Type(text, TextFor(*text));
            else if (auto* ticks = qobject_cast<QListWidget*>(field); ticks && ticks->count() > 0)
                Do(ticks->objectName(), [ticks] { Tick(ticks); });
        }
    }

    void ChooseRow()
    {
        auto* list = screen_->findChild<Grid*>();
        if (!list || !IsOn(list) || list->model()->rowCount() < 1)
            return;
        const QModelIndex row = list->model()->index(list->model()->rowCount() - 1, list->columnAt(5));
        const QPoint place = list->visualRect(row).center();
        Do(QStringLiteral("click"),
           [list, place] { QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place); });
        if (IsOn(list))
            Do(
                QStringLiteral("double click"),
                [list, place] {
                    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
                },
                2);
    }

    static bool IsOn(const QWidget* control) { return control->isVisible() && control->isEnabled(); }

    /// Another line that is not blank, if there is one.
    void Choose(QComboBox* box)
    {
        box->setFocus();
        const int before = box->currentIndex();
        while (IsOn(box) && box->currentIndex() < box->count() - 1 &&
               (box->currentIndex() <= before || box->currentText().trimmed().isEmpty())) {
            const auto choose = [box, from = box->currentIndex()] {
                {
                    const QSignalBlocker unheard(box);
                    box->setCurrentIndex(from);
                }
                QTest::keyClick(box, Qt::Key_Down);
            };
            Do(box->objectName(), choose);
        }
    }

    /// A year and a student that are there, or what no row has.
    static QString TextFor(const QWidget& field)
    {
        if (field.objectName() == QLatin1String("txtAcademicYearFrom"))
            return QString::number(Session().gintYearFrom);
        const bool relieves = QLatin1String(GetParam()) == QLatin1String("frmMasStudentRelievingMaster");
        if (!relieves || field.objectName() != QLatin1String("txtOptionalAdmissionNo"))
            return QStringLiteral("7");
        auto row = MainStore().Query(QStringLiteral("SELECT max(OptionalAdmissionNo) FROM StudentMaster"));
        row.Next();
        return row.Text(0);
    }

    static void Tick(QListWidget* list)
    {
        list->setFocus();
        list->setCurrentRow(0);
        {
            const QSignalBlocker unheard(list);
            list->item(0)->setCheckState(Qt::Unchecked);
        }
        QTest::keyClick(list, Qt::Key_Space);
    }

    Screen* screen_ = nullptr;
    int losses_ = 0;

private:
    std::optional<ReportOutput> output_;
    QList<std::pair<Prompts::Kind, QString>> told_;
};

TEST_P(LostStoreTest, IsToldInOneBoxBehindWhichNothingGoesOn)
{
    const bool searches = QString::fromLatin1(GetParam()).endsWith(QLatin1String("Search"));
    PressInTurn("cmdClose");
    for (const char* begin : {"", "cmdNew", "cmdEdit"}) {
        SCOPED_TRACE(begin);
        ChooseRow();
        PressInTurn(begin);
        // Without any condition all are found.
        if (*begin != '\0' || !searches)
            Fill();
        for (const char* next :
             {"cmdUpdate", "cmdView", "cmdSearch", "cmdSave", "cmdDelete", "cmdAddOneDay", "cmdDeleteLastDay",
              "cmdTotalDetails", "cmdExport", "cmdPrint", "cmdChart", "cmdCancel"}) {
            PressInTurn(next);
            if (searches && QLatin1String(next) == QLatin1String("cmdSearch"))
                ChooseRow();
        }
    }
    EXPECT_GE(losses_, 3);
}

INSTANTIATE_TEST_SUITE_P(
    Screens, LostStoreTest,
    testing::Values("frmMasAcademicYearChange", "frmMasAcademicYearSetup", "frmMasBloodGroupMaster",
                    "frmMasCityMaster", "frmMasClassSectionEntry", "frmMasOptionalAdmissionNoChange",
                    "frmMasSchoolSetup", "frmMasStateMaster", "frmMasStudentAdmissionEntry",
                    "frmMasStudentAdmissionSearch", "frmMasStudentMaster", "frmMasStudentMasterSearch",
                    "frmMasStudentRelievingMaster", "frmMasStudentRelievingSearch", "frmPromotionEntry",
                    "frmRankCalculation", "frmRankCardPrinting", "frmSalutationMaster", "frmSubjectMaster",
                    "frmTeacherMaster", "frmTeacherSearch", "frmUtilApplicationDateChange",
                    "frmUtilApplicationDateSetup", "frmUtilOptions", "frmUtilUserMaster",
                    "frmclassdivisionsubjectavg", "frmdivisionsubjectexamavg", "frmexammarkentry",
                    "frmexamnamemaster", "frmStudentList", "frmrptClassList", "frmrptClasssubjectteacher",
                    "frmstudentexamavg", "frmstudentslistabove", "frmstudentslistbelow",
                    "frmstudentyearlyexamavg"),
    [](const auto& screen) { return std::string(screen.param); });

} // namespace
} // namespace tally::test
