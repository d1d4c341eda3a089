// Writes a workbook of rank cards into a folder for each number of exams and subjects that a school may have,
// so that ./test --full can print them with the fonts that offices have.

#include "core/SessionContext.h"
#include "core/ui/OpenDocument.h"
#include "ranks/ExportFlexGridToExcel1.h"
#include "ranks/RankCards.h"

#include <QApplication>
#include <QFile>
#include <QStringList>

#include <array>

namespace {

using namespace tally;

struct Student
{
    const char* name;
    const char* admissionNo;
};
constexpr std::array Students{
    Student{"Asha Menon", "0042"},
    Student{"VENKATANARASIMHARAJU SUBRAHMANYAM LAKSHMINARAYANA IYER OF TIRUCHIRAPPALLI THE YOUNGER",
            "A/1107"},
    Student{"Venkatanarasimharajuvaripeta Subrahmanyam Lakshminarayana Iyer Of Tiruchirappalli The Younger "
            "Cousin",
            "2024/0007"},
};
constexpr std::array Exams{"Unit Test 1", "Quarterly Examination", "Unit Test 2", "Half Yearly Examination",
                           "Unit Test 3", "MODEL EXAMINATION",     "Revision",    "Annual Examination"};
constexpr std::array Subjects{"LANG", "Eng", "MATHS",  "Phy",  "Chem",   "BIO",  "Hist", "GEOGR",
                              "Civ",  "CS",  "COMMER", "Econ", "MUSIC.", "Draw", "PE"};

GridTable Cards(int exams, int subjects)
{
    std::vector<GridColumn> columns(static_cast<std::size_t>(CardColumn::FirstSubject));
    QStringList marks;
    for (int subject = 0; subject < subjects; ++subject) {
        columns.push_back({QString::fromLatin1(Subjects[static_cast<std::size_t>(subject)])});
        marks << QStringLiteral("100.00");
    }
    for (const char* head : {"Total", "Average", "Rank", "Grade"})
        columns.push_back({QString::fromLatin1(head)});
    GridTable cards(std::move(columns));
    cards.AddRow();
    cards.HideRow(RankCardGrid::CodesRow);
    for (const Student& student : Students) {
        for (int exam = 0; exam < exams; ++exam) {
            GridTable::Row line;
            for (const QString& text : QStringList{Exams[static_cast<std::size_t>(exam)], student.name,
                                                   student.admissionNo, "XII", "A"} +
                                           marks +
                                           QStringList{QString::number(subjects * 100), "100.00", "12", "A+"})
                line.push_back({text});
            cards.AddRow(std::move(line));
        }
        cards.AddRow();
    }
    return cards;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    const QString folder = QString::fromLocal8Bit(argv[1]);
    Session().gstrSchoolName = QStringLiteral("Saint Mary's Higher Secondary School");
    Session().gstrSchoolAddress = QStringLiteral("Hill Road, Fort, behind the Old Customs House");
    Session().gstrSchoolCity = QStringLiteral("Kochi,Kerala - 682001");
    SetExportFolder(folder);
    UseSpreadsheetProgram({true, [](const QString&) { return true; }});
    for (const int exams : {1, 4, 8}) {
        for (const int subjects : {3, 8, 15}) {
            const GridTable cards = Cards(exams, subjects);
            const QString path =
                ExportFlexGridToExcel1(cards, cards.Rows() - 1, cards.Cols() - 1, {}, {}, exams);
            QFile::rename(path, QStringLiteral("%1/Rank Card of %2 exams and %3 subjects.xlsx")
                                    .arg(folder)
                                    .arg(exams)
                                    .arg(subjects));
        }
    }
}
