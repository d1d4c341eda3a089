// What the report screens have in common, whatever they list.

#include "core/ui/controls/FixedColumns.h"
#include "reports/ReportDriver.h"
#include "reports/ReportScreen.h"

#include <QAction>
#include <QScrollBar>

namespace tally::test {
namespace {

class ReportScreens : public ReportDriver<ReportScreen>
{
protected:
    void CloseReport()
    {
        Press(Button("cmdExit"));
        Settle();
    }
};

TEST_F(ReportScreens, WhoseTheLineIsStaysInSightBesideTheLastSubjects)
{
    const std::vector<std::pair<const char*, int>> columnsInSight{
        {"frmclassdivisionsubjectavg", 5}, {"frmdivisionsubjectexamavg", 3}, {"frmrptClasssubjectteacher", 3},
        {"frmstudentexamavg", 3},          {"frmstudentslistabove", 2},      {"frmstudentslistbelow", 2},
        {"frmstudentyearlyexamavg", 2}};
    constexpr int Wide = 60;
    for (const auto& [name, columns] : columnsInSight) {
        SCOPED_TRACE(name);
        OpenReport(name, {});
        grid->Show(GridTable(std::vector<GridColumn>(Wide, {.head = QStringLiteral("Eng")})));
        Settle();
        int held = 0;
        for (int col = 0; col < columns; ++col)
            held += grid->ColWidth(col);
        grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->maximum());
        const auto* fixed = grid->findChild<FixedColumns*>();
        ASSERT_NE(fixed, nullptr);
        EXPECT_EQ(fixed->ColumnsWidth(), held);
        CloseReport();
    }
}

TEST_F(ReportScreens, EachListThatMayBePrintedHasAMenuThatDoes)
{
    for (const char* name :
         {"frmclassdivisionsubjectavg", "frmdivisionsubjectexamavg", "frmrptClassList",
          "frmrptClasssubjectteacher", "frmStudentList", "frmstudentslistabove", "frmstudentslistbelow"}) {
        SCOPED_TRACE(name);
        OpenReport(name, {});
        for (FlexGrid* list : form->findChildren<FlexGrid*>()) {
            EXPECT_EQ(list->contextMenuPolicy(), Qt::ActionsContextMenu);
            ASSERT_EQ(list->actions().size(), 1);
            QAction* entry = list->actions().front();
            EXPECT_EQ(entry->text().toStdString(), "Print List...");
            entry->setEnabled(true);
            entry->trigger();
            ASSERT_EQ(output->printed.size(), 1U);
            output->printed.clear();
            entry->setEnabled(false);
        }
        CloseReport();
    }
}

} // namespace
} // namespace tally::test
