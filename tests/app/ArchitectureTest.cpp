#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

namespace tally {
namespace {

const QString SourceFolder = QStringLiteral(TALLY_SOURCE_FOLDER);

struct SourceFile
{
    QString path; ///< within src/
    QStringList includes;
    QString Area() const { return path.section(QLatin1Char('/'), 0, 0); }
};

/// The folders that a folder's files may include, itself aside.
QStringList MayInclude(const QString& area)
{
    if (area == QLatin1String("store"))
        return {};
    if (area == QLatin1String("core"))
        return {QStringLiteral("store")};
    if (area == QLatin1String("app"))
        return QDir(SourceFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QStringList allowed{QStringLiteral("store"), QStringLiteral("core")};
    if (area == QLatin1String("ranks"))
        allowed.append(QStringLiteral("reports"));
    return allowed;
}

QStringList IncludesOf(const QString& path)
{
    static const QRegularExpression include(QStringLiteral("^#include [<\"]([^>\"]+)[>\"]"),
                                            QRegularExpression::MultilineOption);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList names;
    auto found = include.globalMatch(QString::fromUtf8(file.readAll()));
    while (found.hasNext())
        names.append(found.next().captured(1));
    return names;
}

QList<SourceFile> SourceFiles()
{
    QList<SourceFile> files;
    QDirIterator each(SourceFolder, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                      QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (each.hasNext()) {
        const QString path = each.next();
        files.append({QDir(SourceFolder).relativeFilePath(path), IncludesOf(path)});
    }
    return files;
}

/// The names that a folder's build file lists under DOMAIN.
QStringList DomainUnits(const QString& area)
{
    QFile list(SourceFolder + QLatin1Char('/') + area + QStringLiteral("/CMakeLists.txt"));
    if (!list.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression domain(QStringLiteral("DOMAIN([^)]*?)(SCREENS|\\))"),
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression unit(QStringLiteral("(\\S+)\\.cpp"));
    QStringList units;
    auto found = unit.globalMatch(domain.match(QString::fromUtf8(list.readAll())).captured(1));
    while (found.hasNext())
        units.append(area + QLatin1Char('/') + found.next().captured(1));
    return units;
}

bool IsWidgetHeader(const QString& include)
{
    static const QStringList coreHeaders{QStringLiteral("QByteArray"),
                                         QStringLiteral("QChar"),
                                         QStringLiteral("QCoreApplication"),
                                         QStringLiteral("QDate"),
                                         QStringLiteral("QDateTime"),
                                         QStringLiteral("QDir"),
                                         QStringLiteral("QFile"),
                                         QStringLiteral("QFileInfo"),
                                         QStringLiteral("QHash"),
                                         QStringLiteral("QList"),
                                         QStringLiteral("QLocale"),
                                         QStringLiteral("QMap"),
                                         QStringLiteral("QPair"),
                                         QStringLiteral("QSaveFile"),
                                         QStringLiteral("QSet"),
                                         QStringLiteral("QString"),
                                         QStringLiteral("QStringList"),
                                         QStringLiteral("QStringView"),
                                         QStringLiteral("QTime"),
                                         QStringLiteral("QVariant"),
                                         QStringLiteral("QVector"),
                                         QStringLiteral("QtGlobal"),
                                         QStringLiteral("QtMath"),
                                         QStringLiteral("QThread"),
                                         QStringLiteral("QDebug"),
                                         QStringLiteral("QElapsedTimer"),
                                         QStringLiteral("QLatin1String"),
                                         QStringLiteral("QRegularExpression"),
                                         QStringLiteral("QStringBuilder")};
    return include.startsWith(QLatin1Char('Q')) && !coreHeaders.contains(include);
}

TEST(ArchitectureTest, TheSourcesAreFound)
{
    EXPECT_GT(SourceFiles().size(), 50);
    EXPECT_TRUE(DomainUnits(QStringLiteral("core")).contains(QStringLiteral("core/modTallyboard")));
    EXPECT_FALSE(DomainUnits(QStringLiteral("core")).contains(QStringLiteral("core/mdiTallyboard")));
}

TEST(ArchitectureTest, EveryArrowPointsDown)
{
    const QStringList areas = QDir(SourceFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const SourceFile& file : SourceFiles())
        for (const QString& include : file.includes) {
            const QString target = include.section(QLatin1Char('/'), 0, 0);
            if (include.contains(QLatin1Char('/')) && areas.contains(target) && target != file.Area()) {
                EXPECT_TRUE(MayInclude(file.Area()).contains(target))
                    << qPrintable(file.path) << " includes " << qPrintable(include);
            }
        }
}

TEST(ArchitectureTest, RulesAndStoreKnowNoWidgets)
{
    QStringList units;
    const QStringList areas = QDir(SourceFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& area : areas)
        units += DomainUnits(area);
    for (const SourceFile& file : SourceFiles()) {
        const QString unit = file.path.section(QLatin1Char('.'), 0, 0);
        if (file.Area() != QLatin1String("store") && !units.contains(unit))
            continue;
        for (const QString& include : file.includes) {
            EXPECT_FALSE(IsWidgetHeader(include))
                << qPrintable(file.path) << " includes " << qPrintable(include);
        }
    }
}

TEST(ArchitectureTest, OnlyTheStoreKnowsTheEngine)
{
    for (const SourceFile& file : SourceFiles())
        for (const QString& include : file.includes)
            if (include.contains(QLatin1String("sqlite"))) {
                EXPECT_EQ(file.Area().toStdString(), "store") << qPrintable(file.path);
            }
}

} // namespace
} // namespace tally
