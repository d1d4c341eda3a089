#pragma once

#include "core/ui/controls/CheckList.h"
#include "students/frmPromotionEntry.h"
#include "students/PromotionSchool.h"
#include "support/FormDriver.h"

#include <QCheckBox>
#include <QLabel>

#include <memory>

namespace tally::test {

/// The promotion screen over a school in which Asha (A1), Binu (A2) and Cara (A3) sit in IX-A.
class PromotionScreen : public FormDriver<frmPromotionEntry>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        school = std::make_unique<PromotionSchool>(*Session().gcnnMain);
        for (const char* name : {"Asha", "Binu", "Cara"})
            school->Add(QString::fromLatin1(name), NineA);
        Session().gintAcademicYearCode = ThisYear;
        Session().gintUserCode = 5;
    }

    void OpenForm()
    {
        FormDriver::OpenForm("frmPromotionEntry");
        from = Find<CheckList>(form, "lstfromlist");
        to = Find<CheckList>(form, "lsttolist");
    }
    void OpenNew()
    {
        OpenForm();
        Press(Button("cmdNew"));
        ASSERT_TRUE(IsEnabled("fraMain"));
    }
    /// Walks up the classes from the lowest one. From above, the way leads over the highest class, which is
    /// refused.
    void ChooseFromClass(const char* name)
    {
        DataCombo* list = List("cbofromClass");
        list->setFocus();
        QTest::keyClick(list, Qt::Key_End);
        for (int step = 0; step < list->count() && list->currentText() != QLatin1String(name); ++step)
            QTest::keyClick(list, Qt::Key_Up);
        ASSERT_EQ(list->currentText().toStdString(), name);
    }
    /// New, with IX-A chosen on the left, which leads to X on the right.
    void StartFromNineA()
    {
        OpenNew();
        ChooseFromClass("IX");
        Choose("cbofromDivision", QStringLiteral("A"));
    }
    /// The same, and X-A on the right.
    void StartToTenA()
    {
        StartFromNineA();
        Choose("Cbotodivision", QStringLiteral("A"));
    }
    /// Asha and Binu are ticked and moved.
    void StartWithTwoMoved()
    {
        StartToTenA();
        Tick(from, 0);
        Tick(from, 1);
        Press(Button("cmdMoveFromToTo"));
        ASSERT_EQ(Lines(to), "   Asha - (A1)|   Binu - (A2)");
    }

    std::string ChosenIn(const char* list) const { return List(list)->currentText().trimmed().toStdString(); }
    /// "IX-A to X-A" as the four boxes show it, blanks left out.
    std::string Places() const
    {
        return ChosenIn("cbofromClass") + '-' + ChosenIn("cbofromDivision") + " to " +
               ChosenIn("cbotoclass") + '-' + ChosenIn("Cbotodivision");
    }
    static std::string Lines(const CheckList* list)
    {
        QStringList lines;
        for (int index = 0; index < list->count(); ++index)
            lines.append(list->item(index)->text());
        return lines.join(QLatin1Char('|')).toStdString();
    }
    std::string Label(const char* name) const { return Find<QLabel>(form, name)->text().toStdString(); }
    /// How many are said to be selected on the two sides.
    std::string Totals() const { return Label("lbltotalselected") + ' ' + Label("lbltotalselectedTo"); }
    /// Runs a statement as another client of the same files.
    template <typename... Values>
    void Other(const char* sql, const Values&... values)
    {
        AnotherClient()->Execute(QString::fromLatin1(sql), values...);
    }
    std::string EnabledControls() const
    {
        std::string names;
        for (const char* name : {"fraMain", "cmdNew", "cmdSave", "cmdCancel", "cmdExit"})
            if (IsEnabled(name))
                names += std::string(names.empty() ? "" : " ") + name;
        return names;
    }
    void ExpectIdle() const
    {
        EXPECT_EQ(EnabledControls(), "cmdNew cmdCancel cmdExit");
        EXPECT_EQ(Places(), "- to -");
        EXPECT_EQ(Lines(from) + Lines(to), "");
        EXPECT_EQ(Label("lblfromacademicyear") + Label("lbltoacademicyear"), "");
        EXPECT_EQ(Totals(), "0 0");
        for (const char* all : {"chkSelectAllFrom", "chkSelectAllTo"})
            EXPECT_FALSE(Find<QCheckBox>(form, all)->isChecked()) << all;
        EXPECT_EQ(FocusName(), "cmdNew");
    }

    std::unique_ptr<PromotionSchool> school;
    CheckList* from = nullptr;
    CheckList* to = nullptr;
};

} // namespace tally::test
