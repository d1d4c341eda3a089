// A program that exports into the folder of its argument and never comes to the end. It says "writing" once
// the export is under way.

#include "core/ui/OpenDocument.h"
#include "reports/output/ExportWorkbook.h"
#include "reports/output/Workbook.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    using namespace tally;
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        return 2;
    SetExportFolder(QString::fromLocal8Bit(argv[1]));
    UseSpreadsheetProgram({true, {}});
    ExportWorkbook({QStringLiteral("Rank List"), {}}, [](Workbook& workbook) {
        workbook.WriteText(0, 0, QStringLiteral("Asha"), {});
        std::puts("writing");
        std::fflush(stdout);
        std::getchar();
    });
}
