#include "core/shell/MenuTree.h"

#include "core/shell/MenuCommands.h"
#include "core/ui/ScreenRegistry.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <array>

namespace tally {

namespace {

constexpr MenuKind Group = MenuKind::Group;
constexpr MenuKind Entry = MenuKind::Screen;
constexpr MenuKind Command = MenuKind::Command;
constexpr MenuKind Line = MenuKind::Separator;
constexpr bool On = true;
constexpr bool Off = false;

// clang-format off
constexpr std::array Tree{
    MenuDefinition{"mnuMasters", " &Masters     ", Group, "", Off, ""},
    MenuDefinition{"mnufrmMasStateMaster", "State Master", Entry, "mnuMasters", Off, "frmMasStateMaster"},
    MenuDefinition{"mnufrmMasCityMaster", "City Master", Entry, "mnuMasters", Off, "frmMasCityMaster"},
    MenuDefinition{"mnufrmMasSchoolSetup", "School Setup", Entry, "mnuMasters", Off, "frmMasSchoolSetup"},
    MenuDefinition{"mnusep1", "", Line, "mnuMasters", Off, ""},
    MenuDefinition{"mnufrmMasClassSectionEntry", "Class && Section Details", Entry, "mnuMasters", Off, "frmMasClassSectionEntry"},
    MenuDefinition{"mnufrmexamnamemaster", "Exam Name Master", Entry, "mnuMasters", Off, "frmexamnamemaster"},
    MenuDefinition{"mnufrmSubjectMaster", "Subject Master", Entry, "mnuMasters", Off, "frmSubjectMaster"},
    MenuDefinition{"mnufrmMasBloodGroupMaster", "Blood Group Master", Entry, "mnuMasters", Off, "frmMasBloodGroupMaster"},
    MenuDefinition{"mnufrmSalutationMaster", "Salutation Master", Entry, "mnuMasters", Off, "frmSalutationMaster"},
    MenuDefinition{"mnufrmTeacherMaster", "Teacher Master", Entry, "mnuMasters", Off, "frmTeacherMaster"},
    MenuDefinition{"mnufrmMasStudentMaster", "Student Master", Entry, "mnuMasters", Off, "frmMasStudentMaster"},
    MenuDefinition{"mnufrmMasStudentAdmissionEntry", "Student Admission Entry", Entry, "mnuMasters", Off, "frmMasStudentAdmissionEntry"},
    MenuDefinition{"mnufrmMasStudentRelievingMaster", "Student Relieving Entry", Entry, "mnuMasters", Off, "frmMasStudentRelievingMaster"},
    MenuDefinition{"mnuSep2", "", Line, "mnuMasters", Off, ""},
    MenuDefinition{"mnufrmMasAcademicYearSetup", "Academic Year Setup", Entry, "mnuMasters", Off, "frmMasAcademicYearSetup"},
    MenuDefinition{"mnufrmMasAcademicYearChange", "Academic Year Change", Entry, "mnuMasters", Off, "frmMasAcademicYearChange"},

    MenuDefinition{"mnuTransactions", "     &Transactions     ", Group, "", Off, ""},
    MenuDefinition{"mnufrmClassSubjectTeacher", "Classwise Subject - Teacher - Mark Entry", Entry, "mnuTransactions", Off, "frmClassSubjectTeacher"},
    MenuDefinition{"mnufrmClassSubjectTeacherTransfer", "Classwise Subject - Teacher - Mark Entry - Copy", Entry, "mnuTransactions", Off, "frmClassSubjectTeacherTransfer"},
    MenuDefinition{"mnuSep6", "", Line, "mnuTransactions", Off, ""},
    MenuDefinition{"mnufrmClassRankSetup", "Classwise Rank - Grade Setup", Entry, "mnuTransactions", Off, "frmClassRankSetup"},
    MenuDefinition{"mnufrmClassRankTransferSetup", "Classwise Rank - Grade Setup - Copy", Entry, "mnuTransactions", Off, "frmClassRankTransferSetup"},
    MenuDefinition{"mnusep8", "", Line, "mnuTransactions", Off, ""},
    MenuDefinition{"mnufrmexammarkentry", "Classwise Mark Entry", Entry, "mnuTransactions", Off, "frmexammarkentry"},
    MenuDefinition{"mnuSeo9", "", Line, "mnuTransactions", Off, ""},
    MenuDefinition{"mnufrmpromotionentry", "Promotion Entry", Entry, "mnuTransactions", Off, "frmPromotionEntry"},

    MenuDefinition{"mnuReports", "     &Reports     ", Group, "", Off, ""},
    MenuDefinition{"mnufrmRankCalculation", "Rank List Preparation", Entry, "mnuReports", Off, "frmRankCalculation"},
    MenuDefinition{"mnufrmRankCardPrinting", "Rank Card Printing", Entry, "mnuReports", On, "frmRankCardPrinting"},
    MenuDefinition{"mnuSep4", "", Line, "mnuReports", Off, ""},
    MenuDefinition{"mnuSubjectAverage", "Subject Average", Group, "mnuReports", Off, ""},
    MenuDefinition{"mnufrmclassdivisionsubjectavg", "Based On Class - Division", Entry, "mnuSubjectAverage", Off, "frmclassdivisionsubjectavg"},
    MenuDefinition{"mnufrmdivisionsubjectexamavg", "Based On Exam(s)", Entry, "mnuSubjectAverage", Off, "frmdivisionsubjectexamavg"},
    MenuDefinition{"mnuStudentMarkComparision", "Student Mark Comparison", Group, "mnuReports", Off, ""},
    MenuDefinition{"mnufrmstudentexamavg", "Based On Exam(s)", Entry, "mnuStudentMarkComparision", Off, "frmstudentexamavg"},
    MenuDefinition{"mnufrmstudentyearlyexamavg", "Based On AcademicYear(s)", Entry, "mnuStudentMarkComparision", Off, "frmstudentyearlyexamavg"},
    MenuDefinition{"mnuStudentsList", "Students List", Group, "mnuReports", Off, ""},
    MenuDefinition{"mnufrmstudentslistbelow", "Below Class Average", Entry, "mnuStudentsList", Off, "frmstudentslistbelow"},
    MenuDefinition{"mnufrmstudentslistabove", "Above Class Average", Entry, "mnuStudentsList", Off, "frmstudentslistabove"},
    MenuDefinition{"mnufrmrptClassList", "Class List", Entry, "mnuReports", Off, "frmrptClassList"},
    MenuDefinition{"mnufrmrptClassSubjectteacher", "Classwise Subject - Teacher - Mark Report", Entry, "mnuReports", On, "frmrptClasssubjectteacher"},

    MenuDefinition{"mnuToolsMenu", "     &Utilities", Group, "", Off, ""},
    MenuDefinition{"mnufrmUtilApplicationDateSetup", "Application Date Setup", Entry, "mnuToolsMenu", Off, "frmUtilApplicationDateSetup"},
    MenuDefinition{"mnufrmUtilApplicationDateChange", "Application Date Change", Entry, "mnuToolsMenu", Off, "frmUtilApplicationDateChange"},
    MenuDefinition{"mnuSep3", "", Line, "mnuToolsMenu", Off, ""},
    MenuDefinition{"mnufrmUtilUserMaster", "User Master", Entry, "mnuToolsMenu", Off, "frmUtilUserMaster"},
    MenuDefinition{"mnufrmUtilUserPrivileges", "User Privileges", Entry, "mnuToolsMenu", Off, "frmUtilUserPrivileges"},
    MenuDefinition{"mnuSep5", "", Line, "mnuToolsMenu", Off, ""},
    MenuDefinition{"mnufrmUtilBackupRestore", "Database Backup / Database Restore", Entry, "mnuToolsMenu", Off, "frmUtilBackupRestore"},
    MenuDefinition{"mnufrmCompactDatabase", "Compress Database Size", Command, "mnuToolsMenu", Off, "frmCompactDatabase"},
    MenuDefinition{"mnufrmUtilOptions", "Options", Entry, "mnuToolsMenu", Off, "frmUtilOptions"},

    MenuDefinition{"mnuHelp", "     Help     ", Group, "", On, ""},
    MenuDefinition{"mnuTallyboardHelp", "Tally Board Help", Entry, "mnuHelp", On, "frmHelp"},
    MenuDefinition{"frmAboutUs", " About Us     ", Entry, "mnuHelp", On, "AboutUs"},

    MenuDefinition{"mnuLock", "    Loc&k", Command, "", On, "Lock"},
    MenuDefinition{"mnuClose", "     Cl&ose     ", Command, "", On, "Close"},
};
// clang-format on

/// Lets letters choose in a menu whose captions underline none: the first letter of an entry moves to it, to
/// the next one where several begin with it, and opens it where it is the only one.
class MenuLetters : public QObject
{
public:
    explicit MenuLetters(QMenu* menu) : QObject(menu), menu_(menu) { menu->installEventFilter(this); }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(receiver, event);
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool plain = (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
        if (!plain || key->text().size() != 1)
            return false;
        // A group that is only moved to shows its entries, and the same letter leads on past it.
        for (QMenu* menu = menu_; menu; menu = qobject_cast<QMenu*>(menu->parentWidget()))
            if (Choose(menu, key->text().at(0)))
                return true;
        return false;
    }

private:
    /// False where no entry begins with the letter.
    static bool Choose(QMenu* menu, QChar letter)
    {
        QList<QAction*> entries = menu->actions();
        // From the one behind the chosen entry on and round to it.
        const auto chosen = std::find(entries.begin(), entries.end(), menu->activeAction());
        if (chosen != entries.end())
            std::rotate(entries.begin(), chosen + 1, entries.end());
        entries.erase(
            std::remove_if(entries.begin(), entries.end(),
                           [letter](const QAction* entry) {
                               return !entry->isEnabled() || !entry->isVisible() || entry->isSeparator() ||
                                      !entry->text().trimmed().startsWith(letter, Qt::CaseInsensitive);
                           }),
            entries.end());
        if (entries.isEmpty())
            return false;
        menu->setActiveAction(entries.first());
        if (entries.size() == 1) {
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QApplication::sendEvent(menu, &enter);
        }
        return true;
    }

    QMenu* menu_;
};

bool LeadsSomewhere(const MenuDefinition& line)
{
    const QString opens = QString::fromLatin1(line.opens);
    switch (line.kind) {
    case MenuKind::Screen: return ScreenRegistry::Knows(opens);
    case MenuKind::Command: return MenuCommands::Knows(opens);
    case MenuKind::Group: return true;
    case MenuKind::Separator: break;
    }
    return false;
}

} // namespace

std::span<const MenuDefinition> MenuDefinitions()
{
    return Tree;
}

QHash<QString, QAction*> BuildMenus(QMenuBar* bar,
                                    const std::function<void(const MenuDefinition& entry)>& choose)
{
    QHash<QString, QAction*> actions;
    for (const MenuDefinition& line : Tree) {
        const QString caption = QString::fromLatin1(line.caption);
        const QAction* parent = actions.value(QString::fromLatin1(line.parent));
        QMenu* group = parent ? parent->menu() : nullptr;
        QAction* action = nullptr;
        switch (line.kind) {
        case MenuKind::Group:
            action = (group ? group->addMenu(caption) : bar->addMenu(caption))->menuAction();
            new MenuLetters(action->menu());
            break;
        case MenuKind::Screen:
        case MenuKind::Command:
            action = group ? group->addAction(caption) : bar->addAction(caption);
            QObject::connect(action, &QAction::triggered, bar, [choose, &line] { choose(line); });
            break;
        case MenuKind::Separator: action = group ? group->addSeparator() : bar->addSeparator(); break;
        }
        action->setObjectName(QString::fromLatin1(line.name));
        if (line.kind != MenuKind::Separator)
            action->setEnabled(line.startsOn && LeadsSomewhere(line));
        actions.insert(action->objectName(), action);
    }
    return actions;
}

bool LeadsSomewhere(const QString& name)
{
    return std::any_of(Tree.begin(), Tree.end(), [&name](const MenuDefinition& line) {
        return name == QLatin1String(line.name) && LeadsSomewhere(line);
    });
}

} // namespace tally
