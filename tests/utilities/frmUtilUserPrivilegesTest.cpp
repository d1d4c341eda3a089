#include "utilities/frmUtilUserPrivileges.h"

#include "core/SessionRepository.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/ScreenRegistry.h"
#include "store/Transaction.h"
#include "support/EngineWaits.h"
#include "support/FormDriver.h"
#include "utilities/PrivilegeTree.h"
#include "utilities/PrivilegeTreeView.h"
#include "utilities/UserPrivilegeRepository.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPaintEvent>
#include <QRegion>
#include <QScrollBar>
#include <QTreeWidgetItemIterator>

#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace tally::test {
namespace {

const QString AlreadyExists =
    QStringLiteral("Privilege Already Exists To This User. Do You Want To View The Details ?");
const QString NobodyManages =
    QStringLiteral("Atleast One User Should Have Privilege To 'Utility Privilege' Menu");
const QString PasswordsDiffer = QStringLiteral("Password Does Not Match");

const QList<std::pair<QString, QString>> AllOfPrivileges{
    {QStringLiteral("ToolsMenu"), QStringLiteral("D")},
    {QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("D")},
    {QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("N")},
    {QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("E")},
};

using Change = std::function<void(store::Transaction&)>;

/// A change of another client, who commits it when this one waits for him, and no sooner.
class ChangeOfAnother
{
public:
    ChangeOfAnother(std::unique_ptr<store::Connection> client, const Change& change)
        : client_(std::move(client)), saving_(*client_)
    {
        change(saving_);
        committing_ = std::thread([this] {
            AwaitEngineWait(before_);
            saving_.Commit();
        });
    }
    ChangeOfAnother(const ChangeOfAnother&) = delete;
    ChangeOfAnother& operator=(const ChangeOfAnother&) = delete;
    ~ChangeOfAnother()
    {
        EXPECT_GT(EngineWaits(), before_) << "nobody waited";
        // Where nobody did, the other one is still within his change.
        const store::Transaction behind(*Session().gcnnMain);
        committing_.join();
    }

private:
    std::unique_ptr<store::Connection> client_;
    store::Transaction saving_;
    std::size_t before_ = EngineWaits();
    std::thread committing_;
};

/// Person 1 as the second manager stores him.
void SaveBoss(store::Transaction& transaction, bool blocked, const std::set<int>& lines)
{
    const auto found = UserPrivilegeRepository(transaction.On()).Find(1);
    UserLogin login = found.value().login;
    login.blocked = blocked;
    EXPECT_EQ(SavePrivileges(transaction, {1, blocked, lines}, login, found, 2), PrivilegeFault::None);
}

void TakeRightsFromBoss(store::Transaction& transaction)
{
    SaveBoss(transaction, false, {});
}

void BlockBoss(store::Transaction& transaction)
{
    SaveBoss(transaction, true, {PrivilegeLine::Managing.begin(), PrivilegeLine::Managing.end()});
}

void CopyRightsOfClerkToBoss(store::Transaction& transaction)
{
    EXPECT_EQ(CopyPrivileges(transaction, 3, 1, true), CopyFault::None);
}

Change Statement(const char* sql)
{
    return [sql](store::Transaction& transaction) { transaction.Execute(QString::fromLatin1(sql)); };
}

class frmUtilUserPrivilegesTest : public FormDriver<frmUtilUserPrivileges>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        Session().gintUserCode = 1;
        Session().gintPrivilegeUserCode = 1;
    }

    void OpenPrivileges() { OpenForm("frmUtilUserPrivileges"); }
    /// The one who works here, with the rights for it.
    void GivenManager() { GivenUser(1, QStringLiteral("boss"), QStringLiteral("Secret"), AllOfPrivileges); }
    void GivenPerson(int code, const char* name)
    {
        Given("INSERT INTO UserMaster (UserCode, UserName, EnteredBy) VALUES (?, ?, 0)", code, name);
    }

    PrivilegeTreeView* Tree() const { return Find<PrivilegeTreeView>(form, "tvwDisplay"); }
    /// In the place of what stands in the box.
    void Paste(const char* name, const char* text) const
    {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        Box(name)->setFocus();
        QTest::keyClick(Box(name), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(Box(name), Qt::Key_V, Qt::ControlModifier);
    }
    QComboBox* Blocked() const { return Find<QComboBox>(form, "cboBlocked"); }
    QTreeWidgetItem* Line(int number) const
    {
        QTreeWidgetItemIterator line(Tree());
        for (int passed = 1; passed < number; ++passed)
            ++line;
        return *line;
    }
    /// Ticks or clears a line of the tree with the blank key.
    void Toggle(int number) const
    {
        Tree()->setFocus();
        for (QTreeWidgetItem* above = Line(number)->parent(); above; above = above->parent())
            above->setExpanded(true);
        Tree()->setCurrentItem(Line(number));
        QTest::keyClick(Tree(), Qt::Key_Space);
    }
    void ToggleManagingLines() const
    {
        Toggle(PrivilegeLine::UserPrivileges);
        // Its group alone, without what else stands below.
        Toggle(PrivilegeLine::Utilities);
        for (const int line : PrivilegeLinesBelow(PrivilegeLine::Utilities))
            if (Line(line)->parent() == Line(PrivilegeLine::Utilities) &&
                line != PrivilegeLine::UserPrivileges)
                Toggle(line);
    }
    /// Leaves the list with Tab, which settles what is chosen in it.
    void ChoosePerson(const char* name)
    {
        Choose("dbcUserName", QString::fromLatin1(name));
        QTest::keyClick(List("dbcUserName"), Qt::Key_Tab);
        Settle();
    }
    void ChooseBlocked(const char* word) { Choose(Blocked(), QString::fromLatin1(word)); }
    void EnterLogin(const char* id, const char* password, const char* blocked = "NO")
    {
        Retype("txtLoginID", id);
        Retype("txtPassword", password);
        Retype("txtRePassword", password);
        ChooseBlocked(blocked);
    }
    void BeginNew(const char* name)
    {
        Press(Button("cmdNew"));
        ChoosePerson(name);
    }
    /// From the login that the person has to its fields, ready to be changed.
    void BeginEdit(const char* name)
    {
        Press(Button("cmdNew"));
        prompts.ExpectQuestion(AlreadyExists, true);
        ChoosePerson(name);
        prompts.Verify();
        Press(Button("cmdEdit"));
    }
    void ExpectTold(const QString& text)
    {
        prompts.ExpectInformation(text);
        Press(Button("cmdSave"));
        prompts.Verify();
    }
    void CopyTo(const char* from, const char* to)
    {
        if (*from)
            Choose("dbcFromUser", QString::fromLatin1(from));
        if (*to)
            Choose("dbcToUser", QString::fromLatin1(to));
        Press(Button("cmdTransfer"));
        prompts.Verify();
    }
    /// Two who can give rights, he who works here and bala, and a clerk who cannot.
    void GivenTwoManagers()
    {
        GivenManager();
        GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"), AllOfPrivileges);
        GivenUser(3, QStringLiteral("clerk"), QStringLiteral("Pass"),
                  {{QStringLiteral("Masters"), QStringLiteral("D")}});
    }
    /// Presses Save while another client is within `change`, which is stored before this one's turn.
    void ExpectToldBehind(const Change& change, const QString& text)
    {
        const ChangeOfAnother saving(AnotherClient(), change);
        ExpectTold(text);
    }
    void ExpectTakingTheRightRefusedBehind(const Change& change)
    {
        GivenTwoManagers();
        OpenPrivileges();
        BeginEdit("User bala");
        Toggle(PrivilegeLine::UserPrivileges);
        ExpectToldBehind(change, NobodyManages);
        EXPECT_EQ(RightsOfUser(2), 4);
    }
    void ExpectBlockingRefusedBehind(const Change& change)
    {
        GivenTwoManagers();
        OpenPrivileges();
        BeginEdit("User bala");
        ChooseBlocked("YES");
        ExpectToldBehind(change, QStringLiteral("All The Users Cannot Be Blocked"));
        EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE UserCode = 2 AND Block = 'N'"), 1);
    }
    /// Copies the clerk's rights to bala; the other client begins when the question is answered.
    void ExpectCopyRefusedBehind(const Change& change)
    {
        GivenTwoManagers();
        OpenPrivileges();
        std::optional<ChangeOfAnother> saving;
        QStringList told;
        Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
            told.append(text);
            if (!saving)
                saving.emplace(AnotherClient(), change);
            return true;
        });
        CopyTo("User clerk", "User bala");
        EXPECT_EQ(told.join(QLatin1Char('|')).toStdString(),
                  "Privilege Already Exists For User bala.Do You Want To Replace The Existing Privilege ?"
                  "|Atleast One User Should Have Privilege To Work Cannot Able To Tansfer");
        EXPECT_EQ(RightsOfUser(2), 4);
    }
    qint64 RightsOfUser(int code)
    {
        return Count("SELECT count(*) FROM UserPrivilegeDetails WHERE UserCode = ?", code);
    }
    std::string States() const
    {
        std::string on;
        for (const char* name : {"Frame1", "cmdNew", "cmdEdit", "cmdSave"})
            on += IsEnabled(name) ? std::string(name) + ' ' : std::string();
        return on;
    }
};

TEST_F(frmUtilUserPrivilegesTest, OpensIdleWithEmptyFieldsAndTheKeyboardOnNew)
{
    OpenPrivileges();
    EXPECT_EQ(form->windowTitle().toStdString(), "User Privileges");
    EXPECT_EQ(States(), "cmdNew ");
    EXPECT_TRUE(List("dbcUserName")->IsBlank());
    EXPECT_EQ(Blocked()->currentIndex(), -1);
    EXPECT_EQ(Blocked()->count(), 2);
    EXPECT_EQ(Tree()->Checked(), std::set<int>());
    EXPECT_EQ(FocusName(), "cmdNew");
    for (const char* name : {"txtPassword", "txtRePassword"})
        EXPECT_EQ(Box(name)->echoMode(), QLineEdit::Password) << name;
}

TEST_F(frmUtilUserPrivilegesTest, TheFirstLoginIsMadeInTheWindow)
{
    Session().gintUserCode = 0;
    GivenPerson(1, "Meena");
    OpenPrivileges();
    BeginNew("Meena");
    EXPECT_EQ(States(), "Frame1 cmdSave ");
    EnterLogin("meena", "Secret");
    Retype("txtDays", "30");
    ToggleManagingLines();
    Save();
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE UserCode = 1 AND LoginId = 'meena'"
                    " AND Password = 'Secret' AND Block = 'N' AND Days = 30"),
              1);
    EXPECT_EQ(RightsOfUser(1), 4);
    EXPECT_EQ(States(), "cmdNew ");
    EXPECT_EQ(TextOf("txtLoginID"), "");
    EXPECT_EQ(Tree()->Checked(), std::set<int>());
    EXPECT_EQ(FocusName(), "cmdNew");
}

TEST_F(frmUtilUserPrivilegesTest, TheFirstLoginIsRefusedWithoutEachOfTheFourLinesAndBlocked)
{
    GivenPerson(1, "Meena");
    OpenPrivileges();
    BeginNew("Meena");
    EnterLogin("meena", "Secret");
    ToggleManagingLines();
    Toggle(PrivilegeLine::UserPrivilegesEdit);
    ExpectTold(NobodyManages);
    Toggle(PrivilegeLine::UserPrivilegesEdit);
    ChooseBlocked("YES");
    ExpectTold(QStringLiteral("All The Users Cannot Be Blocked"));
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster"), 0);
    EXPECT_EQ(TextOf("txtLoginID"), "meena");
    ChooseBlocked("NO");
    Save();
}

TEST_F(frmUtilUserPrivilegesTest, FieldsAreAskedForInTheirOrder)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    Press(Button("cmdNew"));
    ExpectRefusal(QStringLiteral("Select User Name"), "dbcUserName");
    ChoosePerson("Bala");
    ExpectRefusal(QStringLiteral("Enter Login ID"), "txtLoginID");
    Retype("txtLoginID", "  ");
    ExpectRefusal(QStringLiteral("Enter Login ID"), "txtLoginID");
    Retype("txtLoginID", "bala");
    ExpectRefusal(QStringLiteral("Enter Password"), "txtPassword");
    Retype("txtPassword", "one");
    ExpectRefusal(QStringLiteral("Enter Re-Type Password"), "txtRePassword");
    Retype("txtRePassword", "one");
    ExpectRefusal(QStringLiteral("Select Whether User Is Blocked Or Not"), "cboBlocked");
    Retype("txtPassword", "One");
    ExpectRefusal(QStringLiteral("Select Whether User Is Blocked Or Not"), "cboBlocked");
    ChooseBlocked("NO");
    ExpectRefusal(PasswordsDiffer, "txtPassword");
    EXPECT_EQ(TextOf("txtPassword"), "");
    EXPECT_EQ(TextOf("txtRePassword"), "");
    EXPECT_EQ(RightsOfUser(2), 0);
}

TEST_F(frmUtilUserPrivilegesTest, ATakenLoginIdKeepsTheKeyboardAndIsRefusedAtTheSave)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    Retype("txtLoginID", " BOSS ");
    prompts.ExpectInformation(QStringLiteral("Login ID Already Exists"));
    QTest::keyClick(Box("txtLoginID"), Qt::Key_Tab);
    prompts.Verify();
    Settle();
    EXPECT_TRUE(HasFocus("txtLoginID"));
    Retype("txtLoginID", "bala");
    EnterLogin("bala", "Secret");
    Given("INSERT INTO UserMaster (UserCode, UserName, EnteredBy) VALUES (3, 'Third', 0)");
    Given("INSERT INTO UserPrivilegeMaster (UserCode, LoginId, Password, Block, EnteredBy, Days)"
          " VALUES (3, 'Bala', 'x', 'N', 0, 0)");
    ExpectRefusal(QStringLiteral("Login ID Already Exists"), "txtLoginID");
}

TEST_F(frmUtilUserPrivilegesTest, ARetypedPasswordThatDiffersIsToldWhenItIsLeftButNotOnTheWayBack)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    Retype("txtPassword", "one");
    Retype("txtRePassword", "two");
    QTest::keyClick(Box("txtRePassword"), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(FocusName(), "txtPassword");
    QTest::keyClick(Box("txtPassword"), Qt::Key_Tab);
    prompts.ExpectInformation(PasswordsDiffer);
    QTest::keyClick(Box("txtRePassword"), Qt::Key_Tab);
    prompts.Verify();
    Settle();
    EXPECT_EQ(TextOf("txtRePassword"), "two");
    EXPECT_EQ(FocusName(), "cboBlocked");
}

TEST_F(frmUtilUserPrivilegesTest, LoginAndPasswordTakeWhatTheLoginCanType)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    EnterLogin(" b+,-./9 Z'\"%_ ", " aB9+,-./ x ");
    Save();
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE UserCode = 2 AND LoginId = 'b+,-./9 Z'"
                    " AND Password = 'aB9+,-./ x' COLLATE BINARY"),
              1);
}

TEST_F(frmUtilUserPrivilegesTest, APasswordIsStoredAsTypedAndTheLoginFindsItInAnyCase)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    EnterLogin("bala", "aBc");
    Save();
    SessionRepository logins(MainStore());
    for (const char* password : {"aBc", "ABC", "abc"}) {
        const auto user = logins.FindLogin(QStringLiteral("BALA"), QString::fromLatin1(password));
        ASSERT_TRUE(user) << password;
        EXPECT_EQ(user->code, 2);
    }
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE Password = 'aBc' COLLATE BINARY"), 1);
}

TEST_F(frmUtilUserPrivilegesTest, LoginIdAndPasswordTakeFifteenSigns)
{
    OpenPrivileges();
    for (const char* name : {"txtLoginID", "txtPassword", "txtRePassword"})
        EXPECT_EQ(Box(name)->maxLength(), 15) << name;
}

TEST_F(frmUtilUserPrivilegesTest, MoreThanAYearOfDaysIsRefusedWhileTyping)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    Retype("txtDays", "365");
    EXPECT_EQ(TextOf("txtDays"), "365");
    prompts.ExpectInformation(QStringLiteral("Days Should Not Be Greater Than 365"));
    Retype("txtDays", "366");
    prompts.Verify();
    EXPECT_EQ(TextOf("txtDays"), "");
    EXPECT_EQ(FocusName(), "txtDays");
    Retype("txtDays", "x1-2");
    EXPECT_EQ(TextOf("txtDays"), "12");
    Paste("txtDays", "a3b");
    EXPECT_EQ(TextOf("txtDays"), "3");
    prompts.ExpectInformation(QStringLiteral("Days Should Not Be Greater Than 365"));
    Paste("txtDays", "366");
    prompts.Verify();
    EXPECT_EQ(TextOf("txtDays"), "");
}

TEST_F(frmUtilUserPrivilegesTest, LoginAndPasswordTakeNoMoreOfWhatIsPastedThanCanBeTyped)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    for (const char* name : {"txtLoginID", "txtPassword", "txtRePassword"}) {
        Paste(name, "été-பள்ளி 7'");
        EXPECT_EQ(TextOf(name), "t- 7") << name;
        Paste(name, "abcdefghijklmnopqrst");
        EXPECT_EQ(TextOf(name), "abcdefghijklmno") << name;
        Box(name)->clear();
        for (const char* letter : {"a", "é", "ப", "b"})
            QTest::sendKeyEvent(QTest::Click, Box(name), Qt::Key_unknown, QString::fromUtf8(letter),
                                Qt::NoModifier);
        EXPECT_EQ(TextOf(name), "ab") << name;
    }
}

TEST_F(frmUtilUserPrivilegesTest, DaysLeftEmptyAreStoredAsNone)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    EnterLogin("bala", "x");
    Save();
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE UserCode = 2 AND Days = 0"), 1);
}

TEST_F(frmUtilUserPrivilegesTest, ATickGoesToAllLinesBelowAndToNoneAbove)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    Toggle(79);
    EXPECT_EQ(Tree()->Checked(), (std::set{79, 80, 81, 82, 83}));
    Toggle(80);
    EXPECT_EQ(Tree()->Checked(), (std::set{79, 82, 83}));
    Toggle(81);
    EXPECT_EQ(Tree()->Checked(), (std::set{79, 81, 82, 83}));
    Toggle(79);
    EXPECT_EQ(Tree()->Checked(), std::set<int>());
}

TEST_F(frmUtilUserPrivilegesTest, TheTreeCanBeReadButNotTickedWhileNothingIsEntered)
{
    OpenPrivileges();
    Toggle(1);
    EXPECT_EQ(Tree()->Checked(), std::set<int>());
    EXPECT_TRUE(Tree()->isEnabled());
}

TEST_F(frmUtilUserPrivilegesTest, AStoredLoginIsShownWhereTheClerkWantsIt)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"),
              {{QStringLiteral("Masters"), QStringLiteral("D")},
               {QStringLiteral("frmMasStateMaster"), QStringLiteral("N")},
               {QStringLiteral("frmUtilApplicationDateSetup"), QStringLiteral("A")}},
              QStringLiteral("Y"));
    OpenPrivileges();
    Press(Button("cmdNew"));
    prompts.ExpectQuestion(AlreadyExists, false);
    ChoosePerson("User bala");
    prompts.Verify();
    EXPECT_TRUE(List("dbcUserName")->IsBlank());
    EXPECT_TRUE(HasFocus("dbcUserName"));
    EXPECT_EQ(States(), "Frame1 cmdSave ");
    EXPECT_EQ(TextOf("txtLoginID"), "");

    prompts.ExpectQuestion(AlreadyExists, true);
    ChoosePerson("User bala");
    prompts.Verify();
    EXPECT_EQ(States(), "cmdEdit ");
    EXPECT_EQ(TextOf("txtLoginID"), "bala");
    EXPECT_EQ(TextOf("txtPassword"), "Pass");
    EXPECT_EQ(TextOf("txtRePassword"), "Pass");
    EXPECT_EQ(TextOf("txtDays"), "0");
    EXPECT_EQ(Blocked()->currentText().toStdString(), "YES");
    EXPECT_EQ(Tree()->Checked(), (std::set{1, 3, 109}));
    EXPECT_EQ(FocusName(), "cmdEdit");
}

TEST_F(frmUtilUserPrivilegesTest, AnEditChangesLoginAndRightsAndLeavesThePerson)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"),
              {{QStringLiteral("Masters"), QStringLiteral("D")}});
    OpenPrivileges();
    BeginEdit("User bala");
    EXPECT_EQ(States(), "Frame1 cmdSave ");
    EXPECT_FALSE(IsEnabled("dbcUserName"));
    EXPECT_EQ(FocusName(), "txtLoginID");
    Retype("txtLoginID", "second");
    Toggle(2);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE UserCode = 2 AND LoginId = 'second'"
                    " AND Password = 'Pass' AND EnteredBy = 1"),
              1);
    EXPECT_EQ(RightsOfUser(2), 5);
    EXPECT_EQ(RightsOfUser(1), 4);
}

TEST_F(frmUtilUserPrivilegesTest, BlockingTheOnlyUnblockedLoginIsRefused)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"), AllOfPrivileges, QStringLiteral("Y"));
    OpenPrivileges();
    BeginEdit("User boss");
    ChooseBlocked("YES");
    ExpectTold(QStringLiteral("All The Users Cannot Be Blocked"));
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE Block = 'N'"), 1);
}

TEST_F(frmUtilUserPrivilegesTest, TakingTheRightFromTheOnlyHolderIsRefusedAndFromASecondOneNot)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    BeginEdit("User boss");
    Toggle(PrivilegeLine::UserPrivileges);
    ExpectTold(NobodyManages);
    Press(Button("cmdCancel"));
    for (const auto& [formName, right] : AllOfPrivileges)
        Given("INSERT INTO UserPrivilegeDetails (FormName, ButtonName, UserCode) VALUES (?, ?, 2)", formName,
              right);
    BeginEdit("User boss");
    Toggle(PrivilegeLine::UserPrivileges);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(RightsOfUser(1), 1);
}

TEST_F(frmUtilUserPrivilegesTest, OfTwoWhoTakeTheRightFromEachOtherAtOnceTheSecondIsRefused)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"), AllOfPrivileges);
    OpenPrivileges();
    BeginEdit("User bala");
    Toggle(PrivilegeLine::UserPrivileges);
    // The other one saves first, at his own computer.
    const auto other = AnotherClient();
    other->Execute(
        QStringLiteral("DELETE FROM UserPrivilegeDetails WHERE UserCode = 1 AND ButtonName IN ('N', 'E')"));
    ExpectTold(NobodyManages);
    EXPECT_EQ(RightsOfUser(2), 4);
}

TEST_F(frmUtilUserPrivilegesTest, WhoTakesTheRightWhileTheOtherOneTakesItFromHimIsRefused)
{
    ExpectTakingTheRightRefusedBehind(&TakeRightsFromBoss);
}

TEST_F(frmUtilUserPrivilegesTest, WhoTakesTheRightWhileTheOtherOneBlocksHimIsRefused)
{
    ExpectTakingTheRightRefusedBehind(&BlockBoss);
}

TEST_F(frmUtilUserPrivilegesTest, WhoTakesTheRightWhileTheOtherOneCopiesLesserRightsToHimIsRefused)
{
    ExpectTakingTheRightRefusedBehind(&CopyRightsOfClerkToBoss);
}

TEST_F(frmUtilUserPrivilegesTest, WhoBlocksTheOtherOneWhileThatOneTakesTheRightFromHimIsRefused)
{
    ExpectBlockingRefusedBehind(&TakeRightsFromBoss);
}

TEST_F(frmUtilUserPrivilegesTest, OfTwoWhoBlockEachOtherAtOneMomentTheSecondIsRefused)
{
    ExpectBlockingRefusedBehind(&BlockBoss);
}

TEST_F(frmUtilUserPrivilegesTest, OfTwoWhoCopyLesserRightsToEachOtherAtOneMomentTheSecondIsRefused)
{
    ExpectCopyRefusedBehind(&CopyRightsOfClerkToBoss);
}

TEST_F(frmUtilUserPrivilegesTest, WhoCopiesLesserRightsWhileTheOtherOneTakesTheRightFromHimIsRefused)
{
    ExpectCopyRefusedBehind(&TakeRightsFromBoss);
}

TEST_F(frmUtilUserPrivilegesTest, WhoCopiesLesserRightsWhileTheOtherOneBlocksHimIsRefused)
{
    ExpectCopyRefusedBehind(&BlockBoss);
}

TEST_F(frmUtilUserPrivilegesTest, RightsThatAnotherUserGivesWhileACopyWaitsAreAskedFor)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    {
        const ChangeOfAnother saving(AnotherClient(),
                                     Statement("INSERT INTO UserPrivilegeDetails (FormName, ButtonName,"
                                               " UserCode) VALUES ('Masters', 'D', 2)"));
        prompts.ExpectQuestion(QStringLiteral("Privilege Already Exists For User bala.Do You Want To Replace "
                                              "The Existing Privilege ?"),
                               false);
        CopyTo("User boss", "User bala");
    }
    EXPECT_EQ(RightsOfUser(2), 1);
}

TEST_F(frmUtilUserPrivilegesTest, ALoginIdThatAnotherUserTakesWhileASaveWaitsIsRefused)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    GivenPerson(3, "Third");
    OpenPrivileges();
    BeginNew("Third");
    EnterLogin("third", "x");
    ExpectToldBehind(Statement("UPDATE UserPrivilegeMaster SET LoginId = 'Third' WHERE UserCode = 2"),
                     QStringLiteral("Login ID Already Exists"));
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE UserCode = 3"), 0);
}

TEST_F(frmUtilUserPrivilegesTest, WhatAnotherUserStoresWhileASaveWaitsIsNotWrittenOver)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    BeginEdit("User bala");
    Toggle(3);
    ExpectToldBehind(Statement("UPDATE UserPrivilegeMaster SET Password = 'New' WHERE UserCode = 2"),
                     QStringLiteral("Privileges Of This User Were Changed By Another User Meanwhile.\n"
                                    "You Cannot Save This Data."));
    EXPECT_EQ(RightsOfUser(2), 0);
}

TEST_F(frmUtilUserPrivilegesTest, WhatAnotherUserStoredMeanwhileIsNotWrittenOver)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    BeginEdit("User bala");
    AnotherClient()->Execute(
        QStringLiteral("UPDATE UserPrivilegeMaster SET Password = 'New' WHERE UserCode = 2"));
    Toggle(3);
    ExpectTold(QStringLiteral("Privileges Of This User Were Changed By Another User Meanwhile.\n"
                              "You Cannot Save This Data."));
    EXPECT_EQ(Tree()->Checked(), std::set{3});
    EXPECT_EQ(RightsOfUser(2), 0);
}

TEST_F(frmUtilUserPrivilegesTest, ALoginThatAnotherUserMadeMeanwhileIsOffered)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    EnterLogin("bala", "x");
    AnotherClient()->Execute(
        QStringLiteral("INSERT INTO UserPrivilegeMaster (UserCode, LoginId, Password, Block, EnteredBy, Days)"
                       " VALUES (2, 'other', 'y', 'N', 0, 0)"));
    prompts.ExpectQuestion(AlreadyExists, true);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(TextOf("txtLoginID"), "other");
    EXPECT_EQ(States(), "cmdEdit ");
}

TEST_F(frmUtilUserPrivilegesTest, APersonWhoIsDeletedMeanwhileGetsNoLogin)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    EnterLogin("bala", "x");
    AnotherClient()->Execute(QStringLiteral("DELETE FROM UserMaster WHERE UserCode = 2"));
    prompts.ExpectCritical(QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data."));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(TextOf("txtLoginID"), "bala");
    EXPECT_TRUE(List("dbcUserName")->IsBlank());
    EXPECT_EQ(List("dbcUserName")->findText(QStringLiteral("Bala")), -1);
}

TEST_F(frmUtilUserPrivilegesTest, APersonWhoIsDeletedWhileHisLoginIsChangedIsToldOf)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    BeginEdit("User bala");
    const auto other = AnotherClient();
    other->Execute(QStringLiteral("DELETE FROM UserPrivilegeMaster WHERE UserCode = 2"));
    other->Execute(QStringLiteral("DELETE FROM UserMaster WHERE UserCode = 2"));
    ExpectTold(QStringLiteral("Privileges Of This User Were Changed By Another User Meanwhile.\n"
                              "You Cannot Save This Data."));
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE UserCode = 2"), 0);
}

TEST_F(frmUtilUserPrivilegesTest, ACopyToAPersonWhoIsDeletedMeanwhileIsRefused)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    Choose("dbcFromUser", QStringLiteral("User boss"));
    Choose("dbcToUser", QStringLiteral("User bala"));
    const auto other = AnotherClient();
    other->Execute(QStringLiteral("DELETE FROM UserPrivilegeMaster WHERE UserCode = 2"));
    other->Execute(QStringLiteral("DELETE FROM UserMaster WHERE UserCode = 2"));
    prompts.ExpectInformation(QStringLiteral("Login Not Created For User bala"));
    CopyTo("", "");
    EXPECT_EQ(RightsOfUser(2), 0);
}

TEST_F(frmUtilUserPrivilegesTest, ACopyWhileAnotherClientSavesIsToldAndLeavesTheChoices)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(1));
    {
        const auto other = AnotherClient();
        const store::Transaction saving(*other);
        prompts.ExpectCritical(HeldByAnotherClient);
        CopyTo("User boss", "User bala");
    }
    EXPECT_EQ(List("dbcFromUser")->currentText().toStdString(), "User boss");
    EXPECT_EQ(List("dbcToUser")->currentText().toStdString(), "User bala");
    prompts.ExpectInformation(QStringLiteral("Privilege Copied"));
    CopyTo("", "");
    EXPECT_EQ(RightsOfUser(2), 4);
}

TEST_F(frmUtilUserPrivilegesTest, ACopyThatFailsBehindItsQuestionIsToldAndNothingMoreIsAsked)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"),
              {{QStringLiteral("Masters"), QStringLiteral("D")}});
    OpenPrivileges();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(1));
    const auto other = AnotherClient();
    std::optional<store::Transaction> saving;
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        told.append(text);
        if (!saving)
            saving.emplace(*other);
        return true;
    });
    CopyTo("User boss", "User bala");
    saving.reset();
    ASSERT_EQ(told.size(), 2) << told.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(told[1].toStdString(), HeldByAnotherClient.toStdString());
    EXPECT_EQ(RightsOfUser(2), 1);
}

TEST_F(frmUtilUserPrivilegesTest, APersonInHandWhoLosesHisLoginBehindACopyIsNotShownAnyMore)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    for (const char* loss : {"DELETE FROM UserPrivilegeMaster WHERE UserCode = 2",
                             "ALTER TABLE UserPrivilegeMaster RENAME TO Away"}) {
        SCOPED_TRACE(loss);
        Given(
            "INSERT OR IGNORE INTO UserPrivilegeMaster (UserCode, LoginId, Password, Block, EnteredBy, Days)"
            " VALUES (2, 'bala', 'Pass', 'N', 0, 0)");
        Given("DELETE FROM UserPrivilegeDetails WHERE UserCode = 2");
        OpenPrivileges();
        Press(Button("cmdNew"));
        QStringList told;
        Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
            told.append(text);
            if (text == QLatin1String("Privilege Copied"))
                AnotherClient()->Execute(QString::fromLatin1(loss));
            return true;
        });
        ChoosePerson("User bala");
        EXPECT_EQ(States(), "cmdEdit ");
        CopyTo("User boss", "User bala");
        EXPECT_TRUE(told.contains(QStringLiteral("Privilege Copied")));
        EXPECT_EQ(States(), "cmdNew ");
        EXPECT_EQ(TextOf("txtLoginID"), "");
        form->Unload();
        Settle();
    }
    Given("ALTER TABLE Away RENAME TO UserPrivilegeMaster");
}

TEST_F(frmUtilUserPrivilegesTest, RightsThatArriveByACopyAreShownOfThePersonInHand)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    Press(Button("cmdNew"));
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    prompts.ExpectQuestion(AlreadyExists, true);
    ChoosePerson("User bala");
    prompts.Verify();
    EXPECT_EQ(Tree()->Checked(), std::set<int>());
    prompts.ExpectInformation(QStringLiteral("Privilege Copied"));
    CopyTo("User boss", "User bala");
    EXPECT_EQ(Tree()->Checked(),
              std::set<int>(PrivilegeLine::Managing.begin(), PrivilegeLine::Managing.end()));
    EXPECT_EQ(States(), "cmdEdit ");
    Press(Button("cmdEdit"));
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(RightsOfUser(2), 4);
}

TEST_F(frmUtilUserPrivilegesTest, ACopyNeedsTheRightToChangeWhatIsStored)
{
    GivenUser(1, QStringLiteral("boss"), QStringLiteral("Secret"),
              {{QStringLiteral("ToolsMenu"), QStringLiteral("D")},
               {QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("D")},
               {QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("N")}});
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    for (const char* from : {"", "User boss"}) {
        prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
        CopyTo(from, "User bala");
    }
    EXPECT_EQ(RightsOfUser(2), 0);
}

TEST_F(frmUtilUserPrivilegesTest, TheTreeShowsItsScreensAtOnceAndBeginsAtTheFirstLine)
{
    OpenPrivileges();
    EXPECT_TRUE(Tree()->header()->isHidden());
    for (const int group : {1, 54, 76, PrivilegeLine::Utilities}) {
        EXPECT_TRUE(Line(group)->isExpanded()) << group;
        EXPECT_FALSE(Line(group + 1)->isExpanded()) << group + 1;
    }
    EXPECT_EQ(Tree()->currentItem(), Line(1));
}

TEST_F(frmUtilUserPrivilegesTest, TheTreeIsAsWideAsItsCaptionsNeedAndNoWider)
{
    PrivilegeTreeView tree;
    const auto lacksRoom = [&tree](int less) {
        tree.resize(tree.sizeHint() - QSize(less, 0));
        tree.show();
        Settle();
        EXPECT_TRUE(tree.verticalScrollBar()->isVisible());
        return tree.horizontalScrollBar()->maximum() > 0;
    };
    EXPECT_FALSE(lacksRoom(0));
    EXPECT_TRUE(lacksRoom(1));
}

/// How the lines of a tree are painted, and where something was painted anew.
class Paints : public QObject
{
public:
    explicit Paints(QTreeWidget* tree) : tree_(tree) { tree_->viewport()->installEventFilter(this); }

    QImage Of(QTreeWidgetItem* line) const
    {
        return tree_->viewport()->grab(tree_->visualItemRect(line)).toImage();
    }

    QRegion anew;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            anew += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

private:
    QTreeWidget* tree_;
};

TEST_F(frmUtilUserPrivilegesTest, LinesThatCannotBeTickedLookSoButForTheLineInHand)
{
    GivenManager();
    OpenPrivileges();
    Tree()->setCurrentItem(Line(1));
    Settle();
    Paints paints(Tree());
    const QImage inHand = paints.Of(Line(1));
    const QImage closed = paints.Of(Line(2));
    paints.anew = {};
    Press(Button("cmdNew"));
    Settle();
    EXPECT_TRUE(paints.anew.contains(Tree()->visualItemRect(Line(2)))) << "they are seen to open";
    EXPECT_EQ(paints.Of(Line(1)), inHand);
    EXPECT_NE(paints.Of(Line(2)), closed);
}

TEST_F(frmUtilUserPrivilegesTest, ATickIsSeenAtOnceOnAllLinesBelow)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    Tree()->setFocus();
    Tree()->setCurrentItem(Line(1));
    Settle();
    Paints paints(Tree());
    const QImage before = paints.Of(Line(2));
    paints.anew = {};
    QTest::keyClick(Tree(), Qt::Key_Space);
    Settle();
    EXPECT_TRUE(paints.anew.contains(Tree()->visualItemRect(Line(2))));
    EXPECT_NE(paints.Of(Line(2)), before);
}

TEST_F(frmUtilUserPrivilegesTest, NoCaptionOfTheTreeIsCut)
{
    OpenPrivileges();
    Tree()->expandAll();
    Tree()->setFixedWidth(90);
    Settle();
    for (int line = 1; line <= static_cast<int>(PrivilegeNodes().size()); ++line) {
        const QRect room = Tree()->visualItemRect(Line(line));
        EXPECT_GE(room.width(), Tree()->fontMetrics().horizontalAdvance(Line(line)->text(0)) +
                                    Tree()->style()->pixelMetric(QStyle::PM_IndicatorWidth))
            << Line(line)->text(0).toStdString();
    }
}

TEST_F(frmUtilUserPrivilegesTest, WhatIsAskedOfTheSchoolDoesNotGrowWithItsPeople)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    const auto statements = [this] {
        Given("DELETE FROM UserPrivilegeDetails WHERE UserCode = 2");
        const auto before = Session().gcnnMain->StatementsRun();
        OpenPrivileges();
        BeginEdit("User bala");
        Press(Button("cmdCancel"));
        prompts.ExpectInformation(QStringLiteral("Privilege Copied"));
        CopyTo("User boss", "User bala");
        form->Unload();
        Settle();
        return Session().gcnnMain->StatementsRun() - before;
    };
    const auto few = statements();
    for (int code = 3; code < 40; ++code)
        GivenUser(code, QStringLiteral("more%1").arg(code), QStringLiteral("x"), AllOfPrivileges);
    EXPECT_EQ(statements(), few);
}

TEST_F(frmUtilUserPrivilegesTest, ALockedFileLeavesWhatWasEntered)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    EnterLogin("bala", "x");
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(1));
    const auto other = AnotherClient();
    const store::Transaction saving(*other);
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(States(), "Frame1 cmdSave ");
    EXPECT_EQ(TextOf("txtLoginID"), "bala");
}

TEST_F(frmUtilUserPrivilegesTest, NewAndEditNeedTheirRights)
{
    GivenUser(1, QStringLiteral("boss"), QStringLiteral("Secret"),
              {{QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("N")}});
    OpenPrivileges();
    Press(Button("cmdNew"));
    prompts.ExpectQuestion(AlreadyExists, true);
    ChoosePerson("User boss");
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    prompts.Verify();
    EXPECT_EQ(States(), "cmdEdit ");
    Press(Button("cmdCancel"));
    Given("DELETE FROM UserPrivilegeDetails WHERE UserCode = 1");
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    prompts.Verify();
    EXPECT_EQ(States(), "cmdNew ");
}

TEST_F(frmUtilUserPrivilegesTest, TheUserMasterOpensBesideTheListAndBringsItsPeople)
{
    GivenManager();
    OpenPrivileges();
    Press(Button("cmdNew"));
    Press(Button("cmdAddUserName"));
    Settle();
    Screen* master = ScreenRegistry::OpenInstance(QStringLiteral("frmUtilUserMaster"));
    ASSERT_NE(master, nullptr);
    GivenPerson(2, "Bala");
    master->Unload();
    Settle();
    EXPECT_GE(List("dbcUserName")->findText(QStringLiteral("Bala")), 0);
}

TEST_F(frmUtilUserPrivilegesTest, CancelTakesEverythingBack)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    EnterLogin("bala", "x", "YES");
    Retype("txtDays", "3");
    Toggle(1);
    Press(Button("cmdCancel"));
    EXPECT_EQ(States(), "cmdNew ");
    for (const char* name : {"txtLoginID", "txtPassword", "txtRePassword", "txtDays"})
        EXPECT_EQ(TextOf(name), "") << name;
    EXPECT_TRUE(List("dbcUserName")->IsBlank());
    EXPECT_EQ(Blocked()->currentIndex(), -1);
    EXPECT_EQ(Tree()->Checked(), std::set<int>());
    EXPECT_EQ(FocusName(), "cmdNew");
}

TEST_F(frmUtilUserPrivilegesTest, CancelReadsThePeopleAnew)
{
    GivenManager();
    OpenPrivileges();
    Press(Button("cmdNew"));
    GivenPerson(2, "Bala");
    Press(Button("cmdCancel"));
    EXPECT_GE(List("dbcUserName")->findText(QStringLiteral("Bala")), 0);
}

TEST_F(frmUtilUserPrivilegesTest, BehindCancelANewLoginIsThatOfThePersonWhoIsChosenThen)
{
    GivenManager();
    GivenPerson(2, "Bala");
    GivenPerson(3, "Third");
    OpenPrivileges();
    BeginEdit("User boss");
    Press(Button("cmdCancel"));
    BeginNew("Third");
    EnterLogin("third", "x");
    Save();
    EXPECT_EQ(Count("SELECT UserCode FROM UserPrivilegeMaster WHERE LoginId = 'third'"), 3);
}

TEST_F(frmUtilUserPrivilegesTest, WhoGivesUpIsAskedNothing)
{
    GivenManager();
    for (const char* way : {"cmdCancel", "cmdExit"}) {
        OpenPrivileges();
        Press(Button("cmdNew"));
        Choose("dbcUserName", QStringLiteral("User boss"));
        Press(Button(way));
        prompts.Verify();
        Settle();
    }
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilUserPrivileges")), nullptr);
}

TEST_F(frmUtilUserPrivilegesTest, WhatIsLeftEmptyIsNotLookedFor)
{
    GivenManager();
    OpenPrivileges();
    Press(Button("cmdNew"));
    const auto before = Session().gcnnMain->StatementsRun();
    Choose("dbcUserName", QStringLiteral("User boss"));
    Choose("dbcUserName", QStringLiteral(" "));
    QTest::keyClick(List("dbcUserName"), Qt::Key_Tab);
    Settle();
    ASSERT_EQ(FocusName(), "txtLoginID");
    QTest::keyClick(Box("txtLoginID"), Qt::Key_Tab);
    Settle();
    EXPECT_EQ(FocusName(), "txtPassword");
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
}

TEST_F(frmUtilUserPrivilegesTest, WhatCannotBeLookedUpIsToldAndTheKeyboardStays)
{
    GivenManager();
    GivenPerson(2, "Bala");
    OpenPrivileges();
    BeginNew("Bala");
    Retype("txtLoginID", "bala");
    AnotherClient()->Execute(QStringLiteral("ALTER TABLE UserPrivilegeMaster RENAME TO Away"));
    prompts.ExpectCritical(NoSuchTable("UserPrivilegeMaster"));
    QTest::keyClick(Box("txtLoginID"), Qt::Key_Tab);
    prompts.Verify();
    Settle();
    EXPECT_TRUE(HasFocus("txtLoginID"));
    Box("txtLoginID")->clear();
    Choose("dbcUserName", QStringLiteral(" "));
    prompts.ExpectCritical(NoSuchTable("UserPrivilegeMaster"));
    ChoosePerson("Bala");
    prompts.Verify();
    EXPECT_TRUE(List("dbcUserName")->IsBlank()) << "a login that cannot be read must not look like none";
    EXPECT_TRUE(HasFocus("dbcUserName"));
    Given("ALTER TABLE Away RENAME TO UserPrivilegeMaster");
}

TEST_F(frmUtilUserPrivilegesTest, EachCopyListLeavesTheOthersChoiceOut)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    GivenPerson(3, "Without");
    OpenPrivileges();
    EXPECT_EQ(List("dbcFromUser")->count(), 3);
    Choose("dbcFromUser", QStringLiteral("User boss"));
    EXPECT_EQ(List("dbcToUser")->count(), 2);
    EXPECT_EQ(List("dbcToUser")->findText(QStringLiteral("User boss")), -1);
    Choose("dbcToUser", QStringLiteral("User bala"));
    EXPECT_EQ(List("dbcFromUser")->findText(QStringLiteral("User bala")), -1);
    EXPECT_EQ(List("dbcFromUser")->currentText().toStdString(), "User boss");
}

TEST_F(frmUtilUserPrivilegesTest, ACopyAsksForBothPeople)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    prompts.ExpectInformation(QStringLiteral("Select 'From User'"));
    CopyTo("", "");
    EXPECT_EQ(FocusName(), "dbcFromUser");
    prompts.ExpectInformation(QStringLiteral("Select 'To User'"));
    CopyTo("User boss", "");
    EXPECT_EQ(FocusName(), "dbcToUser");
}

TEST_F(frmUtilUserPrivilegesTest, CopyingToOneselfIsRefused)
{
    GivenManager();
    OpenPrivileges();
    // The lists leave the other's choice out; one that was read before may still hold it.
    Choose("dbcFromUser", QStringLiteral("User boss"));
    List("dbcToUser")->addItem(QStringLiteral("User boss"), 1);
    prompts.ExpectInformation(QStringLiteral("Both 'From User' And 'To User' Should Not Be Same"));
    List("dbcToUser")->SetBoundCode(1);
    CopyTo("", "");
}

TEST_F(frmUtilUserPrivilegesTest, RightsAreCopiedOverThoseOfTheTargetOnlyAfterAsking)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"),
              {{QStringLiteral("Masters"), QStringLiteral("D")}}, QStringLiteral("Y"));
    GivenUser(3, QStringLiteral("chitra"), QStringLiteral("Pass"));
    OpenPrivileges();
    const QString question = QStringLiteral(
        "Privilege Already Exists For User bala.Do You Want To Replace The Existing Privilege ?");
    prompts.ExpectQuestion(question, false);
    CopyTo("User boss", "User bala");
    EXPECT_EQ(RightsOfUser(2), 1);
    prompts.ExpectQuestion(question, true);
    prompts.ExpectInformation(QStringLiteral("Privilege Copied"));
    CopyTo("", "");
    EXPECT_EQ(RightsOfUser(2), 4);
    EXPECT_EQ(Count("SELECT count(*) FROM UserPrivilegeMaster WHERE UserCode = 2 AND LoginId = 'bala'"
                    " AND Block = 'Y'"),
              1);
    EXPECT_TRUE(List("dbcFromUser")->IsBlank());
    EXPECT_TRUE(List("dbcToUser")->IsBlank());
    EXPECT_EQ(List("dbcToUser")->count(), 4);
    prompts.ExpectInformation(QStringLiteral("Privilege Copied"));
    CopyTo("User boss", "User chitra");
    EXPECT_EQ(RightsOfUser(3), 4);
}

TEST_F(frmUtilUserPrivilegesTest, ACopyFromWhoHasNoRightsIsRefused)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    prompts.ExpectInformation(QStringLiteral("No Privilege Exists For User bala"));
    CopyTo("User bala", "User boss");
    EXPECT_EQ(RightsOfUser(1), 4);
}

TEST_F(frmUtilUserPrivilegesTest, ACopyToWhoLostHisLoginMeanwhileIsRefused)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    Choose("dbcFromUser", QStringLiteral("User boss"));
    Choose("dbcToUser", QStringLiteral("User bala"));
    Given("DELETE FROM UserPrivilegeMaster WHERE UserCode = 2");
    prompts.ExpectInformation(QStringLiteral("Login Not Created For User bala"));
    CopyTo("", "");
}

TEST_F(frmUtilUserPrivilegesTest, ACopyThatTakesTheRightFromItsOnlyHolderIsRefused)
{
    GivenManager();
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"),
              {{QStringLiteral("Masters"), QStringLiteral("D")}});
    OpenPrivileges();
    prompts.ExpectQuestion(
        QStringLiteral(
            "Privilege Already Exists For User boss.Do You Want To Replace The Existing Privilege ?"),
        true);
    prompts.ExpectInformation(
        QStringLiteral("Atleast One User Should Have Privilege To Work Cannot Able To Tansfer"));
    CopyTo("User bala", "User boss");
    EXPECT_EQ(RightsOfUser(1), 4);
    EXPECT_FALSE(List("dbcFromUser")->IsBlank());
}

TEST_F(frmUtilUserPrivilegesTest, ACopyWithoutAnyHolderIsRefused)
{
    GivenUser(1, QStringLiteral("boss"), QStringLiteral("Secret"),
              {{QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("E")}});
    GivenUser(2, QStringLiteral("bala"), QStringLiteral("Pass"));
    OpenPrivileges();
    prompts.ExpectInformation(QStringLiteral("Selected USer Doesnot Have Any Privilege To Transfer"));
    CopyTo("User boss", "User bala");
    EXPECT_EQ(RightsOfUser(2), 0);
}

TEST_F(frmUtilUserPrivilegesTest, FitsASmallDisplayAndLeadsEachLetterToOneControl)
{
    ExpectToFit("frmUtilUserPrivileges");
    const Screen* screen = ScreenRegistry::OpenInstance(QStringLiteral("frmUtilUserPrivileges"));
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(ExpectOneControlALetter(screen).join(QLatin1Char(' ')).toStdString(), "");
}

} // namespace
} // namespace tally::test
