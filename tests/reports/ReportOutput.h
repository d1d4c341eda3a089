#pragma once

#include "core/ui/OpenDocument.h"
#include "reports/output/PrintPreview.h"
#include "reports/output/TextFile.h"

#include <QFile>
#include <QString>

#include <gtest/gtest.h>
#include <vector>

namespace tally::test {

/// Takes the place of the programs and printers to which reports go, while it lives, and notes what comes.
class ReportOutput
{
public:
    /// Workbooks go into a folder of their own within `folder`.
    explicit ReportOutput(const QString& folder)
    {
        SetExportFolder(folder + QStringLiteral("/exports"));
        UseSpreadsheetProgram({true, [this](const QString& path) {
                                   workbook = path;
                                   return true;
                               }});
        UseTextProgram([this](const QString& path) {
            textFile = path;
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            text = QString::fromUtf8(file.readAll());
            return true;
        });
        UsePrintPreview([this](const PrintJob& job) { printed.push_back(job); });
    }
    ReportOutput(const ReportOutput&) = delete;
    ReportOutput& operator=(const ReportOutput&) = delete;
    ~ReportOutput()
    {
        UsePrintPreview({});
        UseTextProgram({});
        UseRealSpreadsheetProgram();
        SetExportFolder({});
        GiveTextFilesBack();
    }

    QString workbook; ///< the path of the last one
    QString textFile; ///< the path of the last one
    QString text;     ///< what it held
    std::vector<PrintJob> printed;
};

} // namespace tally::test
