// Two lists of which the first says what the second offers: a class and its divisions, a state and its
// cities.

#include "core/ui/controls/DataCombo.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/PlaceChoice.h"
#include "support/FormDriver.h"

#include <QVBoxLayout>

namespace tally::test {
namespace {

class ChoicesTest : public FormDriver<Screen>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Given("INSERT INTO ClassDivisionMaster VALUES (1, 'X', 2, 1, 1), (2, 'IX', 1, 2, 1)");
        Given("INSERT INTO ClassDivisionDetails VALUES (1, 'B', 1), (1, 'A', 2), (2, 'C', 1)");
        Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)");
        Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1)");
        form = new Screen(QStringLiteral("Choices"), 0); // deleted with all windows that a test leaves
        auto* rows = new QVBoxLayout(form);
        for (DataCombo** list : {&above, &below})
            rows->addWidget(*list = new DataCombo(form));
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    }

    DivisionChoice& Divisions(DivisionChoice::Reads reads = DivisionChoice::Reads::AtEachClass)
    {
        auto* divisions = new DivisionChoice(form, above, below, DivisionChoice::Order::ByName, reads);
        divisions->Load();
        return *divisions;
    }
    PlaceChoice& Places()
    {
        auto* places = new PlaceChoice(form, above, below);
        places->Load();
        return *places;
    }

    static std::string Offered(const DataCombo* list)
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->itemText(index));
        return texts.join(QLatin1Char('|')).toStdString();
    }
    std::string Chosen() const { return (above->currentText() + u'/' + below->currentText()).toStdString(); }

    DataCombo* above = nullptr;
    DataCombo* below = nullptr;
};

TEST_F(ChoicesTest, LoadingThemAnewChoosesNothingAndOffersNothingBelow)
{
    DivisionChoice& divisions = Divisions();
    EXPECT_EQ(Offered(above), " |X|IX");
    divisions.Choose(1, 2);
    EXPECT_EQ(Chosen(), "X/A");
    divisions.Load();
    EXPECT_EQ(Chosen(), " / ");
    EXPECT_EQ(Offered(below), " ");

    PlaceChoice& places = Places();
    EXPECT_EQ(Offered(above), " |Goa|Kerala");
    places.Choose(1, 1);
    EXPECT_EQ(Chosen(), "Kerala/Kochi");
    places.Load();
    EXPECT_EQ(Chosen(), " /");
    EXPECT_EQ(Offered(below), "");
}

TEST_F(ChoicesTest, RefillingThemKeepsWhatIsChosenAsFarAsItStillExists)
{
    DivisionChoice& divisions = Divisions();
    divisions.Choose(1, 2);
    Given("INSERT INTO ClassDivisionDetails VALUES (1, 'AA', 3)");
    divisions.Refill();
    EXPECT_EQ(Chosen(), "X/A");
    EXPECT_EQ(Offered(below), " |A|AA|B");
    Given("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2");
    divisions.Refill();
    EXPECT_EQ(Chosen(), "X/ ");

    PlaceChoice& places = Places();
    places.Choose(1, 1);
    Given("INSERT INTO CityMaster VALUES (3, 1, 'Kannur', 1)");
    places.Refill();
    EXPECT_EQ(Chosen(), "Kerala/Kochi");
    EXPECT_EQ(Offered(below), "Kannur|Kochi");
}

TEST_F(ChoicesTest, EachChoiceAboveOffersItsOwnBelow)
{
    Divisions();
    Choose(above, QStringLiteral("X"));
    EXPECT_EQ(Offered(below), " |A|B");
    Choose(above, QStringLiteral("IX"));
    EXPECT_EQ(Offered(below), " |C");
    Choose(above, QStringLiteral(" "));
    EXPECT_EQ(Offered(below), " ");
}

TEST_F(ChoicesTest, EachStateOffersItsCities)
{
    Places();
    Choose(above, QStringLiteral("Goa"));
    EXPECT_EQ(Offered(below), "Panaji");
    Choose(above, QStringLiteral("Kerala"));
    EXPECT_EQ(Offered(below), "Kochi");
}

TEST_F(ChoicesTest, WhereTheClerkOnlyPassesAClassItsDivisionsWaitAndTheOthersAreGone)
{
    DivisionChoice& divisions = Divisions(DivisionChoice::Reads::OnceSettled);
    divisions.Choose(1, 2);
    above->setFocus();
    QTest::keyClick(above, Qt::Key_Down);
    EXPECT_EQ(Chosen(), "IX/ ");
    EXPECT_EQ(Offered(below), " ");
    QTest::keyClick(above, Qt::Key_Tab);
    EXPECT_EQ(Offered(below), " |C");
}

TEST_F(ChoicesTest, DivisionsThatCannotBeReadAreToldAndThoseOfTheClassBeforeAreGone)
{
    Divisions();
    Choose(above, QStringLiteral("X"));
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionDetails"));
    QTest::keyClick(above, Qt::Key_Down);
    EXPECT_EQ(Chosen(), "IX/ ");
    EXPECT_EQ(Offered(below), " ");
    Given("ALTER TABLE Away RENAME TO ClassDivisionDetails");
}

TEST_F(ChoicesTest, CitiesThatCannotBeReadAreToldAndThoseOfTheStateBeforeAreGone)
{
    Places();
    Choose(above, QStringLiteral("Goa"));
    Given("ALTER TABLE CityMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("CityMaster"));
    QTest::keyClick(above, Qt::Key_Down);
    EXPECT_EQ(Offered(below), "");
    Given("ALTER TABLE Away RENAME TO CityMaster");
}

TEST_F(ChoicesTest, ListsThatCannotBeReadStayAsTheyAre)
{
    DivisionChoice& divisions = Divisions();
    divisions.Choose(1, 2);
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Away");
    EXPECT_THROW(divisions.Choose(2, 1), store::StoreError);
    EXPECT_EQ(Chosen(), "X/A");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionDetails"));
    divisions.OfferAgain(DivisionChoice::Order::ByCode);
    EXPECT_EQ(Offered(below), " |A|B");
    EXPECT_EQ(Chosen(), "X/A");
    Given("ALTER TABLE Away RENAME TO ClassDivisionDetails");
}

TEST_F(ChoicesTest, DivisionsOfferedInAnotherOrderKeepTheChosenOneUntilTheNextClass)
{
    DivisionChoice& divisions = Divisions();
    divisions.Choose(1, 2);
    divisions.OfferAgain(DivisionChoice::Order::ByCode);
    EXPECT_EQ(Offered(below), " |B|A");
    EXPECT_EQ(Chosen(), "X/A");
    Choose(above, QStringLiteral("IX"));
    Choose(above, QStringLiteral("X"));
    EXPECT_EQ(Offered(below), " |A|B");
}

TEST_F(ChoicesTest, AClassThatTheProgramChoosesOrTheScreenRefusesOffersWhatBelongsToIt)
{
    DivisionChoice& divisions = Divisions();
    divisions.ChooseClass(2);
    EXPECT_EQ(Chosen(), "IX/ ");
    EXPECT_EQ(Offered(below), " |C");
    divisions.TakeBackClass();
    EXPECT_EQ(Chosen(), " / ");
    EXPECT_EQ(Offered(below), " ");
    divisions.ChooseClass(2);
    divisions.ChooseClass(0);
    EXPECT_EQ(Offered(below), " ");
}

TEST_F(ChoicesTest, ListsThatWereNeverReadOfferABlankLine)
{
    new DivisionChoice(form, above, below, DivisionChoice::Order::ByName);
    EXPECT_EQ(Offered(above), " ");
    EXPECT_EQ(Offered(below), " ");
}

} // namespace
} // namespace tally::test
