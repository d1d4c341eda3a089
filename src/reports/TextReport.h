#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tally {

/// A list for a plain text file, to be read in letters of one width.
struct TextReport
{
    struct Column
    {
        QString head;
        int width = 0; ///< in letters; longer texts are cut
    };

    QString title;
    std::vector<Column> columns;
    std::vector<QStringList> rows; ///< may be shorter than the columns are many; what is missing is empty
};

/// The three lines that head every text report; mostly gstrReportSchoolName, -Address and -City.
struct TextReportSchool
{
    QString name;
    QString address;
    QString city;
};

/// The whole text: school and title centred over the table, dashes above and below its head and below each of
/// its rows, every cell centred between bars. Half a blank goes to the even number, as in all that the
/// program rounds. Lines end with "\n".
QString LayOutText(const TextReport& report, const TextReportSchool& school);

} // namespace tally
