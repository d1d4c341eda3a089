#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <stdexcept>

namespace tally::test {

namespace {

struct SourceFile
{
    QString path; ///< from src/ on
    QString text;
};

QVector<SourceFile> SourceFiles()
{
    const QDir root(QStringLiteral(TALLY_SOURCE_FOLDER));
    QVector<SourceFile> files;
    QDirIterator iterator(root.path(), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                          QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        QFile file(iterator.next());
        if (!file.open(QFile::ReadOnly))
            throw std::runtime_error(file.fileName().toStdString());
        const QString path = root.relativeFilePath(file.fileName());
        files.push_back({path, QString::fromUtf8(file.readAll())});
    }
    EXPECT_GT(files.size(), 100);
    return files;
}

/// The texts of all forms, without the signs before their letters.
QString CaptionsOfForms()
{
    QString captions;
    QDirIterator forms(QStringLiteral(TALLY_SOURCE_FOLDER), {QStringLiteral("*.ui")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (forms.hasNext()) {
        QFile form(forms.next());
        EXPECT_TRUE(form.open(QFile::ReadOnly));
        captions += QString::fromUtf8(form.readAll()).remove(QLatin1String("&amp;"));
    }
    return captions;
}

bool Holds(const QString& text, const char* pattern)
{
    return QRegularExpression(QString::fromLatin1(pattern)).match(text).hasMatch();
}

/// The code with text literals that follow one another joined to one.
QString JoinedLiterals(QString code)
{
    static const QRegularExpression seam(QStringLiteral("\"\\s*\""));
    return code.remove(seam);
}

/// Whether some text literal has the shape of a statement. A word in quotes belongs to a message.
bool HoldsStatement(const QString& code)
{
    static const QRegularExpression statement(
        QStringLiteral(
            "\"[^\"\\n]*\\b(select\\b[^\"\\n]*(?<!')\\bfrom|insert\\s+into|update\\b[^\"\\n]*\\bset|"
            "delete\\s+from|(create|drop)\\s+table)\\s"),
        QRegularExpression::CaseInsensitiveOption);
    return statement.match(JoinedLiterals(code)).hasMatch();
}

/// The text literals of some code, those that follow one another joined.
QStringList Literals(const QString& code)
{
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\\n]|\\\\.)*)\""));
    QStringList texts;
    auto found = literal.globalMatch(JoinedLiterals(code));
    while (found.hasNext())
        texts.append(found.next().captured(1));
    return texts;
}

/// What in a text literal only one engine would take as a statement, or not as another would; empty for
/// nothing.
QString OnlyOneEngineTakes(const QString& text)
{
    static const QRegularExpression words(
        QStringLiteral(
            "\\bPRAGMA\\b|\\bsqlite_\\w+|\\bCOLLATE\\b|\\bNOCASE\\b|\\bROWID\\b|\\bAUTOINCREMENT\\b|"
            "\\b(?:ifnull|iif|strftime|julianday|date|datetime|group_concat|total|typeof|instr|"
            "printf|last_insert_rowid)\\(|\\bGLOB\\b|\\bINSERT OR\\b|\\bREPLACE INTO\\b|"
            "\\bBEGIN (?:IMMEDIATE|EXCLUSIVE)\\b|\\bAS \\[|\\?\\d|\\bLIMIT \\S+ *,|`"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression statement(
        QStringLiteral("\\b(SELECT|INSERT INTO|UPDATE|DELETE FROM|FROM|WHERE|AND|OR|ORDER BY|GROUP BY)\\b"));
    // A text in double quotes is a name elsewhere, and stands here behind AS alone; a comparison is no
    // number; LIKE heeds the case of letters.
    static const QRegularExpression heads(QStringLiteral("AS \\\\\"[^\\\\]+\\\\\""));
    static const QRegularExpression inStatements(
        QStringLiteral("==|\\\\\"|\\b(?:sum|count|avg|max|min)\\([^()]*[=<>]|\\bIS (?!NULL|NOT NULL)|"
                       "(?<!\\)) LIKE\\b"));
    const auto word = words.match(text);
    if (word.hasMatch())
        return word.captured();
    const bool isStatement = statement.match(text).hasMatch();
    return isStatement ? inStatements.match(QString(text).remove(heads)).captured() : QString();
}

/// The columns of a list that are neither summed up nor grouped by; most engines refuse such a list.
QStringList NotGrouped(const QString& text)
{
    static const QRegularExpression grouped(QStringLiteral(
        "SELECT (?:DISTINCT )?(.*?) FROM .*?GROUP BY (.*?)(?: ORDER BY .*| HAVING .*|\\).*)?$"));
    static const QRegularExpression comma(QStringLiteral(",\\s*(?![^()]*\\))"));
    static const QRegularExpression alias(QStringLiteral(" AS .*$"));
    const auto match = grouped.match(text);
    if (!match.hasMatch())
        return {};
    const QStringList groups = match.captured(2).split(comma);
    QStringList missing;
    for (QString column : match.captured(1).split(comma)) {
        column.remove(alias);
        static const QRegularExpression sum(QStringLiteral("^(count|sum|avg|min|max)\\("));
        if (!sum.match(column).hasMatch() && !groups.contains(column))
            missing.append(column);
    }
    return missing;
}

} // namespace

TEST(HouseRulesTest, AServerWouldTakeEveryStatementButThoseOfTheDialect)
{
    for (const SourceFile& file : SourceFiles()) {
        if (file.path == QLatin1String("store/Dialect.cpp"))
            continue;
        for (const QString& text : Literals(file.text)) {
            EXPECT_EQ(OnlyOneEngineTakes(text).toStdString(), "")
                << file.path.toStdString() << ": " << text.toStdString();
            EXPECT_EQ(NotGrouped(text).join(u' ').toStdString(), "")
                << file.path.toStdString() << ": " << text.toStdString();
        }
    }
}

TEST(HouseRulesTest, WhatAServerWouldNotTakeIsFoundAndNothingElse)
{
    for (const char* text :
         {"PRAGMA user_version", "SELECT count(*) FROM sqlite_master", " COLLATE BINARY",
          "SELECT ifnull(Grade, '') FROM RankMaster", "SELECT a.CityName AS [City Name] FROM CityMaster a",
          "SELECT Mark FROM MarkMaster WHERE ClassCode = ?1", "SELECT Mark FROM MarkMaster WHERE Mark == 5",
          R"(SELECT Mark FROM MarkMaster WHERE LeaveOrPresent = \"P\")",
          "SELECT sum(Mark > 40) FROM MarkMaster", "SELECT Mark FROM MarkMaster WHERE Mark IS ?",
          "SELECT CityName FROM CityMaster WHERE CityName LIKE :Search", " AND b.CityName LIKE :City",
          "INSERT OR REPLACE INTO Options (ExitPrompt) VALUES ('Y')", "SELECT date('now')",
          "SELECT Mark FROM MarkMaster LIMIT 5, 10", "BEGIN IMMEDIATE"})
        EXPECT_NE(OnlyOneEngineTakes(QString::fromLatin1(text)).toStdString(), "") << text;
    for (
        const char* text :
        {R"(SELECT CityName AS \"City Name\" FROM CityMaster WHERE upper(CityName) LIKE '%' || upper(:Search))",
         "SELECT coalesce(Grade, '') FROM RankMaster WHERE Grade IS NOT NULL AND Status = 1",
         "SELECT count(*) FROM ExamMaster WHERE ExamOrder = :ExamOrder AND ExamCode <> :Code",
         "Application Date (Today)", "Do You Want To Delete This Exam Name ?", "Is This Right?"})
        EXPECT_EQ(OnlyOneEngineTakes(QString::fromLatin1(text)).toStdString(), "") << text;
}

TEST(HouseRulesTest, AListThatGroupsByLessThanItShowsIsFound)
{
    const auto missing = [](const char* text) {
        return NotGrouped(QString::fromLatin1(text)).join(u' ').toStdString();
    };
    EXPECT_EQ(missing("SELECT ClassCode, SubjectCode, sum(Mark) FROM MarkMaster GROUP BY SubjectCode"),
              "ClassCode");
    EXPECT_EQ(missing("SELECT a.Grade AS Best, count(*) FROM RankMaster a GROUP BY a.Status ORDER BY Best"),
              "a.Grade");
    EXPECT_EQ(missing("SELECT ClassCode, count(*), max(Mark, 1) FROM MarkMaster GROUP BY ClassCode"), "");
    EXPECT_EQ(missing("SELECT ClassCode, Mark FROM MarkMaster ORDER BY ClassCode"), "");
}

TEST(HouseRulesTest,
     OnlyPromptsShowsMessageBoxesOnlyOpenDocumentStartsProgramsAndOnlyPrintPreviewMeetsPrinters)
{
    for (const SourceFile& file : SourceFiles()) {
        if (file.path != QLatin1String("core/ui/Prompts.cpp")) {
            EXPECT_FALSE(Holds(file.text, "#include <(QMessageBox|QFileDialog)>")) << file.path.toStdString();
        }
        if (file.path != QLatin1String("core/ui/OpenDocument.cpp")) {
            EXPECT_FALSE(Holds(file.text, "#include <(QProcess|QDesktopServices)>"))
                << file.path.toStdString();
        }
        if (file.path != QLatin1String("reports/output/PrintPreview.cpp")) {
            EXPECT_FALSE(Holds(file.text, "#include <(QAbstractPrint|QPrint|QPageSetup)\\w*>"))
                << file.path.toStdString();
        }
    }
}

TEST(HouseRulesTest, OnlyTheStoreTheRepositoriesAndTheDefinitionsHoldStatements)
{
    for (const SourceFile& file : SourceFiles()) {
        const QString name = file.path.section(QLatin1Char('/'), -1);
        if (!file.path.startsWith(QLatin1String("store/")) && !Holds(name, "(Repository|Definitions)\\.")) {
            EXPECT_FALSE(HoldsStatement(file.text)) << file.path.toStdString();
        }
    }
}

TEST(HouseRulesTest, WhatTheHelpQuotesIsWhatTheProgramSays)
{
    static const QRegularExpression quote(QStringLiteral("\\\\\"(.*?)\\\\\""));
    QString said = CaptionsOfForms();
    QString help;
    for (const SourceFile& file : SourceFiles()) {
        QString& text = file.path == QLatin1String("store/HelpTexts.cpp") ? help : said;
        text += Literals(file.text).join(QLatin1Char('\n')) + QLatin1Char('\n');
    }
    int quotes = 0;
    auto found = quote.globalMatch(help);
    while (found.hasNext()) {
        const QString text = found.next().captured(1);
        EXPECT_TRUE(said.contains(text)) << text.toStdString();
        ++quotes;
    }
    EXPECT_GE(quotes, 100);
}

TEST(HouseRulesTest, AnInsertNamesItsColumns)
{
    // A column that is added to a table must not shift what is stored in the others.
    static const QRegularExpression nameless(QStringLiteral("insert\\s+into\\s+\\w+\\s+values"),
                                             QRegularExpression::CaseInsensitiveOption);
    for (const SourceFile& file : SourceFiles())
        EXPECT_FALSE(JoinedLiterals(file.text).contains(nameless)) << file.path.toStdString();
}

TEST(HouseRulesTest, AStatementsKeyWordsAreInCapitals)
{
    static const QRegularExpression statement(
        QStringLiteral("\"(select|insert into|update|delete from|create table|drop table)\\b[^\"\\n]*"
                       "(?<!')\\b(from|values|set|where)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression small(QStringLiteral(
        "\\b([Ss]elect|[Ff]rom|[Ww]here|[Vv]alues|[Oo]rder [Bb]y|[Gg]roup [Bb]y|[Ii]nner [Jj]oin)\\b"));
    for (const SourceFile& file : SourceFiles()) {
        const QString code = JoinedLiterals(file.text);
        auto found = statement.globalMatch(code);
        while (found.hasNext())
            EXPECT_FALSE(found.next().captured().contains(small)) << file.path.toStdString();
    }
}

TEST(HouseRulesTest, AStatementIsFoundInAnyCaseAndAMessageIsNotTakenForOne)
{
    for (const char* code :
         {"Query(\"select * from Options\")", "\"SELECT Mark, Grade\"\n    \" FROM RankMaster\"",
          "\"Insert Into ScreenStatus values(?)\"", "\"update Options set ExitPrompt = 'N'\"",
          "\"Delete From ScreenStatus\""})
        EXPECT_TRUE(HoldsStatement(QString::fromLatin1(code))) << code;
    for (const char* code :
         {"Information(\"Select Exam Name\");", "\"Select 'From Date'\"", "\"Record Updated\"",
          "\"Select Class\"); // from the list", "cmdUpdate->setText(\"Update\"); set(\"a\");",
          "\"You Have No Privilege To Delete\""})
        EXPECT_FALSE(HoldsStatement(QString::fromLatin1(code))) << code;
}

} // namespace tally::test
