#include "core/ui/SelectAllBox.h"

#include "core/ui/controls/CheckList.h"
#include "support/ExpectedPrompts.h"

#include <QCheckBox>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>

namespace tally::test {
namespace {

/// A list with its box, of which the second item cannot be ticked and the third one begins with a mark.
class SelectAllBoxTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QObject::connect(all, &SelectAllBox::Changed, all, [this] { ++changes; });
        all->SetItems({{1, QStringLiteral("  One"), {}},
                       {2, QStringLiteral("  Two"), QStringLiteral("Not Two")},
                       {3, QStringLiteral(". Three"), {}}});
    }

    void Toggle(int index)
    {
        list.setCurrentRow(index);
        QTest::keyClick(&list, Qt::Key_Space);
    }
    void ToggleAll() { QTest::keyClick(&box, Qt::Key_Space); }

    ExpectedPrompts prompts;
    QCheckBox box;
    CheckList list;
    SelectAllBox* all = new SelectAllBox(&box, &list);
    int changes = 0;
};

TEST_F(SelectAllBoxTest, TicksAndUnticksAllThatCanBeTicked)
{
    ToggleAll();
    EXPECT_EQ(list.TickedData(), (std::vector<int>{1, 3}));
    ToggleAll();
    EXPECT_TRUE(list.TickedData().empty());
    EXPECT_EQ(changes, 2);
}

TEST_F(SelectAllBoxTest, PassesOverItemsWithTheMarkThatCanBeTickedOneByOne)
{
    all->PassOver(QLatin1Char('.'));
    ToggleAll();
    EXPECT_EQ(list.TickedData(), (std::vector<int>{1}));
    Toggle(2);
    EXPECT_EQ(list.TickedData(), (std::vector<int>{1, 3}));
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(changes, 2);
}

TEST_F(SelectAllBoxTest, GoesOffWhenAnItemIsUntickedAndKeepsTheOthers)
{
    ToggleAll();
    Toggle(0);
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(list.TickedData(), (std::vector<int>{3}));
    EXPECT_EQ(changes, 2);
}

TEST_F(SelectAllBoxTest, GoesOffWhereNothingCanBeTicked)
{
    all->PassOver(QLatin1Char('.'));
    all->SetItems(
        {{3, QStringLiteral(". Three"), {}}, {2, QStringLiteral("  Two"), QStringLiteral("Not Two")}});
    ToggleAll();
    EXPECT_TRUE(list.TickedData().empty());
    EXPECT_FALSE(box.isChecked());
}

TEST_F(SelectAllBoxTest, TellsWhyAnItemCannotBeTickedAndTakesItsTickBack)
{
    prompts.ExpectInformation(QStringLiteral("Not Two"));
    Toggle(1);
    EXPECT_TRUE(list.TickedData().empty());
    EXPECT_EQ(changes, 0);
}

TEST_F(SelectAllBoxTest, OtherItemsStartUntickedAndTellNobody)
{
    ToggleAll();
    all->SetItems({{4, QStringLiteral("Four"), {}}});
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(list.count(), 1);
    EXPECT_TRUE(list.TickedData().empty());
    ToggleAll();
    all->Clear();
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace tally::test
