#include "store/HelpTexts.h"

namespace tally::store {

namespace {

constexpr HelpText Texts[] = {
    {1, "State Master",
     "Keep the list of states here. Press New, type the name and press Save. To change or delete a state, "
     "click on "
     "it in the list and answer Yes; a state that a city belongs to cannot be deleted. Type in the search "
     "box to "
     "shorten the list."},
    {2, "City Master",
     "Keep the cities of each state here. Choose the state first, then type the name of the city. The same "
     "name may "
     "stand in two states, but only once within one state. A city that a student, a teacher or the school "
     "lives in "
     "cannot be deleted."},
    {3, "SchoolSetUp",
     "Enter the name, the address and the city of your school, and the month in which your academic year "
     "starts. "
     "Reports and rank cards take their heading from here. The starting month cannot be changed any more "
     "once an "
     "academic year has been made."},
    {4, "Class&Section Details",
     "Keep all classes of the school and their divisions on one screen. Type the class, the number of its "
     "divisions "
     "and its order; 1 is the highest class, and every list of classes follows this order. Divisions are "
     "named A, B, "
     "C and so on, and each name can be typed over. Changing the number of divisions sets their names back. "
     "Nothing "
     "is stored before you press Save."},
    {5, "ExamName Master",
     "Keep the names of the examinations here. The exam order decides in which order exams are shown on all "
     "screens, "
     "so no two exams can have the same order. An exam that has marks or a grade table cannot be deleted."},
    {6, "Subject Master",
     "Keep the subjects here, each with its full name and a short name of up to six letters. The short name "
     "is the "
     "heading of the subject's column in rank lists and reports. Neither name may be used twice."},
    {7, "Blood Group Master",
     "Keep the list of blood groups here. They can then be chosen for students and teachers. A blood group "
     "that is in "
     "use cannot be deleted."},
    {8, "Salutation Master",
     "Keep the words that stand before a teacher's name here, such as Mr or Mrs. A teacher can only be "
     "stored with a "
     "salutation, so make at least one before you enter the teachers."},
    {9, "Teacher Master",
     "Enter the teachers here. Salutation, name and a short name of up to three letters must be filled; the "
     "rest may "
     "follow later. Tick the box in front of a date to use it; a wedding date can be given for a married "
     "teacher. "
     "Press Search to find a teacher who is already stored, and double click on the row to open it."},
    {10, "Student Master",
     "Enter a new student's details here before placing the student in a class. Depending on the Options "
     "screen the "
     "admission number is generated or typed by you. The date of birth limit and the gender must first be "
     "set in "
     "Options. The number shown on all other screens is the optional admission number. Press Search to find "
     "a "
     "student again."},
    {11, "Student Admission Entry",
     "Place a student in a class and division of the academic year in which you work. The list holds the "
     "students "
     "admitted in this year who have no class yet. A placement can be corrected or deleted as long as no "
     "marks are "
     "entered for the student and no promotion has been made."},
    {12, "Student Relieving Entry",
     "Record here that a student leaves the school: the date, the reason, and the number and date of the "
     "transfer "
     "certificate. From then on the student counts as relieved and is no longer offered by the other "
     "screens. Delete "
     "takes the relieving back."},
    {13, "AcademicYear SetUp",
     "Make the academic years of the school here, one after the other. Type the first year only; the dates "
     "follow from "
     "the starting month of the school setup. Exactly one year must be active. Only the last year can be "
     "deleted, and "
     "only while nothing has been entered for it."},
    {14, "AcademicYear Change",
     "Work in another academic year than the active one, for example to look at last year's marks. The "
     "change holds "
     "until you close the program, and only on this computer. A year that has been closed for work cannot be "
     "chosen."},
    {15, "ClassWise Subject - Teacher - Mark Entry",
     "Say which subjects a class and division takes, who teaches them and out of what marks. 'Maximum "
     "Allowed' is the "
     "highest mark that may be typed. Subjects with 'Taken For Rank' set to No are left out of the rank "
     "total. The "
     "subject order decides the order of the columns in all lists. Once marks are entered for a subject, "
     "only 'Maximum "
     "Allowed' and 'Taken For Rank' can be changed."},
    {16, "ClassWise Subject - Teacher - Mark Entry - Copy",
     "Copy the subjects of one class and division to another, in this academic year or the next. Choose the "
     "source on the 'From' side and the target on the 'To' side, press Copy, look the rows over and press "
     "Save. A division name with a mark in front already has its subjects."},
    {17, "ClassWise Rank - Grade Setup",
     "Enter the grades of one exam for a class and division. Start with the highest average and go down; the "
     "last row "
     "must hold 0 in both average columns, so that every student gets a grade. Once marks are entered for "
     "the exam the "
     "grades cannot be changed."},
    {18, "ClassWise Rank - Grade Setup - Copy",
     "Copy the grades of one exam and division to other divisions, to another exam or to the next academic "
     "year. "
     "Choose the source, tick the divisions that shall receive the grades, press Copy and then Save."},
    {19, "ClassWise Mark Entry",
     "Enter the marks of an exam, either one subject for all students or all subjects of one student. Type "
     "the mark and "
     "press Enter to go to the next cell. Choose Absent for a student who did not write the exam. A mark "
     "above 'Maximum "
     "Allowed' is refused. The average is shown while you type; nothing is stored before you press Save."},
    {20, "Promotion Entry",
     "Take students over into the next academic year, into the next higher class or once more into the same "
     "class. "
     "Tick the students, move them to the right with > and press Save. Students can be moved back with < as "
     "long as "
     "they have no marks in the new class. The next academic year must exist."},
    {21, "Rank List Preparation",
     "Prepare the rank list of an exam for one or more divisions of a class. A mark before a division tells "
     "what is "
     "missing: students, subjects, grades or marks. Divisions ranked together must have the same subjects, "
     "maximum "
     "marks and grades. Choose how the list is ordered, look at the summary by grade, and press Save so that "
     "rank cards "
     "can be made. Export brings the list into a spreadsheet."},
    {22, "Rank Card Printing",
     "Make rank cards for the students and exams you tick. Each exam stands on one line with the marks of "
     "all subjects, "
     "the total, average, rank and grade. Rank and grade appear only after the rank list of the exam was "
     "saved. Export "
     "lays the cards out in a spreadsheet for printing."},
    {23, "Subject Average - Based On Class - Division",
     "Compare the divisions of a class: the average of each subject in percent, for one exam. Choose exam, "
     "class, "
     "divisions and subjects, then proceed. The result can be shown as a chart and exported to a "
     "spreadsheet."},
    {24, "Subject Average - Based On Exam(s)",
     "Compare exams: the average mark of each subject of one division, one row for each exam. Choose the "
     "exams, the "
     "class, the division and the subjects, then proceed. The result can be shown as a chart and exported."},
    {25, "Student Mark Comparison - Based On Exam(s)",
     "Follow one student from exam to exam: one row for each exam, one column for each subject, and the "
     "averages at the "
     "end. The result can be printed, exported or shown as a bar or line chart."},
    {26, "Student Mark Comparison - Based On Academic Year(s)",
     "Follow one student from year to year in the same exam: one row for each academic year with the class "
     "of that "
     "year. Choose the student through the present class, tick the years and the subjects, and proceed."},
    {27, "Students List - Below Class Average",
     "List the students whose mark in a subject lies below the class average, or below a value that you "
     "type. The "
     "detailed report names the students, the summary counts them subject by subject. Both can be exported "
     "and "
     "printed."},
    {28, "Students List - Above Class Average",
     "List the students whose mark in a subject lies above the class average, or above a value that you "
     "type. The "
     "detailed report names the students, the summary counts them subject by subject. Both can be exported "
     "and "
     "printed."},
    {29, "Class List",
     "List the students of the divisions you tick, in the order of their admission numbers or of their "
     "names. Export "
     "brings the list into a spreadsheet."},
    {30, "Classwise Subject - Teacher - Mark Report",
     "See who teaches which subject in which class and division, out of what marks, and which subjects count "
     "for the "
     "rank. Choose all classes or one, all divisions or one, and press View. The export adds the total mark "
     "of each "
     "division."},
    {31, "Application Date Setup",
     "Add the next working day, or take the last one away. The application date is the office's today: entry "
     "screens "
     "compare their dates with it. It stays within the academic year and at most 31 days ahead. Only one "
     "computer can "
     "open this screen at a time."},
    {32, "Application Date Change",
     "Work with an earlier application date than the last one. How many days you may go back is set for each "
     "user in "
     "User Privileges. The change holds until you close the program."},
    {33, "User Master",
     "Keep the names of the people who use the program. A name alone cannot log in: give it a login and "
     "rights in User "
     "Privileges."},
    {34, "User Privileges",
     "Give a person a login, a password and rights. Tick in the tree what the person may open, and below "
     "each screen "
     "whether entries may be made, changed or deleted. A blocked person cannot log in. At least one person "
     "must always "
     "keep the right to this screen. Rights can be copied from one person to another."},
    {35, "Database Backup / Database Restore",
     "Copy the school's data to a file of your choice, or bring such a copy back. Keep backups on another "
     "disk, and "
     "take one every day. Restoring replaces all present data with that of the backup. Details shows what "
     "was backed up "
     "and restored, and when."},
    {37, "Options",
     "Set how the program works: whether a screen asks before it closes, whether admission numbers are "
     "generated, the "
     "latest date of birth and the gender for new students, and whether marks have fractions or are rounded "
     "in reports. "
     "Press Save to keep the settings; the question before closing is also kept for each user."},
};

} // namespace

std::span<const HelpText> HelpTexts()
{
    return Texts;
}

} // namespace tally::store
