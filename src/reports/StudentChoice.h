#pragma once

#include "core/school/SchoolTypes.h"
#include "core/ui/DivisionChoice.h"

#include <QObject>
#include <QString>

namespace tally {

class DataCombo;
class Screen;

/// Class, division and, where the report is of one, a student of it in the year of the session. Belongs to
/// its screen.
class StudentChoice : public QObject
{
    Q_OBJECT

public:
    struct Controls
    {
        DataCombo* cboClass;
        DataCombo* cboDivision;
        DataCombo* cbostudent; ///< null where the report is of the whole division
    };

    StudentChoice(Screen* screen, const Controls& controls, DivisionChoice::Order divisions);

    /// Reads the classes; nothing is chosen then. Classes that cannot be read are told and left out.
    void Load();
    /// Offers the divisions of the class in this order, and keeps what is chosen as far as it still exists.
    void OfferDivisions(DivisionChoice::Order order);
    /// True when all is chosen; else says what is missing first and gives it the keyboard.
    [[nodiscard]] bool IsComplete();
    /// The same without a word.
    bool IsMade() const;

    /// Of the session's year; no exam.
    SchoolScope Scope() const;
    int StudentCode() const;
    QString ClassName() const;
    QString DivisionName() const;
    /// With his number: "Asha (A17)".
    QString StudentName() const;

Q_SIGNALS:
    /// Something else is chosen than before.
    void Changed();

private:
    void LoadStudents();

    Screen* screen_;
    Controls controls_;
    DivisionChoice* classDivision_;
};

} // namespace tally
