#include "students/StudentRules.h"

#include "students/StudentRows.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

const QDate Today(2024, 6, 10);

StudentFacts Facts()
{
    StudentFacts facts;
    facts.settings = {.latestBirth = QDate(2018, 5, 31), .gender = QStringLiteral("A")};
    facts.today = Today;
    return facts;
}

TEST(StudentRules, AStudentWithNothingAgainstHimPasses)
{
    EXPECT_EQ(FaultOf(StudentNamed(0, "Anu"), Facts()), StudentFault::None);
    EXPECT_EQ(FaultText(StudentFault::None).toStdString(), "");
}

TEST(StudentRules, WhatSpeaksAgainstAStudentIsToldInTheOfficesOrder)
{
    Student student = StudentNamed(4, "Anu");
    student.admissionDate = Today.addDays(1);
    student.dateOfBirth = Today.addDays(1);
    StudentFacts facts;
    facts.today = Today;
    facts.numberTaken = facts.optionalNumberTaken = facts.relieved = true;
    const auto next = [&] { return FaultText(FaultOf(student, facts)).toStdString(); };
    EXPECT_EQ(next(), "Admission No. Already Exists");
    facts.numberTaken = false;
    EXPECT_EQ(next(), "Admission Cannot Be Made On Future Date");
    student.admissionDate = Today;
    EXPECT_EQ(next(), "Student Is Already Relieved");
    facts.relieved = false;
    EXPECT_EQ(next(), "Without Setting 'Date Of Birth In Options Screen', Student Details Cannot Be Saved");
    facts.settings.latestBirth = Today;
    EXPECT_EQ(next(), "Date Of Birth Is Greater Than 'Date Of Birth In Options Screen'");
    student.dateOfBirth = Today;
    EXPECT_EQ(next(), "Date Of Birth Should Be Less Than Admission Date");
    student.dateOfBirth = Today.addDays(-1);
    EXPECT_EQ(next(), "Optional Admission No. Already Exists");
    facts.optionalNumberTaken = false;
    EXPECT_EQ(next(), "Without Setting 'Gender In Options Screen' Student Details Cannot Be Saved");
    for (const char* gender : {"M", "F", "A"}) {
        facts.settings.gender = QString::fromLatin1(gender);
        EXPECT_EQ(next(), "") << "the setting presets a gender and forbids none";
    }
}

TEST(StudentRules, NobodyIsAdmittedAfterTheWorkingDateNorWithoutOne)
{
    EXPECT_EQ(FaultOfAdmission(Today.addYears(-30), Today), StudentFault::None);
    EXPECT_EQ(FaultOfAdmission(Today, Today), StudentFault::None);
    EXPECT_EQ(FaultOfAdmission(Today.addDays(1), Today), StudentFault::AdmissionInFuture);
    EXPECT_EQ(FaultOfAdmission(Today.addYears(-30), {}), StudentFault::AdmissionInFuture);
}

TEST(StudentRules, AStudentIsBornByTheLatestDaySetAndBeforeHisAdmission)
{
    const QDate latest(2020, 2, 29);
    const QDate admission(2024, 2, 29);
    EXPECT_EQ(FaultOfBirth(latest, latest, admission), StudentFault::None) << "born on a leap day";
    EXPECT_EQ(FaultOfBirth(latest.addDays(1), latest, admission), StudentFault::BornTooLate);
    EXPECT_EQ(FaultOfBirth(latest.addYears(-100), latest, admission), StudentFault::None);
    EXPECT_EQ(FaultOfBirth(admission.addDays(-1), admission, admission), StudentFault::None);
    EXPECT_EQ(FaultOfBirth(admission, admission, admission), StudentFault::BirthNotBeforeAdmission);
    EXPECT_EQ(FaultOfBirth(admission.addDays(1), {}, admission), StudentFault::BirthNotBeforeAdmission);
    EXPECT_EQ(FaultOfBirth(admission.addDays(-1), {}, admission), StudentFault::None);
}

TEST(StudentRules, TheClerkTypesTheNumbersThatTheSystemDoesNotGenerate)
{
    Student generated = StudentNamed(4, "Anu");
    generated.numberGenerated = true;
    const Student typed = StudentNamed(5, "Binu");
    const Student newcomer = StudentNamed(0, "Chandra");
    for (const Student& student : {generated, typed, newcomer}) {
        EXPECT_TRUE(TypesNumber(student, false));
        EXPECT_TRUE(TypesOptionalNumber(student, false));
    }
    EXPECT_FALSE(TypesNumber(newcomer, true));
    EXPECT_FALSE(TypesNumber(generated, true));
    EXPECT_TRUE(TypesNumber(typed, true));
    EXPECT_FALSE(TypesOptionalNumber(newcomer, true));
    EXPECT_TRUE(TypesOptionalNumber(generated, true)) << "the school's own number can always be changed";
    EXPECT_TRUE(TypesOptionalNumber(typed, true));
}

TEST(StudentRules, TheEndOfTheNumbersSaysWhatCanStillBeDone)
{
    EXPECT_EQ(FaultText(StudentFault::NumbersUsedUp).toStdString(),
              "Auto Generation Of Admission No. Is Not Possible, Because It Has Reached The "
              "Limit(999999999).\nYou Can Create Students With Manual Admission No. Entry Option.\n"
              "Admission No. Should Be Less Than The Above Mentioned Limit.");
}

} // namespace
} // namespace tally::test
