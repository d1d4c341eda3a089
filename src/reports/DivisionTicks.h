#pragma once

#include <QObject>

#include <functional>

class QCheckBox;

namespace tally {

class CheckList;
class DataCombo;
class Screen;
class SelectAllBox;

/// A list of classes and the divisions of the chosen one, of which several are ticked, one by one or all by
/// the box above them.
class DivisionTicks : public QObject
{
public:
    struct Controls
    {
        DataCombo* cboClass;
        CheckList* Lstdivision;
        QCheckBox* chkSelectAll;
    };

    /// `changed` is told each time the user has chosen another class or other divisions. Belongs to the
    /// screen.
    DivisionTicks(Screen* screen, Controls controls, std::function<void()> changed);

    /// Reads the classes; none is chosen then. What cannot be read is told and left out.
    void Load();
    /// The names of the ticked divisions, joined by commas.
    QString Names() const;

private:
    void LoadDivisions();

    Screen* screen_;
    Controls controls_;
    SelectAllBox* ticks_;
    std::function<void()> changed_;
};

} // namespace tally
