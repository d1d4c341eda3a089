#include "reports/ClassList.h"

#include "core/Numbers.h"

namespace tally {

GridTable ClassListTable(const std::vector<ClassListStudent>& students, const QString& admissionHead,
                         int added)
{
    constexpr int AdmissionNoTwips = 1200;
    constexpr int StudentNameTwips = 3500;
    std::vector<GridColumn> columns{{.head = admissionHead, .twips = AdmissionNoTwips},
                                    {.head = QStringLiteral("Student Name"), .twips = StudentNameTwips}};
    columns.resize(columns.size() + static_cast<std::size_t>(added));
    GridTable list(std::move(columns));
    list.Reserve(static_cast<int>(students.size()));
    for (const ClassListStudent& student : students)
        list.AddRow({{student.optionalAdmissionNo}, {student.studentName}});
    return list;
}

TextReport ClassListText(const GridTable& list, const QString& className, const QString& divisions)
{
    constexpr int AdmissionNoWidth = 12;
    constexpr int StudentNameWidth = 25;
    constexpr int AddedWidth = 5;
    TextReport report;
    report.title = QStringLiteral("STUDENT NAME LIST FOR CLASS %1 %2").arg(className, divisions);
    report.columns = {{list.Text(0, ClassListColumn::AdmissionNo), AdmissionNoWidth},
                      {list.Text(0, ClassListColumn::StudentName), StudentNameWidth}};
    for (int col = GridCol(ClassListColumn::FirstAdded); col < list.Cols(); ++col)
        report.columns.push_back({list.Text(0, col), AddedWidth});
    for (int row = 1; row < list.Rows(); ++row) {
        QStringList& cells = report.rows.emplace_back();
        for (int col = 0; col < list.Cols(); ++col)
            cells.append(list.Text(row, col));
    }
    return report;
}

bool IsAddedColumn(const QString& number, int added)
{
    return Val(number) > 0 && Val(number) <= added;
}

} // namespace tally
