#include "exams/GradeScreen.h"
#include "ranks/RankCardRepository.h"

namespace tally::test {
namespace {

/// What the rank list and the cards make of tables that were entered on the screen. English is out of 100, so
/// that a mark is its own average.
class GradeRanks : public GradeScreen
{
protected:
    void EnterTable(const std::vector<std::vector<const char*>>& rows)
    {
        StartNew();
        TypeRows(rows);
        Save();
    }
    /// "80=A 79.5=B", the grade of a student with each of the marks.
    std::string GradesOf(const std::vector<double>& marks)
    {
        QStringList names;
        for (const double mark : marks) {
            names.append(QString::number(mark));
            school->EnterMark(school->AddStudent(1, names.last()), 1, mark);
        }
        const RankList list = school->Compute();
        QStringList grades;
        for (const QString& name : names)
            grades.append(name + QLatin1Char('=') + RowOf(list, name).grade);
        return grades.join(QLatin1Char(' ')).toStdString();
    }
    /// Computes and saves the rank list of the division, and gives the grade on Asha's card.
    std::string GradeOnCard()
    {
        school->Prepare();
        school->Save();
        const GridTable card =
            ComputeRankCards(RankCardRepository(*Session().gcnnMain)
                                 .LoadRankCards({1, 1, 1, 1}, {1}, {1}, SubjectDisplay::TakenForRankOnly),
                             0)
                .table;
        return card.Text(RankCardGrid::FirstLineRow, card.Cols() - 1).toStdString();
    }
};

TEST_F(GradeRanks, TheBoundsOfEachBandBelongToIt)
{
    EnterTable({{"80", "50", "A"}, {"60", "40", "B"}, {"35", "20", "C"}, {"0", "0", "D"}});
    EXPECT_EQ(GradesOf({100, 80, 79, 60, 59, 35, 34, 1}), "100=A 80=A 79=B 60=B 59=C 35=C 34=D 1=D");
}

TEST_F(GradeRanks, ALowMarkTakesAwayTheGradeOfAHighTotal)
{
    school->AddSubject(1, 2, "Mat", 2);
    EnterTable({{"70", "50", "A"}, {"40", "30", "B"}, {"0", "0", "C"}});
    school->EnterMark(1, 1, 100);
    school->EnterMark(1, 2, 49);
    EXPECT_EQ(RowOf(school->Compute(), QStringLiteral("Asha")).grade.toStdString(), "B");
}

TEST_F(GradeRanks, BandsOfOneSubjectAverageDifferByTheirTotalAverage)
{
    EnterTable({{"80", "35", "A"}, {"60", "35", "B"}, {"35", "35", "C"}, {"0", "0", "D"}});
    EXPECT_EQ(GradesOf({80, 79, 60, 59, 35, 34}), "80=A 79=B 60=B 59=C 35=C 34=D");
}

TEST_F(GradeRanks, OneBandGivesItsGradeToWhoReachesIt)
{
    EnterTable({{"35", "0", "P"}});
    EXPECT_EQ(GradesOf({35, 34}), "35=P 34=");
}

TEST_F(GradeRanks, OneBandFromZeroGivesItsGradeToAll)
{
    EnterTable({{"0", "0", "P"}});
    EXPECT_EQ(GradesOf({100, 1, 0}), "100=P 1=P 0=P");
}

TEST_F(GradeRanks, FractionsThatAnEditKeepsDecideAsTheyStand)
{
    school->options.fractionMarks = true;
    school->AddBand(1, 66.5, 40.25, "A", 1);
    school->AddBand(1, 50, 30, "B", 2);
    school->AddBand(1, 0, 0, "C", 3);
    StartEdit();
    Click(2, 1);
    Enter("45");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(GradesOf({66.5, 66.25, 45, 44.75}), "66.5=A 66.25=B 45=B 44.75=C");
}

TEST_F(GradeRanks, WithoutABandFromZeroTheLowestGetNoGrade)
{
    EnterTable({{"60", "0", "A"}, {"40", "0", "B"}});
    EXPECT_EQ(GradesOf({60, 59, 40, 39}), "60=A 59=B 40=B 39=");
}

TEST_F(GradeRanks, CardsShowTheGradeOfTheTableThatWasChangedOnceTheListIsSavedAnew)
{
    // A card shows what the same exam has in other years too.
    OpenForm({Side::Exam, Side::Class, Side::Division});
    Press(Button("cmdNew"));
    ChooseDivision();
    PressKey(form, Qt::Key_Return);
    TypeRows({{"70", "30", "A"}, {"0", "0", "C"}});
    Save();
    school->EnterMark(1, 1, 69);
    EXPECT_EQ(GradeOnCard(), "C");
    AnotherClient()->Execute(QStringLiteral(
        "DELETE FROM MarkMaster WHERE ExamCode = 1 AND StudentCode = 1 AND SubjectCode = 1 AND ClassCode = 1 "
        "AND DivisionCode = 1 AND AcademicYearCode = 1"));
    ChooseDivision();
    PressKey(form, Qt::Key_Return);
    Press(Button("cmdEdit"));
    Click(1, 1);
    Enter("69");
    Save(QStringLiteral("Record Updated"));
    school->EnterMark(1, 1, 69);
    EXPECT_EQ(GradeOnCard(), "A");
}

} // namespace
} // namespace tally::test
