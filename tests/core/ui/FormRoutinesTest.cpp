#include "core/modTallyboard.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/controls/FieldHint.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/OptionalDatePicker.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"
#include "support/TableOf.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QLineEdit>
#include <QSize>
#include <QVBoxLayout>

#include <cstdlib>

namespace tally::test {
namespace {

struct Display
{
    QSize pixels;
    bool small;

    friend void PrintTo(const Display& row, std::ostream* out)
    {
        *out << row.pixels.width() << " by " << row.pixels.height();
    }
};

class SmallScreenTest : public testing::TestWithParam<Display>
{};

TEST_P(SmallScreenTest, IsSmallAndHasPicturesOfItsOwnWithinTheBoundsOnly)
{
    EXPECT_EQ(IsSmallScreen(GetParam().pixels), GetParam().small)
        << GetParam().pixels.width() << " x " << GetParam().pixels.height();
    EXPECT_EQ(MainPicture(GetParam().pixels), GetParam().small ? 1003 : 1001);
    EXPECT_EQ(PlainPicture(GetParam().pixels), GetParam().small ? 1004 : 1002);
}

// 734 pixels are the first above 11000 twips and 833 the last below 12500; 567 and 633 the same for the
// height.
INSTANTIATE_TEST_SUITE_P(Displays, SmallScreenTest,
                         testing::Values(Display{{800, 600}, true}, Display{{734, 600}, true},
                                         Display{{733, 600}, false}, Display{{833, 600}, true},
                                         Display{{834, 600}, false}, Display{{800, 567}, true},
                                         Display{{800, 566}, false}, Display{{800, 633}, true},
                                         Display{{800, 634}, false}, Display{{640, 480}, false},
                                         Display{{1024, 768}, false}));

TEST(CenterFormTest, AFormStandsInTheMiddleOfItsParentOrInItsCorner)
{
    QWidget parent;
    parent.resize(400, 300);
    QWidget form(&parent);
    form.resize(100, 60);
    CenterForm(&form, &parent);
    EXPECT_EQ(form.pos(), QPoint(150, 120));
    form.resize(500, 400);
    CenterForm(&form, &parent);
    EXPECT_EQ(form.pos(), QPoint(0, 0)) << "its first fields stay in sight";
}

class FormRoutinesTest : public ProgramFixture
{
protected:
    void Show()
    {
        form->show();
        QApplication::setActiveWindow(form);
        other->setFocus();
        Settle();
    }

    template <typename Control>
    Control* Add()
    {
        auto* control = new Control(form);
        layout->addWidget(control);
        return control;
    }

    bool CheckMark(const QString& text, int decimals, double limit)
    {
        mark->setText(text);
        mark->setCursorPosition(0);
        return CheckMarkLimit(mark, decimals, limit, QStringLiteral("Mark"));
    }

    QWidget* form = new QWidget; ///< deleted with all windows at the end of the test
    QVBoxLayout* layout = new QVBoxLayout(form);
    QLineEdit* other = Add<QLineEdit>();
    QLineEdit* mark = Add<QLineEdit>();
};

TEST_F(FormRoutinesTest, WithoutTheMainWindowNothingIsOpenAndNothingOpens)
{
    const QString options = QStringLiteral("frmUtilOptions");
    ShowForm(options);
    EXPECT_EQ(ScreenRegistry::OpenInstance(options), nullptr);
    EXPECT_FALSE(AnyChildFormOpen() || OtherFormsOpen(nullptr) || AnyScreenHasTakenMenus());
    FocusActiveScreen();
    ShowBackground();
    DisableMainMenus();
    EnableMainMenus();
    form->move(7, 9);
    CenterForm(form);
    EXPECT_EQ(form->pos(), QPoint(7, 9));
}

TEST_F(FormRoutinesTest, ADecimalTooManyIsCutAndToldAndTheCaretStandsAtTheEnd)
{
    Show();
    EXPECT_FALSE(CheckMark(QStringLiteral("12.345"), 2, 50));
    EXPECT_EQ(mark->text(), QStringLiteral("12.34"));
    EXPECT_EQ(mark->cursorPosition(), 5);
    EXPECT_EQ(FieldHintAt(mark).toStdString(), "Not More Than 2 Decimals Can Be Entered Here");
    EXPECT_FALSE(CheckMark(QStringLiteral(".345"), 2, 50));
    EXPECT_EQ(mark->text(), QStringLiteral(".34"));
    EXPECT_FALSE(CheckMark(QStringLiteral("12.34"), 2, 50));
    EXPECT_EQ(mark->text(), QStringLiteral("12.34"));
    EXPECT_FALSE(CheckMark(QStringLiteral("12."), 0, 50));
    EXPECT_EQ(mark->text(), QStringLiteral("12."));
    EXPECT_FALSE(CheckMark(QStringLiteral("12345"), 2, 99999));
    EXPECT_EQ(mark->text(), QStringLiteral("12345"));
}

TEST_F(FormRoutinesTest, AMarkAboveItsLimitIsToldAndSelectedInItsField)
{
    Show();
    ASSERT_FALSE(mark->hasFocus());
    prompts.ExpectInformation(QStringLiteral("Mark Should Not Exceed 50"));
    EXPECT_TRUE(CheckMark(QStringLiteral("50.5"), 1, 50));
    EXPECT_EQ(mark->selectedText(), QStringLiteral("50.5"));
    EXPECT_TRUE(mark->hasFocus());
    prompts.ExpectInformation(QStringLiteral("Mark Should Not Exceed 12.5"));
    EXPECT_TRUE(CheckMark(QStringLiteral("13"), 1, 12.5));
}

TEST_F(FormRoutinesTest, AMarkThatReachesItsLimitPassesAndStaysUnselected)
{
    Show();
    EXPECT_FALSE(CheckMark(QStringLiteral("50"), 1, 50));
    EXPECT_FALSE(mark->hasSelectedText());
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(FormRoutinesTest, AMarkIsComparedAfterItsLastDecimalIsCut)
{
    EXPECT_FALSE(CheckMark(QStringLiteral("50.05"), 1, 50));
    EXPECT_EQ(mark->text(), QStringLiteral("50.0"));
}

TEST_F(FormRoutinesTest, AClearedGridKeepsOneEmptyRowAndOneColumn)
{
    auto* grid = Add<FlexGrid>();
    grid->SetRows(5);
    grid->SetCols(4);
    grid->SetTextMatrix(0, 0, QStringLiteral("Name"));
    grid->SetTextMatrix(1, 0, QStringLiteral("Asha"));
    ClearMSGrid(grid);
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->Cols(), 1);
    EXPECT_EQ(grid->TextMatrix(0, 0), QStringLiteral("Name"));
    EXPECT_EQ(grid->TextMatrix(1, 0), QString());
}

TEST_F(FormRoutinesTest, AClearedGridShowsItsColumnAlsoWhereThatWasHidden)
{
    auto* grid = Add<FlexGrid>();
    GridTable table({{.head = {}, .hidden = true}, {QStringLiteral("Name")}});
    table.AddRow();
    grid->Show(std::move(table));
    Show();
    ClearMSGrid(grid);
    EXPECT_EQ(grid->ColWidth(0), grid->viewport()->width());
}

TEST_F(FormRoutinesTest, TheHeadOfALoneColumnSpansTheGrid)
{
    auto* grid = Add<FlexGrid>();
    grid->Show(TableOf({{{QStringLiteral("Name")}, {QStringLiteral("Mark")}}, {}}));
    Show();
    const std::pair widths{grid->ColWidth(0), grid->ColWidth(1)};
    const int span = grid->viewport()->width();
    ASSERT_LT(widths.first + widths.second, span);
    ClearMSGrid(grid);
    EXPECT_EQ(grid->ColWidth(0), span);
    grid->Show(TableOf({{{QStringLiteral("Name")}, {QStringLiteral("Mark")}}, {}}));
    EXPECT_EQ(std::pair(grid->ColWidth(0), grid->ColWidth(1)), widths);
}

TEST_F(FormRoutinesTest, ACheckListShowsByThePaintOfItsItemWhetherTheKeysGoThere)
{
    auto* list = Add<CheckList>();
    list->AddItem({1, QStringLiteral("A"), {}});
    list->setCurrentRow(0);
    Show();
    const auto isPaintedLike = [&](QPalette::ColorRole role) {
        constexpr int Shade = 4; // an item is painted a trace lighter at its top
        const QRect item = list->visualItemRect(list->item(0));
        const QColor paint =
            list->viewport()->grab().toImage().pixelColor(item.right() - 4, item.center().y());
        return std::abs(paint.lightness() - list->palette().color(role).lightness()) < Shade;
    };
    EXPECT_TRUE(isPaintedLike(QPalette::Midlight));
    list->setFocus();
    Settle();
    EXPECT_TRUE(isPaintedLike(QPalette::Highlight));
}

TEST_F(FormRoutinesTest, AClearedSummaryGridKeepsItsColumns)
{
    auto* grid = Add<FlexGrid>();
    grid->setObjectName(QStringLiteral("msgSummary"));
    grid->SetRows(5);
    grid->SetCols(4);
    grid->SetTextMatrix(1, 3, QStringLiteral("7"));
    ClearMSGrid(grid);
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->Cols(), 4);
    EXPECT_EQ(grid->TextMatrix(1, 3), QString());
}

TEST_F(FormRoutinesTest, ClearingAFormEmptiesTextsBoxesListsAndGrids)
{
    auto* box = Add<QCheckBox>();
    auto* list = Add<CheckList>();
    auto* grid = Add<FlexGrid>();
    other->setText(QStringLiteral("Asha"));
    box->setChecked(true);
    list->AddItem({1, QStringLiteral("A"), {}});
    grid->SetRows(9);
    grid->SetCols(3);
    grid->SetTextMatrix(1, 2, QStringLiteral("7"));
    Show();
    ClearControls(form);
    EXPECT_EQ(other->text(), QString());
    EXPECT_FALSE(box->isChecked());
    EXPECT_EQ(list->count(), 0);
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->Cols(), 3);
    EXPECT_EQ(grid->TextMatrix(1, 2), QString());
}

TEST_F(FormRoutinesTest, ClearingAFormLeavesAHiddenComboAlone)
{
    auto* visible = Add<DataCombo>();
    auto* hidden = Add<DataCombo>();
    for (DataCombo* combo : {visible, hidden}) {
        combo->SetList({{0, QStringLiteral(" ")}, {4, QStringLiteral("Chennai")}});
        combo->SetBoundCode(4);
    }
    hidden->hide();
    Show();
    ClearControls(form);
    EXPECT_EQ(visible->currentText(), QStringLiteral(" "));
    EXPECT_EQ(visible->BoundCode(), 0);
    EXPECT_EQ(hidden->BoundCode(), 4);
}

TEST_F(FormRoutinesTest, ClearingAFormLeavesTheTextOfAListThatCanBeTypedIntoToTheList)
{
    auto* visible = Add<DataCombo>();
    auto* hidden = Add<DataCombo>();
    for (DataCombo* combo : {visible, hidden}) {
        combo->setEditable(true);
        combo->SetListBehindBlank({{4, QStringLiteral("Chennai")}});
        combo->SetBoundCode(4);
    }
    hidden->hide();
    Show();
    ClearControls(form);
    EXPECT_EQ(visible->currentText(), QStringLiteral(" "));
    EXPECT_EQ(hidden->currentText(), QStringLiteral("Chennai"));
}

TEST_F(FormRoutinesTest, ClearingAFormPutsADateToTheMachinesDateAndNotTheWorkingDate)
{
    auto* date = Add<DatePicker>();
    Session().gdtmApplicationDate = QDate(2020, 2, 29);
    date->setDate(QDate(2020, 2, 29));
    ClearControls(form);
    EXPECT_EQ(date->date(), QDate::currentDate());
    EXPECT_EQ(date->text(), ShownDate(QDate::currentDate()));
}

TEST_F(FormRoutinesTest, WhoComesToADateThatMayBeMissingStandsOnItsTick)
{
    QWidget around;
    OptionalDatePicker date(&around);
    around.show();
    date.setFocus();
    EXPECT_EQ(around.focusWidget(), date.findChild<QCheckBox*>());
    EXPECT_FALSE(date.findChild<DatePicker*>()->isEnabled());
    QTest::keyClick(around.focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(date.findChild<DatePicker*>()->isEnabled());
}

TEST_F(FormRoutinesTest, ADateNamesItsMonthInEnglishOnEveryMachine)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    DatePicker date;
    date.setDate(QDate(2024, 10, 9));
    EXPECT_EQ(date.text().toStdString(), "09/Oct/2024");
    EXPECT_EQ(date.calendarWidget()->locale().monthName(10).toStdString(), "October");
    QLocale::setDefault(before);
}

TEST_F(FormRoutinesTest, SelectingAllTextTakesAllOfIt)
{
    other->setText(QStringLiteral(" Asha  B "));
    SelectAllText(other);
    EXPECT_EQ(other->selectedText(), QStringLiteral(" Asha  B "));
}

} // namespace
} // namespace tally::test
