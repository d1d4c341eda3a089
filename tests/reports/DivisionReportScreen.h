#pragma once

#include "core/shell/mdiTallyboard.h"
#include "reports/ReportDriver.h"
#include "support/TestPaper.h"

#include <QCheckBox>

namespace tally::test {

/// A report over several divisions of a class.
template <typename Form>
class DivisionReportScreen : public ReportDriver<Form>
{
protected:
    using Base = ReportDriver<Form>;
    using Base::grid;
    using Base::school;

    /// Division B (code 1) with Binu, absent in Mat, and Cara; division A (code 2) with Asha. Both take Eng
    /// and Mat out of 100, and Mor, which is not taken for rank, out of 50.
    void GivenTwoDivisions()
    {
        GivenDivision(1, "B");
        GivenDivision(2, "A");
        const int asha = school->AddStudent(2, QStringLiteral("Asha"));
        const int binu = school->AddStudent(1, QStringLiteral("Binu"));
        const int cara = school->AddStudent(1, QStringLiteral("Cara"));
        EnterMarks(asha, {60, 80, 10});
        EnterMarks(binu, {30, std::nullopt, 20});
        EnterMarks(cara, {45.5, 50, 30});
    }

    /// With the three subjects, Mor as `mor` says, and nobody in it.
    void GivenDivision(int code, const char* name, const char* mor = "No", double maximum = 100)
    {
        school->AddDivision(code, name);
        school->AddSubject(code, 1, "Eng", 1, "Yes", maximum, maximum);
        school->AddSubject(code, 2, "Mat", 2);
        school->AddSubject(code, 3, "Mor", 3, mor, 50, 50);
    }

    /// In the subjects from 1 on; none means absent.
    void EnterMarks(int student, const std::vector<std::optional<double>>& marks)
    {
        int subject = 0;
        for (const std::optional<double>& mark : marks) {
            ++subject;
            if (mark)
                school->EnterMark(student, subject, *mark);
            else
                school->EnterAbsence(student, subject);
        }
    }

    void GivenStudentWithMarks(int division, const char* name,
                               const std::vector<std::optional<double>>& marks)
    {
        EnterMarks(school->AddStudent(division, QString::fromLatin1(name)), marks);
    }

    static constexpr int ManyExams = 60;
    static constexpr int ManySubjects = 40;

    /// Many exams, and a division in which Asha has 80, Binu 20 and Cara 90 in each of many subjects.
    void GivenManyExamsAndSubjects()
    {
        for (int exam = 2; exam <= ManyExams; ++exam)
            Base::Given("INSERT INTO ExamMaster VALUES (?, ?, ?, 0)", exam,
                        QStringLiteral("Test %1").arg(exam), exam);
        school->AddDivision(1, "A");
        for (int subject = 1; subject <= ManySubjects; ++subject)
            school->AddSubject(1, subject, ("S" + std::to_string(subject)).c_str(), subject);
        for (const auto& [name, mark] : {std::pair{"Asha", 80.0}, {"Binu", 20.0}, {"Cara", 90.0}})
            GivenStudentWithMarks(1, name, std::vector<std::optional<double>>(ManySubjects, mark));
    }

    /// A name of so many letters, of which only the first is another one.
    static QString LongName(char first, int letters)
    {
        return QLatin1Char(first) + QString(letters - 1, u'w');
    }

    /// All names are as long as the tables take them: exam E, class X, divisions A and B, subjects M,
    /// students A to C with a hundred letters.
    void GivenLongNames()
    {
        Base::Given("UPDATE ExamMaster SET ExamName = ? WHERE ExamCode = 1", LongName('E', 50));
        Base::Given("UPDATE ClassDivisionMaster SET ClassName = ? WHERE ClassCode = 1", LongName('X', 4));
        Base::Given(
            "UPDATE ClassDivisionDetails SET DivisionName = DivisionName || 'ww' WHERE ClassCode = 1");
        Base::Given("UPDATE SubjectMaster SET SubjectName = ?, SubjectShortName = ? WHERE SubjectCode > 0",
                    LongName('M', 25), LongName('M', 6));
        Base::Given("UPDATE StudentMaster SET StudentName = substr(StudentName, 1, 1) || ? WHERE "
                    "StudentCode > 0",
                    QString(99, u'w'));
    }

    void ChooseAllWithLongNames() { ChooseAll(LongName('E', 50), LongName('X', 4)); }

    /// Of what the selection names nothing is left in the year, as when another client takes the year back.
    void GivenNothingOfTheYear()
    {
        Base::LeaveOthersUnguarded();
        for (const char* table : {"MarkMaster", "ClassSubjectTeacher", "StudentClassDivision"})
            Session().gcnnMain->Execute(
                QStringLiteral("DELETE FROM %1 WHERE AcademicYearCode = 1").arg(QLatin1String(table)));
    }

    /// What was printed last leaves no word beyond the edges of its pages.
    void ExpectPrintWithinItsPages()
    {
        ASSERT_FALSE(Base::output->printed.empty());
        const PrintJob& job = Base::output->printed.back();
        TestPaper paper(job.orientation);
        job.paint(paper);
        for (const TestPaper::Page& page : paper.Pages())
            for (const TestPaper::Word& word : page.words)
                EXPECT_TRUE(paper.Edges().contains(word.place)) << word.text.toStdString();
    }

    /// Whether the list's items stand whole in it, at least five of them.
    static void ExpectWholeLines(const CheckList* list)
    {
        ASSERT_GE(list->count(), 6);
        const QRect room = list->viewport()->rect();
        EXPECT_TRUE(room.contains(list->visualItemRect(list->item(4)).adjusted(0, 0, -1, 0)))
            << list->objectName().toStdString() << " is " << room.height() << " high";
        int cut = 0;
        for (int index = 0; index < list->count(); ++index) {
            const QRect item = list->visualItemRect(list->item(index));
            constexpr int Seen = 4; // less than that shows nothing of the letters
            cut += item.top() + Seen < room.bottom() && item.bottom() > room.bottom() ? 1 : 0;
        }
        EXPECT_EQ(cut, 0);
    }

    /// The lists reach to the right edge of the selection, at 800 x 600 and beyond, or are as wide as a list
    /// of names may become.
    void ExpectListsToUseTheRoom(const char* formName)
    {
        for (const QSize size : {QSize(800, 600), QSize(1400, 900)}) {
            SCOPED_TRACE(size.width());
            Base::window->setWindowState(Qt::WindowNoState);
            Base::window->resize(size);
            Base::OpenReport(formName, {Side::Year, Side::Exam, Side::Class, Side::Division});
            const auto* frame = Find<QWidget>(Base::form, "fraSelection");
            for (const char* name : {"Lstdivision", "Lstsubjects"}) {
                auto* list = Find<CheckList>(Base::form, name);
                list->clear();
                for (int item = 1; item <= 12; ++item)
                    list->AddItem({item, QStringLiteral("  Item %1").arg(item), {}});
                Settle();
                ExpectWholeLines(list);
            }
            const auto* last = Find<QWidget>(Base::form, "Lstsubjects");
            constexpr int Margin = 12;
            if (last->width() < last->maximumWidth()) {
                EXPECT_GE(last->mapTo(frame, QPoint(last->width(), 0)).x(), frame->width() - Margin);
            }
            Press(Base::Button("cmdExit"));
            Settle();
        }
    }

    void OpenReport(const char* formName, const char* selectDivisions, const char* selectSubjects)
    {
        Base::OpenReport(formName, {Side::Year, Side::Exam, Side::Class, Side::Division});
        exams = Base::List("Cboexamname");
        classes = Base::List("cboClass");
        divisions = Find<CheckList>(Base::form, "Lstdivision");
        allDivisions = Find<QCheckBox>(Base::form, selectDivisions);
        subjects = Find<CheckList>(Base::form, "Lstsubjects");
        allSubjects = Find<QCheckBox>(Base::form, selectSubjects);
    }

    void ChooseClass(const QString& exam = QStringLiteral("Term One"),
                     const QString& className = QStringLiteral("X"))
    {
        Base::Choose("Cboexamname", exam);
        Base::Choose("cboClass", className);
    }

    void ChooseAll(const QString& exam = QStringLiteral("Term One"),
                   const QString& className = QStringLiteral("X"))
    {
        ChooseClass(exam, className);
        Press(allDivisions);
        Press(allSubjects);
    }

    void Display(const char* option)
    {
        Press(Base::Option(option));
        Settle();
    }

    DataCombo* exams = nullptr;
    DataCombo* classes = nullptr;
    CheckList* divisions = nullptr;
    QCheckBox* allDivisions = nullptr;
    CheckList* subjects = nullptr;
    QCheckBox* allSubjects = nullptr;
};

} // namespace tally::test
