#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <gtest/gtest.h>

namespace tally {
namespace {

const QString SourceFolder = QStringLiteral(TALLY_SOURCE_FOLDER);

/// The floors of the house, from below. A file may use what lies on the floors under its own; folders on the
/// same floor keep to themselves.
const QList<QStringList> Floors{
    {QStringLiteral("store")},
    {QStringLiteral("core")},
    {QStringLiteral("core/school")},
    {QStringLiteral("core/ui")},
    {QStringLiteral("reports/output")},
    {QStringLiteral("core/shell")},
    {QStringLiteral("calendar"), QStringLiteral("exams"), QStringLiteral("masters"), QStringLiteral("ranks"),
     QStringLiteral("reports"), QStringLiteral("students"), QStringLiteral("utilities")},
    {QStringLiteral("app")}};

/// The folders of rules, of screens, and of both, which is what an area has.
const QStringList RuleFolders{QStringLiteral("core"), QStringLiteral("core/school")};
const QStringList ScreenFolders{QStringLiteral("core/ui"), QStringLiteral("core/shell"),
                                QStringLiteral("reports/output")};

/// The folder of the house in which a path lies; the innermost where one lies in another. Empty for none.
QString FolderOf(const QString& path)
{
    QString innermost;
    for (const QStringList& floor : Floors)
        for (const QString& folder : floor)
            if (path.startsWith(folder + QLatin1Char('/')) && folder.size() > innermost.size())
                innermost = folder;
    return innermost;
}

qsizetype FloorOf(const QString& folder)
{
    const auto floor = std::find_if(Floors.begin(), Floors.end(),
                                    [&](const QStringList& folders) { return folders.contains(folder); });
    return floor - Floors.begin();
}

struct SourceFile
{
    QString path; ///< within src/
    QStringList includes;
    QString Folder() const { return FolderOf(path); }
};

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
    EXPECT_GT(files.size(), 100);
    return files;
}

/// The units that a folder's build file lists under DOMAIN or SCREENS.
QStringList Units(const QString& folder, const QString& kind)
{
    QFile list(SourceFolder + QLatin1Char('/') + folder + QStringLiteral("/CMakeLists.txt"));
    if (!list.open(QIODevice::ReadOnly))
        return {};
    const QRegularExpression listed(kind + QStringLiteral("\\s([^)]*?)(DOMAIN|SCREENS|\\))"),
                                    QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression unit(QStringLiteral("(\\S+)\\.cpp"));
    QStringList units;
    auto found = unit.globalMatch(listed.match(QString::fromUtf8(list.readAll())).captured(1));
    while (found.hasNext())
        units.append(folder + QLatin1Char('/') + found.next().captured(1));
    return units;
}

QStringList DomainUnits(const QString& folder)
{
    return Units(folder, QStringLiteral("DOMAIN"));
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
                                         QStringLiteral("QIODevice"),
                                         QStringLiteral("QList"),
                                         QStringLiteral("QLocale"),
                                         QStringLiteral("QMap"),
                                         QStringLiteral("QPair"),
                                         QStringLiteral("QRandomGenerator"),
                                         QStringLiteral("QSaveFile"),
                                         QStringLiteral("QScopeGuard"),
                                         QStringLiteral("QSet"),
                                         QStringLiteral("QStorageInfo"),
                                         QStringLiteral("QString"),
                                         QStringLiteral("QStringList"),
                                         QStringLiteral("QStringView"),
                                         QStringLiteral("QTemporaryDir"),
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
    EXPECT_TRUE(Units(QStringLiteral("ranks"), QStringLiteral("SCREENS"))
                    .contains(QStringLiteral("ranks/frmRankCalculation")));
    EXPECT_EQ(FolderOf(QStringLiteral("core/ui/controls/FlexGrid.h")).toStdString(), "core/ui");
}

TEST(ArchitectureTest, EveryFileLiesInAFolderOfTheHouse)
{
    for (const SourceFile& file : SourceFiles())
        EXPECT_NE(file.Folder().toStdString(), "") << qPrintable(file.path);
}

TEST(ArchitectureTest, EveryArrowPointsDown)
{
    for (const SourceFile& file : SourceFiles())
        for (const QString& include : file.includes) {
            const QString target = FolderOf(include);
            if (!target.isEmpty() && target != file.Folder()) {
                EXPECT_LT(FloorOf(target), FloorOf(file.Folder()))
                    << qPrintable(file.path) << " includes " << qPrintable(include);
            }
        }
}

TEST(ArchitectureTest, AFolderBelongsToOneLibrary)
{
    for (const QString& folder : RuleFolders) {
        EXPECT_FALSE(DomainUnits(folder).isEmpty()) << qPrintable(folder);
        EXPECT_TRUE(Units(folder, QStringLiteral("SCREENS")).isEmpty()) << qPrintable(folder);
    }
    for (const QString& folder : ScreenFolders) {
        EXPECT_TRUE(DomainUnits(folder).isEmpty()) << qPrintable(folder);
        EXPECT_FALSE(Units(folder, QStringLiteral("SCREENS")).isEmpty()) << qPrintable(folder);
    }
}

TEST(ArchitectureTest, RulesAndStoreKnowNoWidgets)
{
    QStringList units;
    for (const QStringList& floor : Floors)
        for (const QString& folder : floor)
            units += DomainUnits(folder);
    for (const SourceFile& file : SourceFiles()) {
        const QString unit = file.path.section(QLatin1Char('.'), 0, 0);
        if (file.Folder() != QLatin1String("store") && !units.contains(unit))
            continue;
        for (const QString& include : file.includes) {
            EXPECT_FALSE(IsWidgetHeader(include) || ScreenFolders.contains(FolderOf(include)))
                << qPrintable(file.path) << " includes " << qPrintable(include);
        }
    }
}

TEST(ArchitectureTest, OnlyTheDriverOfTheStoreAndItsDialectKnowTheEngine)
{
    const QStringList engineRoom{QStringLiteral("store/Connection.cpp"), QStringLiteral("store/Dialect.cpp"),
                                 QStringLiteral("store/Statement.cpp")};
    for (const SourceFile& file : SourceFiles())
        for (const QString& include : file.includes)
            if (include.contains(QLatin1String("sqlite"))) {
                EXPECT_TRUE(engineRoom.contains(file.path)) << qPrintable(file.path);
            }
}

} // namespace
} // namespace tally
