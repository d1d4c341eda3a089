#pragma once

#include "core/ui/Screen.h"
#include "students/PromotionLists.h"

#include <memory>

class QCheckBox;

namespace Ui {
class frmPromotionEntry;
}

namespace tally {

class CheckList;
class DivisionChoice;

/// "Promotion Entry": carries the students of a class-division into the next academic year, into the next
/// higher class or once more into the same one. Only one client may have it open.
class frmPromotionEntry : public Screen
{
    Q_OBJECT

public:
    frmPromotionEntry();
    ~frmPromotionEntry() override;

    QSize sizeHint() const override;

protected:
    void Form_Activate(bool first) override;

private:
    void ConnectHandlers();

    void cmdNew_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void cbofromClass_Click() { PromoteValue(); }
    void cbofromDivision_Click();
    void cbotoclass_Click();
    void Cbotodivision_Click();
    void cmdMoveFromToTo_Click();
    void cmdMoveToToFrom_Click();
    void List_ItemCheck(CheckList* list, int index, bool ticked);

    /// The "To" class follows the "From" class; whatever was moved belongs to the classes before.
    void PromoteValue();
    /// Tells why the two classes do not go together, and lists nobody on the "To" side then. True when they
    /// do, and while one is missing.
    bool FollowsClassRules();
    /// The list of a side as its class-division is stored, nobody where none is chosen. On a failure, which
    /// the user is told, nothing is chosen there.
    void LoadFrom();
    void LoadTo();
    void ShowLists();
    /// How many are ticked, and what can be done with them.
    void LoadTotalNoOfStudents();
    /// Says which choice is missing and takes the user to it.
    bool IsComplete();
    /// Tells that nobody is ticked in the list.
    bool AnybodyTicked(CheckList* list);

    PromotionKind Kind() const;
    Placement From() const;
    Placement To() const;
    PromotionPlan Plan() const;

    std::unique_ptr<Ui::frmPromotionEntry> ui_;
    DivisionChoice* from_ = nullptr;
    DivisionChoice* to_ = nullptr;
    PromotionYears years_;
    PromotionLists lists_;
};

} // namespace tally
