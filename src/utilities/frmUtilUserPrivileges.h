#pragma once

#include "core/ui/MasterScreen.h"
#include "utilities/UserPrivilegeRepository.h"

#include <memory>
#include <optional>

namespace Ui {
class frmUtilUserPrivileges;
}

namespace tally {

/// Gives a person a login and rights, and copies the rights of one person to another.
class frmUtilUserPrivileges : public MasterScreen
{
    Q_OBJECT

public:
    frmUtilUserPrivileges();
    ~frmUtilUserPrivileges() override;

protected:
    void cmdCancel_Click() override;
    void ShowState(MasterState state) override;
    void RefillLists() override;

private:
    void Form_Load();
    void ConnectHandlers();
    void LoadFromUserName();
    void LoadToUserName();

    void dbcUserName_Settled();
    void txtDays_Change(const QString& text);
    bool txtLoginID_Validate();
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdSave_Click();
    void cmdTransfer_Click();

    bool IsEntering() const { return IsNew() || IsEditing(); }
    bool IsComplete();
    UserLogin Entered() const;
    /// The person on the screen; 0 for none.
    int UserCode() const;
    /// Asks whether the login that the chosen person has already is to be shown, and shows it; else takes the
    /// choice back.
    void OfferDetails(const UserPrivileges& stored);
    void TakeChoiceBack();
    void Show(const UserPrivileges& stored);
    /// What is stored of the person in hand by now; the start where that cannot be known.
    void ShowAnew();
    void Explain(PrivilegeFault fault);
    UserPrivilegeRepository Privileges() const;

    std::unique_ptr<Ui::frmUtilUserPrivileges> ui_;
    int userCode_ = 0;                    ///< whose stored login is in hand; 0 for none
    std::optional<UserPrivileges> found_; ///< that login, as it was shown
};

} // namespace tally
