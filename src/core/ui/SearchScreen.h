#pragma once

#include "core/GridResult.h"
#include "core/ui/Screen.h"

namespace tally {

class DataGrid;

/// What the screens share that find rows by filters and hand one of them to another screen.
class SearchScreen : public Screen
{
    Q_OBJECT

public:
    QSize sizeHint() const override;

protected:
    /// `helpScreenNo`: of the form to which it hands what it found.
    SearchScreen(const QString& formName, int helpScreenNo);

    /// Says which controls these are; `exit` closes the screen, which stays open while it or `search` is off.
    void SetSearchControls(QAbstractButton* search, QAbstractButton* exit, DataGrid* found,
                           QWidget* firstFilter);
    /// Whether to search: at once with a filter, and without one where the user answers `viewAll` with Yes.
    static bool WantsSearch(bool filtered, const QString& viewAll);
    /// Shows what `search` finds, without the columns in `hidden`; where that is nothing, says so and empties
    /// the list. The list stays as it is where the search fails; the user has been told.
    void ShowFound(const std::function<GridResult()>& search, const QStringList& hidden);
    /// Empties the filters and the list, and goes to the first filter.
    void cmdCancel_Click();
    /// Opens the form in front of this screen, and closes this one once `load` gave it the row. Where `load`
    /// gives false, this screen comes back to the front.
    template <typename Form>
    void HandOver(const QString& formName, const std::function<bool(Form&)>& load)
    {
        HandOverTo(formName, [&load](Screen* screen) {
            auto* form = qobject_cast<Form*>(screen);
            return form && load(*form);
        });
    }

    bool Form_QueryUnload() override;

private:
    void HandOverTo(const QString& formName, const std::function<bool(Screen*)>& load);

    QAbstractButton* search_ = nullptr;
    QAbstractButton* exit_ = nullptr;
    DataGrid* found_ = nullptr;
    QWidget* firstFilter_ = nullptr;
};

} // namespace tally
