#include "core/ui/OpenDocument.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// A machine whose only programs are small scripts, each of which notes what it was started with.
class OpenDocumentTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(machine.isValid() && office.isValid());
        qputenv("PATH", machine.path().toLocal8Bit());
    }
    void TearDown() override { qputenv("PATH", path); }

    /// Puts a program on the machine; `lines` follow what notes its arguments.
    void Install(const QString& name, const QByteArray& lines = {}, const QByteArray& shell = "/bin/sh")
    {
        QFile program(machine.filePath(name));
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!" + shell + "\nprintf '<%s>' \"$@\" > \"$0.called\"\n" + lines);
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// What the program has noted so far.
    QString Called(const QString& name) const
    {
        QFile noted(machine.filePath(name + QStringLiteral(".called")));
        return noted.open(QIODevice::ReadOnly) ? QString::fromUtf8(noted.readAll()) : QString();
    }
    void ExpectCalled(const QString& name, const QString& arguments)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Called(name) == arguments; }))
            << name.toStdString() << " was started with " << Called(name).toStdString();
    }

    QString Given(const QString& name)
    {
        QString file = office.filePath(name);
        EXPECT_TRUE(QFile(file).open(QIODevice::WriteOnly));
        return file;
    }

    QTemporaryDir machine;
    QTemporaryDir office;
    const QByteArray path = qgetenv("PATH");
    const QString gio = QStringLiteral("gio");
    const QString first = QStringLiteral("gedit");
    const QString later = QStringLiteral("featherpad");
};

TEST_F(OpenDocumentTest, WorkbooksAndReportsLieAmongTheDocumentsOfTheUser)
{
    const QString before = ExportFolder();
    SetExportFolder({});
    EXPECT_EQ(ExportFolder().toStdString(),
              QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString() +
                  "/Tally Board");
    SetExportFolder(before);
}

TEST_F(OpenDocumentTest, ATextIsHandedToTheDesktopWithWhateverItsPathHolds)
{
    Install(gio);
    Install(first);
    for (const QString& name :
         {QStringLiteral("Summary.txt"), QStringLiteral("it's \"6 A\" & 7$B; 100% #1?.txt"),
          QStringLiteral("  two  blanks .txt"),
          QString::fromUtf8("\u0d2e\u0d32\u0d2f\u0d3e\u0d33\u0d02.txt")}) {
        const QString file = Given(name);
        EXPECT_TRUE(OpenText(file)) << name.toStdString();
        ExpectCalled(gio, QStringLiteral("<open><%1>").arg(file));
    }
    EXPECT_EQ(Called(first), QString());
}

TEST_F(OpenDocumentTest, AFileWhoseNameLooksLikeAnOptionIsNamedWithItsFolder)
{
    Install(gio);
    const QString file = Given(QStringLiteral("--help"));
    const QString before = QDir::currentPath();
    QDir::setCurrent(office.path());
    EXPECT_TRUE(OpenText(QStringLiteral("--help")));
    QDir::setCurrent(before);
    ExpectCalled(gio, QStringLiteral("<open><%1>").arg(file));
}

TEST_F(OpenDocumentTest, WhereTheDesktopHasNoProgramTheFirstEditorOpensTheText)
{
    const QString file = Given(QStringLiteral("List of 6 A.txt"));
    Install(later);
    EXPECT_TRUE(OpenText(file));
    ExpectCalled(later, QStringLiteral("<%1>").arg(file));
    Install(first);
    for (const char* failure : {"/bin/sleep 0.2; exit 2", "kill -9 $$"}) {
        Install(gio, failure);
        QFile::remove(machine.filePath(QStringLiteral("gedit.called")));
        EXPECT_TRUE(OpenText(file));
        ExpectCalled(first, QStringLiteral("<%1>").arg(file));
    }
}

TEST_F(OpenDocumentTest, WhereThereIsNoProgramAtAllNothingIsOpened)
{
    const QString file = Given(QStringLiteral("Summary.txt"));
    EXPECT_FALSE(OpenText(file));
    EXPECT_FALSE(OpenSpreadsheet(file));
    EXPECT_FALSE(HasSpreadsheetProgram());
    Install(gio, "exit 2");
    Install(first, {}, "/no/such/shell");
    EXPECT_FALSE(OpenText(file)) << "an editor that can not be started";
    EXPECT_EQ(TextNotOpened(file), QStringLiteral("The report is saved as \"%1\", but the program for texts "
                                                  "did not start.")
                                       .arg(file));
    EXPECT_EQ(
        SpreadsheetNotOpened(file),
        QStringLiteral("The workbook is saved as \"%1\", but the program for spreadsheets did not start.")
            .arg(file));
}

TEST_F(OpenDocumentTest, AFileThatHasGoneIsGivenToNoProgramAndToldAsGone)
{
    const QString localc = QStringLiteral("localc");
    for (const QString& program : {gio, first, localc})
        Install(program);
    const QString gone = office.filePath(QStringLiteral("10%2.txt"));
    EXPECT_FALSE(OpenText(gone));
    EXPECT_FALSE(OpenSpreadsheet(gone));
    for (const QString& program : {gio, first, localc})
        EXPECT_EQ(Called(program), QString());
    const auto open = [](const QString&) {
        ADD_FAILURE() << "nothing is there to be opened";
        return true;
    };
    UseTextProgram(open);
    UseSpreadsheetProgram({true, open});
    EXPECT_FALSE(OpenText(gone));
    EXPECT_FALSE(OpenSpreadsheet(gone));
    UseTextProgram({});
    UseRealSpreadsheetProgram();
    EXPECT_EQ(TextNotOpened(gone), QStringLiteral("The report was saved as \"") + gone +
                                       QStringLiteral("\", but it has gone meanwhile."));
    EXPECT_EQ(SpreadsheetNotOpened(gone), QStringLiteral("The workbook was saved as \"") + gone +
                                              QStringLiteral("\", but it has gone meanwhile."));
}

TEST_F(OpenDocumentTest, TheProgramLivesOnWhateverItWritesOnceTheDesktopHasStartedIt)
{
    Install(gio, "( while [ -e \"$0\" ] && [ ! -e \"$0.started\" ]; do /bin/sleep 0.01; done; echo a "
                 "warning; echo another >&2;"
                 " printf lives > \"$0.called\" ) &");
    EXPECT_TRUE(OpenText(Given(QStringLiteral("Summary.txt"))));
    EXPECT_TRUE(QFile(machine.filePath(QStringLiteral("gio.started"))).open(QIODevice::WriteOnly));
    ExpectCalled(gio, QStringLiteral("lives"));
}

TEST_F(OpenDocumentTest, NobodyWaitsForAnAnswerToWhatTheDesktopsProgramAsksForAtItsInput)
{
    Install(gio, "read answer; exit 2");
    Install(first);
    const QString file = Given(QStringLiteral("Summary.txt"));
    EXPECT_TRUE(OpenText(file));
    ExpectCalled(first, QStringLiteral("<%1>").arg(file));
}

TEST_F(OpenDocumentTest, ASpreadsheetGoesToTheFirstProgramForSpreadsheets)
{
    Install(QStringLiteral("gnumeric"));
    Install(QStringLiteral("soffice"));
    const QString file = Given(QStringLiteral("it's the \"Rank List\" of 6 A.xlsx"));
    EXPECT_TRUE(HasSpreadsheetProgram());
    EXPECT_TRUE(OpenSpreadsheet(file));
    ExpectCalled(QStringLiteral("soffice"), QStringLiteral("<%1>").arg(file));
    EXPECT_EQ(Called(QStringLiteral("gnumeric")), QString());
}

TEST_F(OpenDocumentTest, AMachineMayBeWithoutAProgramForSpreadsheets)
{
    Install(QStringLiteral("soffice"));
    UseSpreadsheetProgram({});
    EXPECT_FALSE(HasSpreadsheetProgram());
    EXPECT_FALSE(OpenSpreadsheet(Given(QStringLiteral("Rank List.xlsx"))));
    UseRealSpreadsheetProgram();
    EXPECT_TRUE(HasSpreadsheetProgram());
    EXPECT_EQ(Called(QStringLiteral("soffice")), QString());
}

TEST_F(OpenDocumentTest, AStandInTakesThePlaceOfTheProgramForTextsUntilItIsTakenAway)
{
    Install(gio);
    const QString file = Given(QStringLiteral("Summary.txt"));
    QStringList opened;
    UseTextProgram([&](const QString& each) {
        opened.append(each);
        return opened.size() == 1;
    });
    EXPECT_TRUE(OpenText(file));
    EXPECT_FALSE(OpenText(file));
    UseTextProgram({});
    EXPECT_EQ(opened, (QStringList{file, file}));
    EXPECT_EQ(Called(gio), QString());
    EXPECT_TRUE(OpenText(file));
    ExpectCalled(gio, QStringLiteral("<open><%1>").arg(file));
}

} // namespace
} // namespace tally::test
