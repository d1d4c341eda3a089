#include "core/ui/AccessibleNames.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>
#include <tuple>

namespace tally::test {
namespace {

/// A form with a box of fields, as screen readers meet it.
class AccessibleNamesTest : public testing::Test
{
protected:
    std::string NameOf(const QWidget& control)
    {
        NameControls(&form);
        return control.accessibleName().toStdString();
    }

    QWidget form;
    QGroupBox box{QStringLiteral("&Filters :"), &form};
    QLabel label{&form};
    QLineEdit field{&box};
};

TEST_F(AccessibleNamesTest, AFieldIsCalledByItsLabelWithoutTheLetterAndTheColon)
{
    label.setBuddy(&field);
    for (const char* caption :
         {"&Exam Name :", "Exam Name:", " Exam &Name : ", "Exam Name : :", "Exam Name"}) {
        field.setAccessibleName({});
        label.setText(QString::fromLatin1(caption));
        EXPECT_EQ(NameOf(field), "Exam Name") << caption;
    }
}

TEST_F(AccessibleNamesTest, WithoutALabelItIsCalledByTheBoxAroundIt)
{
    label.setText(QStringLiteral("Exam Name"));
    EXPECT_EQ(NameOf(field), "Filters");
    QLineEdit alone(&form);
    EXPECT_EQ(NameOf(alone), "");
}

TEST_F(AccessibleNamesTest, APartIsCalledByTheLabelOfTheWhole)
{
    QWidget whole(&box);
    QLineEdit part(&whole);
    label.setText(QStringLiteral("Date Of Birth"));
    label.setBuddy(&whole);
    EXPECT_EQ(NameOf(part), "Date Of Birth");
}

TEST_F(AccessibleNamesTest, NothingGetsANameThatHasOneOrThatTheKeyboardDoesNotReach)
{
    QPushButton save(QStringLiteral("&Save"), &box);
    QPushButton sign(&box);
    QLineEdit named(&box);
    named.setAccessibleName(QStringLiteral("Chosen Day"));
    QLabel text(&box);
    NameControls(&form);
    for (const auto& [control, name] : {std::tuple<QWidget*, std::string>(&save, ""),
                                        {&sign, "Filters"},
                                        {&named, "Chosen Day"},
                                        {&text, ""}})
        EXPECT_EQ(control->accessibleName().toStdString(), name);
}

} // namespace
} // namespace tally::test
