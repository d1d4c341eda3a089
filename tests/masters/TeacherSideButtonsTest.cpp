#include "core/shell/mdiTallyboard.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "masters/TeacherFixture.h"
#include "support/StandIn.h"

#include <QFocusEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <array>
#include <memory>
#include <vector>

namespace tally::test {
namespace {

constexpr std::array Masters{"frmMasStateMaster", "frmMasCityMaster", "frmMasBloodGroupMaster"};

/// A master screen that does nothing but lie on top.
class BlankMaster : public Screen
{
public:
    explicit BlankMaster(const QString& name) : Screen(name, 0) {}
};

class TeacherSideButtons : public TeacherFixture
{
protected:
    void SetUp() override
    {
        TeacherFixture::SetUp();
        for (const char* name : Masters)
            masters.push_back(std::make_unique<StandIn>(
                QString::fromLatin1(name), [name] { return new BlankMaster(QString::fromLatin1(name)); }));
        StartNew();
        Choose("dbcStateName", QStringLiteral("Kerala"));
        Choose("dbcCityName", QStringLiteral("Kochi"));
        Choose("dbcBloodGroup", QStringLiteral("O+"));
    }

    void TearDown() override
    {
        TeacherFixture::TearDown();
        masters.clear();
    }

    std::vector<std::unique_ptr<StandIn>> masters;

    Screen* OnTop(const char* name)
    {
        Screen* master = ScreenRegistry::OpenInstance(QString::fromLatin1(name));
        EXPECT_NE(master, nullptr) << name;
        EXPECT_EQ(window->Area()->activeSubWindow()->widget(), master) << name;
        return master;
    }
};

TEST_F(TeacherSideButtons, AStateAddedOnTopCanBeChosenOnReturn)
{
    Press(Button("cmdAddStateName"));
    Screen* master = OnTop("frmMasStateMaster");
    Given("INSERT INTO StateMaster VALUES (9, 'Assam', 1)");
    master->Unload();
    Settle();
    ASSERT_EQ(window->Area()->activeSubWindow()->widget(), form);
    EXPECT_TRUE(List("dbcStateName")->IsBlank());
    EXPECT_TRUE(List("dbcCityName")->IsBlank());
    EXPECT_TRUE(HasFocus("dbcStateName"));
    EXPECT_EQ(List("dbcBloodGroup")->currentText().toStdString(), "O+");
    Choose("dbcStateName", QStringLiteral("Assam"));
}

TEST_F(TeacherSideButtons, EachReturnFromAnOpenMasterBringsWhatWasAddedThereAndKeepsWhatIsChosen)
{
    Press(Button("cmdAddBloodGroup"));
    OpenScreen(QStringLiteral("frmTeacherMaster"));
    Choose("dbcBloodGroup", QStringLiteral("O+"));
    Box("txtPincode")->setFocus();
    OpenScreen(QStringLiteral("frmMasBloodGroupMaster"));
    Given("INSERT INTO BloodGroupMaster VALUES (9, 'AB', 1)");
    OpenScreen(QStringLiteral("frmTeacherMaster"));
    EXPECT_EQ(List("dbcBloodGroup")->currentText().toStdString(), "O+");
    EXPECT_TRUE(HasFocus("txtPincode"));
    Choose("dbcBloodGroup", QStringLiteral("AB"));
}

TEST_F(TeacherSideButtons, EachReturnFromOpenCitiesBringsWhatWasAddedThereAndKeepsThePlaceThatIsChosen)
{
    Press(Button("cmdAddCity"));
    OpenScreen(QStringLiteral("frmTeacherMaster"));
    Choose("dbcStateName", QStringLiteral("Kerala"));
    Choose("dbcCityName", QStringLiteral("Kochi"));
    Box("txtPincode")->setFocus();
    OpenScreen(QStringLiteral("frmMasCityMaster"));
    Given("INSERT INTO CityMaster VALUES (9, 1, 'Kannur', 1)");
    OpenScreen(QStringLiteral("frmTeacherMaster"));
    EXPECT_EQ(List("dbcCityName")->currentText().toStdString(), "Kochi");
    Choose("dbcCityName", QStringLiteral("Kannur"));
}

TEST_F(TeacherSideButtons, ACityAddedOnTopCanBeChosenOnReturn)
{
    Press(Button("cmdAddCity"));
    Screen* master = OnTop("frmMasCityMaster");
    Given("INSERT INTO CityMaster VALUES (9, 1, 'Kannur', 1)");
    master->Unload();
    Settle();
    EXPECT_TRUE(List("dbcStateName")->IsBlank());
    EXPECT_TRUE(List("dbcCityName")->IsBlank());
    Choose("dbcStateName", QStringLiteral("Kerala"));
    Choose("dbcCityName", QStringLiteral("Kannur"));
}

TEST_F(TeacherSideButtons, ABloodGroupAddedOnTopCanBeChosenOnReturnAndStateAndCityStay)
{
    Press(Button("cmdAddBloodGroup"));
    Screen* master = OnTop("frmMasBloodGroupMaster");
    Given("INSERT INTO BloodGroupMaster VALUES (9, 'AB', 1)");
    master->Unload();
    Settle();
    EXPECT_TRUE(List("dbcBloodGroup")->IsBlank());
    EXPECT_TRUE(HasFocus("dbcBloodGroup"));
    EXPECT_EQ(List("dbcCityName")->currentText().toStdString(), "Kochi");
    Choose("dbcBloodGroup", QStringLiteral("AB"));
}

TEST_F(TeacherSideButtons, WhenTheFocusLeavesASideButtonItsListsAreReadAnew)
{
    Button("cmdAddCity")->setFocus();
    EXPECT_EQ(List("dbcCityName")->currentText().toStdString(), "Kochi");
    Given("INSERT INTO StateMaster VALUES (9, 'Assam', 1)");
    Box("txtPincode")->setFocus();
    EXPECT_TRUE(List("dbcStateName")->IsBlank());
    EXPECT_TRUE(List("dbcCityName")->IsBlank());
    EXPECT_EQ(List("dbcStateName")->count(), 4);
}

TEST_F(TeacherSideButtons, LookingAtAnotherProgramClearsNothing)
{
    Button("cmdAddCity")->setFocus();
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(Button("cmdAddCity"), &away);
    EXPECT_EQ(List("dbcCityName")->currentText().toStdString(), "Kochi");
}

TEST_F(TeacherSideButtons, PassingFromFieldToFieldStopsAtNoSideButtonAndClearsNothing)
{
    List("dbcStateName")->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(HasFocus("dbcCityName"));
    PressKey(form, Qt::Key_Tab);
    EXPECT_TRUE(HasFocus("txtPincode"));
    EXPECT_EQ(List("dbcCityName")->currentText().toStdString(), "Kochi");
}

TEST_F(TeacherSideButtons, KeysOpenTheMastersToo)
{
    const std::pair<Qt::Key, const char*> keys[] = {
        {Qt::Key_S, "frmMasStateMaster"},
        {Qt::Key_C, "frmMasCityMaster"},
        {Qt::Key_B, "frmMasBloodGroupMaster"},
    };
    for (const auto& [key, name] : keys) {
        const QString opened = QString::fromLatin1(name);
        Box("txtTeacherName")->setFocus();
        QTest::keyClick(window, key, Qt::AltModifier | Qt::ShiftModifier);
        ASSERT_TRUE(QTest::qWaitFor([&opened] { return ScreenRegistry::OpenInstance(opened) != nullptr; }));
        Settle();
        OnTop(name)->Unload();
        Settle();
    }
}

TEST_F(TeacherSideButtons, ReturningFromTheSearchClearsNothing)
{
    Press(Button("cmdSearch"));
    Screen* search = ScreenRegistry::OpenInstance(QStringLiteral("frmTeacherSearch"));
    ASSERT_NE(search, nullptr);
    search->Unload();
    Settle();
    EXPECT_EQ(List("dbcCityName")->currentText().toStdString(), "Kochi");
}

} // namespace
} // namespace tally::test
