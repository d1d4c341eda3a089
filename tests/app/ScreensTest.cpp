#include "core/shell/MenuCommands.h"
#include "core/shell/MenuTree.h"
#include "core/ui/ScreenRegistry.h"

#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace tally {
namespace {

TEST(ScreensTest, EveryScreenOfTheProgramIsReachableFromTheMenus)
{
    QStringList reachable;
    for (const MenuDefinition& line : MenuDefinitions())
        if (ScreenRegistry::Knows(QString::fromLatin1(line.opens)))
            reachable.append(QString::fromLatin1(line.opens));
    EXPECT_EQ(
        reachable.join(QLatin1Char(' ')).toStdString(),
        "frmMasStateMaster frmMasCityMaster frmMasSchoolSetup frmMasClassSectionEntry frmexamnamemaster "
        "frmSubjectMaster frmMasBloodGroupMaster frmSalutationMaster frmTeacherMaster frmMasStudentMaster "
        "frmMasStudentAdmissionEntry frmMasStudentRelievingMaster frmMasAcademicYearSetup "
        "frmMasAcademicYearChange frmClassSubjectTeacher frmClassSubjectTeacherTransfer frmClassRankSetup "
        "frmClassRankTransferSetup frmexammarkentry frmPromotionEntry frmRankCalculation "
        "frmRankCardPrinting frmclassdivisionsubjectavg "
        "frmdivisionsubjectexamavg frmstudentexamavg frmstudentyearlyexamavg "
        "frmstudentslistbelow frmstudentslistabove frmrptClassList frmrptClasssubjectteacher "
        "frmUtilApplicationDateSetup "
        "frmUtilApplicationDateChange frmUtilUserMaster frmUtilUserPrivileges frmUtilBackupRestore "
        "frmUtilOptions frmHelp AboutUs");
}

TEST(ScreensTest, ASecondScreenOfOneNameIsRefused)
{
    const QString about = QStringLiteral("AboutUs");
    EXPECT_FALSE(ScreenRegistry::Register(about, [] { return nullptr; }));
    const auto made = ScreenRegistry::Forget(about);
    ASSERT_TRUE(made);
    EXPECT_FALSE(ScreenRegistry::Knows(about));
    EXPECT_FALSE(ScreenRegistry::Forget(about));
    EXPECT_TRUE(ScreenRegistry::Register(about, made));
    EXPECT_TRUE(ScreenRegistry::Knows(about));
}

TEST(ScreensTest, EveryCommandOfTheProgramHasAMenuEntryAndNoEntryTakesOneForTheOther)
{
    QStringList entries;
    for (const MenuDefinition& line : MenuDefinitions()) {
        const QString opens = QString::fromLatin1(line.opens);
        if (line.kind == MenuKind::Command)
            entries.append(opens);
        EXPECT_EQ(opens.isEmpty(), line.kind == MenuKind::Group || line.kind == MenuKind::Separator);
        EXPECT_FALSE(line.kind == MenuKind::Command && ScreenRegistry::Knows(opens)) << line.name;
        EXPECT_FALSE(line.kind == MenuKind::Screen && MenuCommands::Knows(opens)) << line.name;
    }
    EXPECT_EQ(entries.join(QLatin1Char(' ')).toStdString(), "frmCompactDatabase Lock Close");
    entries.sort();
    EXPECT_EQ(MenuCommands::Names(), entries);
}

TEST(ScreensTest, EachLineOfTheMenusLeadsToAScreenOrACommand)
{
    QStringList leadingNowhere;
    for (const MenuDefinition& line : MenuDefinitions())
        if (line.kind != MenuKind::Separator && !LeadsSomewhere(QString::fromLatin1(line.name)))
            leadingNowhere.append(QString::fromLatin1(line.name));
    EXPECT_EQ(leadingNowhere.join(QLatin1Char(' ')).toStdString(), "");
}

TEST(ScreensTest, PicturesAreEmbeddedInTheSizesOfTheirScreens)
{
    for (const int id : {1001, 1002})
        EXPECT_GE(QImage(QStringLiteral(":/tallyboard/%1").arg(id), "JPEG").width(), 1024) << id;
    for (const int id : {1003, 1004})
        EXPECT_EQ(QImage(QStringLiteral(":/tallyboard/%1").arg(id), "JPEG").size(), QSize(800, 600)) << id;
}

TEST(ScreensTest, MoviesAndIconsAreEmbedded)
{
    for (const char* name : {"1005", "1006", "icons/save.svg", "icons/exit.svg", "icons/app.svg"})
        EXPECT_TRUE(QFile::exists(QLatin1String(":/tallyboard/") + QLatin1String(name))) << name;
}

} // namespace
} // namespace tally
