#include "bench/RankScreen.h"

#include "bench/BenchSchool.h"
#include "bench/FindControl.h"
#include "core/ui/controls/FlexGrid.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

namespace tally::bench {

namespace {

void Choose(QWidget* screen, const char* combo, int code)
{
    auto* list = Find<QComboBox>(screen, combo);
    const int index = list->findData(code);
    if (index < 0)
        qFatal("%s does not offer %d", combo, code);
    list->setCurrentIndex(index);
    Q_EMIT list->activated(index);
}

} // namespace

void ChooseAll(QWidget* screen)
{
    const SchoolScope scope = BenchSchool::Scope();
    Choose(screen, "Cboexamname", scope.examCode);
    Choose(screen, "cboClass", scope.classCode);
    Find<QCheckBox>(screen, "chkSelectAll")->click();
    QApplication::processEvents();
}

std::chrono::duration<double> Proceed(QWidget* screen)
{
    const auto start = std::chrono::steady_clock::now();
    Find<QPushButton>(screen, "cmdUpdate")->click();
    QApplication::processEvents();
    Find<QPushButton>(screen, "cmdTotalDetails")->click();
    QApplication::processEvents();
    const auto end = std::chrono::steady_clock::now();

    if (Find<FlexGrid>(screen, "msgDisplayDetails")->Rows() < 10 ||
        !Find<FlexGrid>(screen, "msgGrade")->isVisible())
        qFatal("No rank list came up");
    return end - start;
}

void Cancel(QWidget* screen)
{
    Find<QPushButton>(screen, "cmdClose")->click();
    Find<QPushButton>(screen, "cmdCancel")->click();
    QApplication::processEvents();
}

} // namespace tally::bench
