#pragma once

#include "core/ui/controls/DataGrid.h"
#include "masters/frmSimpleMaster.h"
#include "masters/SimpleMasterMembers.h"
#include "support/FormDriver.h"

#include <QGroupBox>

namespace tally::test {

/// A simple master, driven as the clerk does.
class SimpleMasterFixture : public FormDriver<frmSimpleMaster>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Session().gintUserCode = 4;
    }

    void OpenMaster(const char* formName)
    {
        OpenForm(formName);
        grid = Find<DataGrid>(form, "dgdDetails");
    }

    /// "Idle", "New" and so on, by what is switched on.
    std::string State()
    {
        std::string on;
        if (IsEnabled("Frame1"))
            on += "Frame1 ";
        for (const char* name : {"cmdNew", "cmdEdit", "cmdDelete", "cmdSave"})
            if (Button(name)->isEnabled())
                on += std::string(name) + " ";
        if (on == "cmdNew ")
            return "Idle";
        if (on == "cmdEdit cmdDelete ")
            return "RowSelected";
        return on == "Frame1 cmdSave " ? "Entry" : on;
    }

    /// Walks down to row `row` of the grid and answers the question that comes on it.
    void SelectRow(int row, const char* question, bool answer = true)
    {
        grid->setFocus();
        for (int step = 0; step < row; ++step)
            prompts.ExpectQuestion(QString::fromLatin1(question), false);
        prompts.ExpectQuestion(QString::fromLatin1(question), answer);
        for (int step = 0; step <= row; ++step)
            QTest::keyClick(grid, Qt::Key_Down);
        prompts.Verify();
    }

    QStringList Column(const char* head) const
    {
        QStringList texts;
        for (int row = 0; row < grid->RowCount(); ++row)
            texts.append(grid->Text(row, QString::fromLatin1(head)));
        return texts;
    }
    std::string Shown(const char* head) const { return Column(head).join(QLatin1Char('|')).toStdString(); }

    DataGrid* grid = nullptr;
};

inline const QString RowInUse =
    QStringLiteral("This Data Is Already Used By Other Screen(s).\nYou Cannot Delete This Data.");
inline const QString RowIsGone =
    QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");

} // namespace tally::test
