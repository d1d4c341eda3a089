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
    return files;
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

/// Whether some text literal has the shape of a statement.
bool HoldsStatement(const QString& code)
{
    static const QRegularExpression statement(
        QStringLiteral("\"[^\"\\n]*\\b(select\\b[^\"\\n]*\\bfrom|insert\\s+into|update\\b[^\"\\n]*\\bset|"
                       "delete\\s+from|(create|drop)\\s+table)\\s"),
        QRegularExpression::CaseInsensitiveOption);
    return statement.match(JoinedLiterals(code)).hasMatch();
}

} // namespace

TEST(HouseRulesTest, OnlyPromptsShowsMessageBoxesAndOnlyOpenDocumentStartsPrograms)
{
    for (const SourceFile& file : SourceFiles()) {
        if (file.path != QLatin1String("core/ui/Prompts.cpp")) {
            EXPECT_FALSE(Holds(file.text, "#include <(QMessageBox|QFileDialog)>")) << file.path.toStdString();
        }
        if (file.path != QLatin1String("core/ui/OpenDocument.cpp")) {
            EXPECT_FALSE(Holds(file.text, "#include <(QProcess|QDesktopServices)>"))
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

TEST(HouseRulesTest, AnInsertNamesItsColumns)
{
    // A column that is added to a table must not shift what is stored in the others. The working table alone
    // is laid down anew each time, in the function that fills it.
    static const QRegularExpression nameless(
        QStringLiteral("insert\\s+into\\s+(?!TempRankCalculation)\\w+\\s+values"),
        QRegularExpression::CaseInsensitiveOption);
    for (const SourceFile& file : SourceFiles())
        EXPECT_FALSE(JoinedLiterals(file.text).contains(nameless)) << file.path.toStdString();
}

TEST(HouseRulesTest, AStatementsKeyWordsAreInCapitals)
{
    static const QRegularExpression statement(
        QStringLiteral("\"(select|insert into|update|delete from|create table|drop table)\\b[^\"\\n]*"
                       "\\b(from|values|set|where)\\b"),
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
         {"Information(\"Select Exam Name\");", "\"Record Updated\"", "\"Select Class\"); // from the list",
          "cmdUpdate->setText(\"Update\"); set(\"a\");", "\"You Have No Privilege To Delete\""})
        EXPECT_FALSE(HoldsStatement(QString::fromLatin1(code))) << code;
}

} // namespace tally::test
