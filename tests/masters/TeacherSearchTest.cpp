#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "masters/frmTeacherSearch.h"
#include "masters/TeacherFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tally::test {
namespace {

const QString ViewAll = QStringLiteral("Do You Want To View All Teacher Details ?");
const QString EditOrDelete = QStringLiteral("Do You Want To Edit/Delete ?");

class TeacherSearchTest : public TeacherFixture
{
protected:
    void SetUp() override
    {
        TeacherFixture::SetUp();
        GivenTeacher(1, QStringLiteral("Chandra"), QStringLiteral("CHA"), 1);
        GivenTeacher(2, QStringLiteral("Asha"), QStringLiteral("ASH"), 2);
        GivenTeacher(3, QStringLiteral("Binu"), QStringLiteral("BIN"));
        OpenSearch();
    }

    /// As a clerk comes here: from the master.
    void OpenSearch()
    {
        OpenMaster();
        Press(Button("cmdSearch"));
        Settle();
        search =
            qobject_cast<frmTeacherSearch*>(ScreenRegistry::OpenInstance(QStringLiteral("frmTeacherSearch")));
        ASSERT_NE(search, nullptr);
        grid = Find<DataGrid>(search, "dgdDetails");
    }

    QLineEdit* SearchBox(const char* name) { return Find<QLineEdit>(search, name); }
    QPushButton* SearchButton(const char* name) { return Find<QPushButton>(search, name); }

    void Search(const QString& name, const QString& city)
    {
        SearchBox("txtTeacherName")->clear();
        SearchBox("txtCity")->clear();
        Type(SearchBox("txtTeacherName"), name);
        Type(SearchBox("txtCity"), city);
        Press(SearchButton("cmdSearch"));
        prompts.Verify();
    }

    void ShowAll()
    {
        prompts.ExpectQuestion(ViewAll, true);
        Search({}, {});
    }

    QStringList ShownNames() const
    {
        QStringList names;
        for (int row = 0; row < grid->RowCount(); ++row)
            names.append(grid->Text(row, QStringLiteral("Teacher Name")));
        return names;
    }

    void DoubleClick(int row)
    {
        const QPoint middle = grid->visualRect(grid->model()->index(row, 0)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    }

    bool SearchIsOpen() const
    {
        return ScreenRegistry::OpenInstance(QStringLiteral("frmTeacherSearch")) != nullptr;
    }

    frmTeacherSearch* search = nullptr;
    DataGrid* grid = nullptr;
};

TEST_F(TeacherSearchTest, WithoutAFilterItAsksWhetherToViewAll)
{
    prompts.ExpectQuestion(ViewAll, false);
    Search({}, QStringLiteral("  "));
    EXPECT_EQ(grid->RowCount(), 0);
    ShowAll();
    EXPECT_EQ(ShownNames(),
              (QStringList{QStringLiteral("Asha"), QStringLiteral("Binu"), QStringLiteral("Chandra")}));
    EXPECT_TRUE(grid->isColumnHidden(5));
    EXPECT_FALSE(grid->isColumnHidden(0));
}

TEST_F(TeacherSearchTest, FindsByNameAndByCity)
{
    Search(QStringLiteral("HA"), {});
    EXPECT_EQ(ShownNames(), (QStringList{QStringLiteral("Asha"), QStringLiteral("Chandra")}));
    EXPECT_EQ(grid->Text(0, QStringLiteral("State Name")).toStdString(), "Goa");
    EXPECT_EQ(grid->Text(0, QStringLiteral("City Name")).toStdString(), "Panaji");
    EXPECT_EQ(grid->Text(0, QStringLiteral("Short Name")).toStdString(), "ASH");
    EXPECT_EQ(grid->Text(0, QStringLiteral("Telephone")).toStdString(), "0484-1");
    Search({}, QStringLiteral("koch"));
    EXPECT_EQ(ShownNames(), QStringList{QStringLiteral("Chandra")});
}

TEST_F(TeacherSearchTest, ATeacherWithoutACityIsListedWithBlankCityAndState)
{
    Search(QStringLiteral("binu"), {});
    ASSERT_EQ(grid->RowCount(), 1);
    EXPECT_EQ(grid->Text(0, QStringLiteral("State Name")).toStdString(), "");
    EXPECT_EQ(grid->Text(0, QStringLiteral("City Name")).toStdString(), "");
}

TEST_F(TeacherSearchTest, AnEmptyResultSaysSoAndEmptiesTheGrid)
{
    ShowAll();
    prompts.ExpectInformation(QStringLiteral("No Record Exists"));
    Search(QStringLiteral("Zed"), {});
    EXPECT_EQ(grid->RowCount(), 0);
}

TEST_F(TeacherSearchTest, ADoubleClickLoadsTheTeacherAndClosesTheSearch)
{
    ShowAll();
    prompts.ExpectQuestion(EditOrDelete, false);
    DoubleClick(1);
    prompts.Verify();
    EXPECT_TRUE(SearchIsOpen());
    prompts.ExpectQuestion(EditOrDelete, true);
    DoubleClick(1);
    Settle();
    EXPECT_FALSE(SearchIsOpen());
    EXPECT_EQ(window->Area()->activeSubWindow()->widget(), form);
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "Binu");
    EXPECT_TRUE(Button("cmdEdit")->isEnabled());
    EXPECT_TRUE(HasFocus("cmdEdit"));
}

TEST_F(TeacherSearchTest, ATeacherIsFoundAndEditedWithKeysAlone)
{
    Type(SearchBox("txtTeacherName"), QStringLiteral("a"));
    PressKey(search, Qt::Key_Return);
    PressKey(search, Qt::Key_Return);
    EXPECT_TRUE(SearchButton("cmdSearch")->hasFocus());
    PressKey(search, Qt::Key_Return);
    ASSERT_EQ(grid->RowCount(), 2);
    PressKey(search, Qt::Key_Tab);
    PressKey(search, Qt::Key_Tab);
    ASSERT_TRUE(grid->hasFocus());
    PressKey(search, Qt::Key_Down);
    PressKey(search, Qt::Key_Down);
    prompts.ExpectQuestion(EditOrDelete, true);
    PressKey(search, Qt::Key_Return);
    Settle();
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "Chandra");
    PressKey(form, Qt::Key_Return);
    Box("txtTelephone")->clear();
    Type(Box("txtTelephone"), QStringLiteral("7"));
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Stored("Telephone", 1).toStdString(), "7");
}

TEST_F(TeacherSearchTest, EnterPassesAnEmptyGrid)
{
    grid->setFocus();
    PressKey(search, Qt::Key_Return);
    EXPECT_TRUE(SearchButton("cmdExit")->hasFocus());
}

TEST_F(TeacherSearchTest, AMasterThatWasClosedMeanwhileOpensAgain)
{
    ShowAll();
    form->Unload();
    Settle();
    prompts.ExpectQuestion(EditOrDelete, true);
    DoubleClick(0);
    Settle();
    form = qobject_cast<frmTeacherMaster*>(ScreenRegistry::OpenInstance(QStringLiteral("frmTeacherMaster")));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Box("txtTeacherName")->text().toStdString(), "Asha");
    EXPECT_EQ(window->Area()->activeSubWindow()->widget(), form);
    EXPECT_TRUE(HasFocus("cmdEdit"));
}

TEST_F(TeacherSearchTest, ATeacherWhomAnotherClientDeletedIsNotLoadedAndTheSearchStays)
{
    ShowAll();
    AnotherClient()->Execute(QStringLiteral("DELETE FROM TeacherMaster WHERE TeacherCode = 3"));
    prompts.ExpectQuestion(EditOrDelete, true);
    prompts.ExpectInformation(QStringLiteral("No Record Exists"));
    DoubleClick(1);
    Settle();
    ASSERT_TRUE(SearchIsOpen());
    EXPECT_EQ(window->Area()->activeSubWindow()->widget(), search);
    EXPECT_FALSE(Button("cmdEdit")->isEnabled());
}

TEST_F(TeacherSearchTest, ASearchThatFailsIsToldAndLeavesTheList)
{
    ShowAll();
    Given("ALTER TABLE TeacherMaster RENAME TO Gone");
    prompts.ExpectCritical(NoSuchTable("TeacherMaster"));
    Search(QStringLiteral("binu"), {});
    EXPECT_EQ(grid->RowCount(), 3);
    EXPECT_EQ(SearchBox("txtTeacherName")->text().toStdString(), "binu");
}

TEST_F(TeacherSearchTest, CancelEmptiesBoxesAndGrid)
{
    Search(QStringLiteral("a"), QStringLiteral("k"));
    ASSERT_EQ(grid->RowCount(), 1);
    Press(SearchButton("cmdCancel"));
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_EQ(SearchBox("txtTeacherName")->text().toStdString(), "");
    EXPECT_EQ(SearchBox("txtCity")->text().toStdString(), "");
    EXPECT_TRUE(SearchBox("txtTeacherName")->hasFocus());
}

TEST_F(TeacherSearchTest, ClosesOnlyWhileSearchAndExitCanBePressed)
{
    for (const char* name : {"cmdSearch", "cmdExit"}) {
        SearchButton(name)->setEnabled(false);
        search->Unload();
        Settle();
        ASSERT_TRUE(SearchIsOpen()) << name;
        SearchButton(name)->setEnabled(true);
    }
    Press(SearchButton("cmdExit"));
    Settle();
    EXPECT_FALSE(SearchIsOpen());
}

TEST_F(TeacherSearchTest, BoxesTakeOnlyWhatNamesMayHold)
{
    QApplication::clipboard()->setText(QStringLiteral("%_'K\u00f6chi"));
    SearchBox("txtCity")->setFocus();
    SearchBox("txtCity")->paste();
    EXPECT_EQ(SearchBox("txtCity")->text().toStdString(), "Kchi");
    Type(SearchBox("txtTeacherName"), QStringLiteral("a'b%1"));
    EXPECT_EQ(SearchBox("txtTeacherName")->text().toStdString(), "ab1");
}

TEST_F(TeacherSearchTest, ManyTeachersAreFoundWithOneStatement)
{
    Given("WITH RECURSIVE n(i) AS (VALUES(100) UNION ALL SELECT i + 1 FROM n WHERE i < 599)"
          " INSERT INTO TeacherMaster SELECT i, 1, 'Teacher ' || i, i, NULL, 'S', NULL, NULL, '', '', '', 1, "
          "'',"
          " '', 0, '', 1 FROM n");
    const auto before = Session().gcnnMain->StatementsRun();
    ShowAll();
    EXPECT_EQ(grid->RowCount(), 503);
    EXPECT_EQ(Session().gcnnMain->StatementsRun() - before, 1U);
}

TEST_F(TeacherSearchTest, FitsTheSmallestScreenWithNothingCutOff)
{
    search->Unload();
    Settle();
    ExpectToFit(QStringLiteral("frmTeacherSearch"));
}

TEST_F(TeacherSearchTest, EachUnderlinedLetterLeadsToOneControl)
{
    ExpectOneControlALetter(search);
}

} // namespace
} // namespace tally::test
