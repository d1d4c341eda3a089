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

} // namespace

TEST(HouseRulesTest, OnlyPromptsShowsMessageBoxesAndOnlyOpenDocumentStartsPrograms)
{
    for (const SourceFile& file : SourceFiles()) {
        if (file.path != QLatin1String("core/Prompts.cpp")) {
            EXPECT_FALSE(Holds(file.text, "#include <(QMessageBox|QFileDialog)>")) << file.path.toStdString();
        }
        if (file.path != QLatin1String("core/OpenDocument.cpp")) {
            EXPECT_FALSE(Holds(file.text, "#include <(QProcess|QDesktopServices)>"))
                << file.path.toStdString();
        }
    }
}

TEST(HouseRulesTest, FormsHoldNoStatements)
{
    for (const SourceFile& file : SourceFiles()) {
        const QString name = file.path.section(QLatin1Char('/'), -1);
        if (name.startsWith(QLatin1String("frm")) || name.startsWith(QLatin1String("mdi"))) {
            EXPECT_FALSE(Holds(file.text, "\"\\s*(SELECT|INSERT INTO|UPDATE|DELETE FROM|CREATE|DROP) "))
                << file.path.toStdString();
        }
    }
}

} // namespace tally::test
