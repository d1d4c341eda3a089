#include "core/ui/Prompts.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>
#include <optional>

namespace tally::test {
namespace {

const QString DatabaseFilter = QStringLiteral("Database Files (*.mdb)");

/// Gives a variable of the environment a value of the test's own while it lives.
class OwnVariable
{
public:
    OwnVariable(const char* name, const QString& value)
        : name_(name), before_(qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt)
    {
        qputenv(name_, value.toLocal8Bit());
    }
    OwnVariable(const OwnVariable&) = delete;
    OwnVariable& operator=(const OwnVariable&) = delete;
    ~OwnVariable()
    {
        if (before_)
            qputenv(name_, *before_);
        else
            qunsetenv(name_);
    }

private:
    const char* name_;
    const std::optional<QByteArray> before_;
};

/// The real dialogs over a folder of files, driven by keys.
class FileDialogsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        // The toolkit notes there how its dialogs were left.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           folder.filePath(QStringLiteral("config")));
        for (const char* name : {"school.mdb", "it's the old one, of 2024.mdb", "notes.txt"})
            Make(QString::fromLatin1(name));
        ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("backups")));
    }

    void Make(const QString& name) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    /// Types a name into the dialog that comes up, and presses `key`.
    void Answer(const QString& name, Qt::Key key)
    {
        QTimer::singleShot(0, [this, name, key] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            wasOpen = Prompts::AreOpen();
            title = dialog->windowTitle();
            start = dialog->directory().absolutePath();
            filters = dialog->nameFilters();
            mode = dialog->fileMode();
            saves = dialog->acceptMode() == QFileDialog::AcceptSave;
            onlyFolders = dialog->testOption(QFileDialog::ShowDirsOnly);
            auto* box = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_NE(box, nullptr);
            offered = box->text();
            EXPECT_EQ(dialog->focusWidget(), box) << "the name can be typed at once";
            QTest::keyClicks(box, name);
            QTest::keyClick(box, key);
        });
    }

    QTemporaryDir folder;
    bool wasOpen = false;
    QString title;
    QString start;
    QString offered;
    QStringList filters;
    QFileDialog::FileMode mode = QFileDialog::AnyFile;
    bool saves = false;
    bool onlyFolders = false;
};

TEST_F(FileDialogsTest, AFileThatIsThereIsChosenByItsName)
{
    Answer(QStringLiteral("it's the old one, of 2024.mdb"), Qt::Key_Return);
    const QString chosen = Prompts::ChooseFile(QStringLiteral("Source Path"), folder.path(), DatabaseFilter);
    EXPECT_EQ(chosen.toStdString(),
              folder.filePath(QStringLiteral("it's the old one, of 2024.mdb")).toStdString());
    EXPECT_EQ(title.toStdString(), "Source Path");
    EXPECT_EQ(start.toStdString(), folder.path().toStdString());
    EXPECT_EQ(filters, QStringList{DatabaseFilter});
    EXPECT_EQ(mode, QFileDialog::ExistingFile) << "no other name is taken";
    EXPECT_FALSE(saves || onlyFolders);
    EXPECT_TRUE(wasOpen) << "it counts among the boxes that wait";
    EXPECT_FALSE(Prompts::AreOpen());
}

TEST_F(FileDialogsTest, TheListShowsNamesSizesAndDaysInFull)
{
    QTimer::singleShot(0, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        const auto* list = dialog->findChild<QTreeView*>();
        ASSERT_NE(list, nullptr);
        EXPECT_TRUE(QTest::qWaitFor([list] { return list->model()->rowCount(list->rootIndex()) == 3; }))
            << "two databases and a folder";
        EXPECT_TRUE(list->isColumnHidden(2));
        for (const int column : {0, 1, 3})
            EXPECT_GE(list->columnWidth(column),
                      static_cast<const QAbstractItemView*>(list)->sizeHintForColumn(column))
                << column;
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(Prompts::ChooseFile(QStringLiteral("Source Path"), folder.path(), DatabaseFilter), QString());
}

TEST_F(FileDialogsTest, EscChoosesNothing)
{
    const QString name = QStringLiteral("school.mdb");
    Answer(name, Qt::Key_Escape);
    EXPECT_EQ(Prompts::ChooseFile(QStringLiteral("Source Path"), folder.path(), DatabaseFilter), QString());
    Answer(name, Qt::Key_Escape);
    EXPECT_EQ(Prompts::ChooseFileToSave(QStringLiteral("Destination"), folder.path(), {}), QString());
    Answer(QStringLiteral("backups"), Qt::Key_Escape);
    EXPECT_EQ(Prompts::ChooseFolder(QStringLiteral("Folder"), folder.path()), QString());
}

TEST_F(FileDialogsTest, ANameToSaveGetsTheSuffixOfTheFilterWhereItHasNone)
{
    const auto saved = [this](const char* typed, const QString& filter) {
        Answer(QString::fromLatin1(typed), Qt::Key_Return);
        const QString path =
            Prompts::ChooseFileToSave(QStringLiteral("Destination Path"), folder.path(), filter);
        return QDir(folder.path()).relativeFilePath(path).toStdString();
    };
    EXPECT_EQ(saved("monday", DatabaseFilter), "monday.mdb");
    EXPECT_EQ(saved("monday.mdb", DatabaseFilter), "monday.mdb");
    EXPECT_EQ(saved("monday.bak", DatabaseFilter), "monday.bak") << "what was typed is left to whoever asked";
    EXPECT_EQ(saved("monday", {}), "monday");
}

TEST_F(FileDialogsTest, ANameThatIsOfferedForAFileOnlyNeedsEnter)
{
    Answer({}, Qt::Key_Escape);
    EXPECT_EQ(Prompts::ChooseFileToSave(QStringLiteral("Save"), QStringLiteral("Marks Of Asha.mdb"),
                                        DatabaseFilter),
              QString());
    EXPECT_EQ(offered.toStdString(), "Marks Of Asha.mdb");
    EXPECT_TRUE(saves);
}

TEST_F(FileDialogsTest, ANameThatIsThatOfAFolderLeadsThereAndIsNotOffered)
{
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    Answer({}, Qt::Key_Escape);
    Prompts::ChooseFileToSave(QStringLiteral("Save"), QStringLiteral("backups"), DatabaseFilter);
    QDir::setCurrent(before);
    EXPECT_EQ(start.toStdString(), folder.filePath(QStringLiteral("backups")).toStdString());
    EXPECT_EQ(offered.toStdString(), "");
}

TEST_F(FileDialogsTest, WhoeverWritesTheFileAsksWhetherToReplaceIt)
{
    Answer(QStringLiteral("school.mdb"), Qt::Key_Return);
    EXPECT_EQ(Prompts::ChooseFileToSave(QStringLiteral("Destination Path"), folder.path(), DatabaseFilter)
                  .toStdString(),
              folder.filePath(QStringLiteral("school.mdb")).toStdString());
}

TEST_F(FileDialogsTest, AFolderIsChosen)
{
    Answer(QStringLiteral("backups"), Qt::Key_Return);
    EXPECT_EQ(Prompts::ChooseFolder(QStringLiteral("Backup Folder"), folder.path()).toStdString(),
              folder.filePath(QStringLiteral("backups")).toStdString());
    EXPECT_EQ(title.toStdString(), "Backup Folder");
    EXPECT_TRUE(onlyFolders);
    EXPECT_FALSE(saves);
}

TEST_F(FileDialogsTest, AStartFolderThatHasGoneIsReplacedByTheDocuments)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("Documents")));
    const OwnVariable home("HOME", folder.path());
    const OwnVariable config("XDG_CONFIG_HOME", folder.filePath(QStringLiteral("none")));
    for (const QString& gone : {QString(), folder.filePath(QStringLiteral("gone"))}) {
        Answer({}, Qt::Key_Escape);
        Prompts::ChooseFile(QStringLiteral("Source Path"), gone, DatabaseFilter);
        EXPECT_EQ(start.toStdString(), folder.filePath(QStringLiteral("Documents")).toStdString());
        Answer({}, Qt::Key_Escape);
        Prompts::ChooseFileToSave(QStringLiteral("Destination Path"), gone, DatabaseFilter);
        EXPECT_EQ(start.toStdString(), folder.filePath(QStringLiteral("Documents")).toStdString());
        EXPECT_EQ(offered.toStdString(), "") << "a folder is no name of a file";
    }
}

} // namespace
} // namespace tally::test
