#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace tally::test {

namespace {

struct SourceFile
{
    QString path; ///< from src/ on
    QString area; ///< its first folder
    QString text;
};

QVector<SourceFile> SourceFiles()
{
    const QDir root(QStringLiteral(TALLY_SOURCE_FOLDER));
    QVector<SourceFile> files;
    QDirIterator iterator(root.path(),
                          {QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.ui")},
                          QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        QFile file(iterator.next());
        if (!file.open(QFile::ReadOnly))
            throw std::runtime_error(file.fileName().toStdString());
        const QString path = root.relativeFilePath(file.fileName());
        files.push_back({path, path.section(QLatin1Char('/'), 0, 0), QString::fromUtf8(file.readAll())});
    }
    return files;
}

QStringList Matches(const QString& text, const char* pattern)
{
    const QRegularExpression expression(QString::fromLatin1(pattern), QRegularExpression::MultilineOption);
    QStringList found;
    auto matches = expression.globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    return found;
}

/// The folders that a folder may include from, besides itself. A folder that is not named here is an area,
/// and may use core and store.
QSet<QString> Below(const QString& area)
{
    static const QSet<QString> underAreas{QStringLiteral("core"), QStringLiteral("store")};
    static const QHash<QString, QSet<QString>> special{
        {QStringLiteral("store"), {}},
        {QStringLiteral("core"), {QStringLiteral("store")}},
        // The shared plumbing of reports serves the rank list too.
        {QStringLiteral("ranks"), underAreas | QSet<QString>{QStringLiteral("reports")}},
    };
    return special.value(area, underAreas);
}

} // namespace

TEST(ArrowsTest, EveryFolderIncludesOnlyFromItselfAndFromBelow)
{
    const QVector<SourceFile> files = SourceFiles();
    ASSERT_GT(files.size(), 20);
    for (const SourceFile& file : files) {
        if (file.area == QLatin1String("app"))
            continue;
        for (const QString& folder : Matches(file.text, "^\\s*#include \"([^\"/]+)/"))
            EXPECT_TRUE(folder == file.area || Below(file.area).contains(folder))
                << file.path.toStdString() << " includes from " << folder.toStdString();
    }
}

TEST(ArrowsTest, OnlyTheStoreKnowsTheEngine)
{
    for (const SourceFile& file : SourceFiles()) {
        if (file.area != QLatin1String("store")) {
            EXPECT_TRUE(Matches(file.text, "#include <(sqlcipher|sqlite3)").isEmpty())
                << file.path.toStdString();
        }
    }
}

TEST(ArrowsTest, OnlyPromptsShowsMessageBoxesAndOnlyOpenDocumentStartsPrograms)
{
    for (const SourceFile& file : SourceFiles()) {
        if (file.path != QLatin1String("core/Prompts.cpp")) {
            EXPECT_TRUE(Matches(file.text, "#include <(QMessageBox|QFileDialog)>").isEmpty())
                << file.path.toStdString();
        }
        if (file.path != QLatin1String("core/OpenDocument.cpp")) {
            EXPECT_TRUE(Matches(file.text, "#include <(QProcess|QDesktopServices)>").isEmpty())
                << file.path.toStdString();
        }
    }
}

TEST(ArrowsTest, FormsHoldNoStatements)
{
    for (const SourceFile& file : SourceFiles()) {
        const QString name = file.path.section(QLatin1Char('/'), -1);
        if (name.startsWith(QLatin1String("frm")) || name.startsWith(QLatin1String("mdi"))) {
            EXPECT_TRUE(
                Matches(file.text, "\"\\s*(SELECT|INSERT INTO|UPDATE|DELETE FROM|CREATE|DROP) ").isEmpty())
                << file.path.toStdString();
        }
    }
}

} // namespace tally::test
