#pragma once

#include "exams/CopySchool.h"
#include "support/FormDriver.h"

#include <QCheckBox>
#include <QComboBox>

#include <initializer_list>
#include <memory>

namespace tally::test {

inline const QString CopyAgain = QStringLiteral("Do You Want To Copy This Setup To Any Other Class ?");

/// A copy screen over a school of which each test says what is set up in it.
template <typename Form>
class CopyScreen : public FormDriver<Form>
{
protected:
    using Driver = FormDriver<Form>;

    void SetUp() override
    {
        Driver::SetUp();
        school = std::make_unique<CopySchool>(*Session().gcnnMain);
        Session().gintAcademicYearCode = ThisYear;
        Session().gintUserCode = 5;
    }

    /// With neighbours on all sides of what the test has laid down by then.
    void OpenForm(const char* formName)
    {
        this->SurroundSchool();
        Driver::OpenForm(formName);
    }

    /// Walks down a list with the arrow key until it shows `text`. Nothing is read for it yet.
    void WalkTo(const char* name, const QString& text) const { Driver::Choose(name, text); }
    /// The same, ended with Tab.
    void Choose(const char* name, const QString& text) const
    {
        WalkTo(name, text);
        QTest::keyClick(this->List(name), Qt::Key_Tab);
        Settle();
    }

    /// The entries of a list, from the top, with bars between them.
    std::string Entries(const char* name) const
    {
        const QComboBox* list = this->List(name);
        QStringList entries;
        for (int entry = 0; entry < list->count(); ++entry)
            entries.append(list->itemText(entry));
        return entries.join(QLatin1Char('|')).toStdString();
    }
    std::string ChosenIn(const char* list) const
    {
        return this->List(list)->currentText().trimmed().toStdString();
    }
    /// What is chosen in each of the lists, with strokes between them.
    std::string ChosenIn(std::initializer_list<const char*> lists) const
    {
        QStringList chosen;
        for (const char* list : lists)
            chosen.append(QString::fromStdString(ChosenIn(list)));
        return chosen.join(QLatin1Char('/')).toStdString();
    }
    /// The rows of a grid that have anything in them, columns with blanks between them, rows with bars.
    std::string Rows(const char* name) const
    {
        const auto* grid = Find<FlexGrid>(this->form, name);
        QStringList rows;
        for (int row = 1; row < grid->Rows(); ++row) {
            QStringList cells;
            for (int col = 0; col < grid->Cols(); ++col)
                cells.append(grid->TextMatrix(row, col));
            rows.append(cells.join(QLatin1Char(' ')).trimmed());
        }
        rows.removeAll(QString());
        return rows.join(QLatin1Char('|')).toStdString();
    }
    /// Runs a statement as another client of the same files.
    template <typename... Values>
    void Other(const char* sql, const Values&... values)
    {
        this->AnotherClient()->Execute(QString::fromLatin1(sql), values...);
    }
    /// Those of the controls that are enabled.
    std::string Enabled(std::initializer_list<const char*> controls) const
    {
        QStringList names;
        for (const char* name : controls)
            if (this->IsEnabled(name))
                names.append(QString::fromLatin1(name));
        return names.join(QLatin1Char(' ')).toStdString();
    }
    /// A save that is stored, and the answer to whether it shall go on.
    void SaveCopy(const char* word, bool again)
    {
        this->prompts.ExpectInformation(QString::fromLatin1(word));
        this->prompts.ExpectQuestion(CopyAgain, again);
        Press(this->Button("cmdSave"));
        this->prompts.Verify();
    }
    void SaveTells(Prompts::Kind kind, const QString& text)
    {
        this->prompts.Expect(kind, text);
        Press(this->Button("cmdSave"));
        this->prompts.Verify();
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }

    std::unique_ptr<CopySchool> school;
};

} // namespace tally::test
