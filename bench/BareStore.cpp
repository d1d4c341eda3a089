#include "bench/BareStore.h"

#include <QDir>

#define SQLITE_HAS_CODEC
#include <sqlcipher/sqlite3.h>

namespace tally::bench {

namespace {

void Require(bool holds, sqlite3* engine)
{
    if (!holds)
        qFatal("%s", sqlite3_errmsg(engine));
}

/// A prepared statement, finalized at the end.
class Rows
{
public:
    Rows(sqlite3* engine, const QByteArray& sql) : engine_(engine)
    {
        Require(sqlite3_prepare_v2(engine, sql.constData(), -1, &handle_, nullptr) == SQLITE_OK, engine);
    }
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ~Rows() { sqlite3_finalize(handle_); }

    void Bind(int position, int value) { sqlite3_bind_int(handle_, position, value); }
    void Bind(int position, const QByteArray& text)
    {
        sqlite3_bind_text(handle_, position, text.constData(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT);
    }
    int Placeholders() const { return sqlite3_bind_parameter_count(handle_); }
    int Columns() const { return sqlite3_column_count(handle_); }
    const unsigned char* Text(int column) const { return sqlite3_column_text(handle_, column); }
    bool Next()
    {
        const int result = sqlite3_step(handle_);
        Require(result == SQLITE_ROW || result == SQLITE_DONE, engine_);
        return result == SQLITE_ROW;
    }
    void Reset() { sqlite3_reset(handle_); }
    int Int(int column) const { return sqlite3_column_int(handle_, column); }
    double Double(int column) const { return sqlite3_column_double(handle_, column); }

private:
    sqlite3* engine_;
    sqlite3_stmt* handle_ = nullptr;
};

QByteArray ScopeCondition()
{
    const SchoolScope scope = BenchSchool::Scope();
    return QStringLiteral("AcademicYearCode=%1 and ExamCode=%2 and ClassCode=%3")
        .arg(scope.academicYearCode)
        .arg(scope.examCode)
        .arg(scope.classCode)
        .toLatin1();
}

} // namespace

void BareStore::Close::operator()(sqlite3* engine) const
{
    sqlite3_close_v2(engine);
}

BareStore::BareStore(const QString& folder)
{
    sqlite3* engine = nullptr;
    const QByteArray path = QDir(folder).filePath(QStringLiteral("Tallyboard.mdb")).toUtf8();
    const int opened = sqlite3_open_v2(path.constData(), &engine, SQLITE_OPEN_READWRITE, nullptr);
    engine_.reset(engine);
    Require(opened == SQLITE_OK, engine);
    const QByteArray key = BenchSchool::Password().toUtf8();
    Require(sqlite3_key(engine, key.constData(), static_cast<int>(key.size())) == SQLITE_OK, engine);
    // The same settings as the program's own connection.
    for (const char* setting :
         {"cipher_compatibility = 3", "cipher_page_size = 4096", "kdf_iter = 1000", "foreign_keys = ON",
          "journal_mode = DELETE", "synchronous = FULL", "temp_store = MEMORY"})
        Run(QStringLiteral("PRAGMA ") + QLatin1String(setting));
}

void BareStore::Run(const QString& sql)
{
    Rows rows(engine_.get(), sql.toUtf8());
    while (rows.Next()) {
    }
}

double BareStore::SumByStudent()
{
    Rows rows(engine_.get(), "Select StudentCode,Sum(Mark) from MarkMaster where " + ScopeCondition() +
                                 " and DivisionCode in (1,2,3,4) group by StudentCode");
    double sum = 0;
    while (rows.Next())
        sum += rows.Double(1);
    return sum;
}

std::vector<BareStore::Student> BareStore::Students()
{
    const SchoolScope scope = BenchSchool::Scope();
    Rows rows(engine_.get(), QStringLiteral("Select StudentCode,DivisionCode from StudentClassDivision where "
                                            "AcademicYearCode=%1 and ClassCode=%2")
                                 .arg(scope.academicYearCode)
                                 .arg(scope.classCode)
                                 .toLatin1());
    std::vector<Student> students;
    while (rows.Next())
        students.push_back({rows.Int(0), rows.Int(1)});
    return students;
}

std::vector<int> BareStore::Subjects()
{
    Rows rows(engine_.get(), "Select distinct SubjectCode from ClassSubjectTeacher where ClassCode=1");
    std::vector<int> subjects;
    while (rows.Next())
        subjects.push_back(rows.Int(0));
    return subjects;
}

double BareStore::MarkByMark()
{
    const QString sql = QStringLiteral("Select Mark from MarkMaster where ") +
                        QString::fromLatin1(ScopeCondition()) +
                        QStringLiteral(" and DivisionCode=%1 and StudentCode=%2 and SubjectCode=%3");
    const std::vector<int> subjects = Subjects();
    double sum = 0;
    for (const Student& student : Students()) {
        for (const int subject : subjects) {
            Rows rows(engine_.get(), sql.arg(student.division).arg(student.code).arg(subject).toUtf8());
            if (rows.Next())
                sum += rows.Double(0);
        }
    }
    return sum;
}

double BareStore::MarkByMarkPrepared()
{
    Rows rows(engine_.get(), "Select Mark from MarkMaster where " + ScopeCondition() +
                                 " and DivisionCode=? and StudentCode=? and SubjectCode=?");
    const std::vector<int> subjects = Subjects();
    double sum = 0;
    for (const Student& student : Students()) {
        for (const int subject : subjects) {
            rows.Reset();
            rows.Bind(1, student.division);
            rows.Bind(2, student.code);
            rows.Bind(3, subject);
            if (rows.Next())
                sum += rows.Double(0);
        }
    }
    return sum;
}

int BareStore::InsertMarks(int examCode, int divisionCode, int subjectCode)
{
    const std::vector<Student> students = Students();
    int count = 0;
    Run(QStringLiteral("BEGIN IMMEDIATE"));
    {
        Rows rows(
            engine_.get(),
            "Insert into MarkMaster(AcademicYearCode,StudentCode,ExamCode,ClassCode,DivisionCode,SubjectCode,"
            "Mark,LeaveOrPresent,TeacherCode,UserCode) values(1,?,?,1,?,?,55,'P',0,1)");
        for (const Student& student : students) {
            if (student.division != divisionCode)
                continue;
            rows.Reset();
            int position = 0;
            for (const int value : {student.code, examCode, divisionCode, subjectCode})
                rows.Bind(++position, value);
            rows.Next();
            ++count;
        }
    }
    Run(QStringLiteral("COMMIT"));
    return count;
}

int BareStore::Write(const std::vector<BareChange>& changes)
{
    const int before = sqlite3_total_changes(engine_.get());
    Run(QStringLiteral("BEGIN IMMEDIATE"));
    for (const BareChange& change : changes) {
        Rows rows(engine_.get(), change.sql);
        for (const QList<QByteArray>& values : change.runs) {
            rows.Reset();
            int position = 0;
            for (const QByteArray& value : values)
                rows.Bind(++position, value);
            rows.Next();
        }
    }
    Run(QStringLiteral("COMMIT"));
    return sqlite3_total_changes(engine_.get()) - before;
}

int BareStore::ReadAll(const QString& sql, const QString& text)
{
    Rows rows(engine_.get(), sql.toUtf8());
    rows.Bind(1, text.toUtf8());
    for (int position = 2; position <= rows.Placeholders(); ++position)
        rows.Bind(position, 0);
    int count = 0;
    for (; rows.Next(); ++count)
        for (int column = 0; column < rows.Columns(); ++column)
            rows.Text(column);
    return count;
}

} // namespace tally::bench
