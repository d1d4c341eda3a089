#pragma once

class QWidget;

namespace tally {

class Tour;

/// Opens each report on the sample school, and keeps its list, its workbook and, where it has them, its
/// chart, its text and its pages.
void ShowReports(Tour& tour, QWidget* window);

} // namespace tally
