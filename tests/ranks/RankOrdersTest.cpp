#include "support/TestSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// Two divisions whose subjects, bands and students were entered in another order than the list has them in.
class RankOrders : public testing::Test
{
protected:
    RankOrders()
    {
        school.AddDivision(1, "A");
        school.AddDivision(2, "B");
        school.main.Execute(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)"));
        school.main.Execute(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (2, 'P', 1)"));
        school.AddSubject(1, 3, "Art", 2);
        school.AddSubject(1, 1, "Eng", 2);
        school.AddSubject(2, 1, "Eng", 2);
        school.AddSubject(2, 4, "Phy", 1);
        school.AddBand(2, 40, 40, "A", 2);
        school.AddBand(2, 80, 80, "A", 1);
        school.AddBand(1, 40, 40, "A", 2);
        school.AddBand(1, 80, 80, "B", 1);
        school.AddStudent(2, QStringLiteral("Anil"));
        school.AddStudent(1, QStringLiteral("Bina"));
        school.AddStudent(1, QStringLiteral("Chand"));
        school.main.Execute(
            QStringLiteral("UPDATE StudentClassDivision SET Status = 'N' WHERE StudentCode = 3"));
    }

    TestSchool school;
    RankRepository repository{school.main};
};

TEST_F(RankOrders, SubjectsStandByTheirNumberThenByDivisionThenByCode)
{
    QStringList texts;
    for (const SubjectSetup& subject : school.Divisions().LoadSubjectSetup(school.scope))
        texts.append(QStringLiteral("%1 %2").arg(subject.divisionCode).arg(subject.subjectCode));
    EXPECT_EQ(texts.join(QLatin1String("; ")).toStdString(), "2 4; 1 1; 1 3; 2 1");
}

TEST_F(RankOrders, BandsStandByDivisionThenByTheirNumber)
{
    QStringList texts;
    for (const GradeBand& band : school.Divisions().LoadGradeBands(school.scope))
        texts.append(
            QStringLiteral("%1 %2 %3")
                .arg(QString::number(band.divisionCode), band.grade, QString::number(band.totalAverage)));
    EXPECT_EQ(texts.join(QLatin1String("; ")).toStdString(), "1 B 80; 1 A 40; 2 A 80; 2 A 40");
}

TEST_F(RankOrders, StudentsStandByDivisionThenByCode)
{
    QStringList codes;
    for (const RankStudent& student : repository.LoadRankInput(school.scope, {1, 2}).students)
        codes.append(QString::number(student.studentCode));
    EXPECT_EQ(codes.join(QLatin1Char(' ')).toStdString(), "2 3 1");
}

TEST_F(RankOrders, EachDivisionHasItsOwnNameAndFullMark)
{
    school.AddSubject(2, 3, "Art", 3, "Yes", 100, 50);
    const RankInput input = repository.LoadRankInput(school.scope, {1, 2});
    ASSERT_EQ(input.divisions.size(), 2U);
    EXPECT_EQ(input.divisions[0].divisionName.toStdString(), "A");
    EXPECT_EQ(input.divisions[1].divisionName.toStdString(), "B");
    EXPECT_EQ(input.fullMarks, (std::vector<std::optional<double>>{200, 250}));
}

TEST_F(RankOrders, GradesStandByTheirNumberThenByNameAndEachOnce)
{
    const auto joined = [](const std::vector<QString>& grades) {
        return QStringList(grades.begin(), grades.end()).join(QLatin1Char(' ')).toStdString();
    };
    EXPECT_EQ(joined(repository.LoadGradesInOrder(school.scope, {1, 2})), "A B A");
    EXPECT_EQ(joined(repository.LoadRankInput(school.scope, {1, 2}).grades), "A B");
}

} // namespace
} // namespace tally::test
