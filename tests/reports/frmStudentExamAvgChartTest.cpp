#include "reports/frmStudentExamAvgChart.h"

#include "core/ui/look/Look.h"
#include "reports/ChartView.h"
#include "reports/ReportOutput.h"
#include "support/FileSizeLimit.h"
#include "support/FormDriver.h"
#include "support/TestPaper.h"

#include <QAction>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QImage>
#include <QPdfWriter>
#include <QSvgRenderer>
#include <QToolTip>

#include <memory>

namespace tally::test {
namespace {

const ChartTable TwoExams{
    .labelColumn = "ExamName",
    .series = {QStringLiteral("Eng"), QStringLiteral("Mat")},
    .rows = {{QStringLiteral("Mid Term"), {56.67, 80}}, {QStringLiteral("Annual"), {45, 0}}}};
const ChartHeads Heads{QStringLiteral("Marks Of Asha"), QStringLiteral("EXAMS"), QStringLiteral("MARKS")};

class ChartWindow : public FormDriver<frmStudentExamAvgChart>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        output = std::make_unique<ReportOutput>(Folder());
    }
    void TearDown() override
    {
        output.reset();
        ScreenFixture::TearDown();
    }
    void Open(ChartKind kind = ChartKind::Bar)
    {
        OpenForm("frmStudentExamAvgChart");
        form->ShowChart(TwoExams, Heads, kind);
        chart = Find<ChartView>(form, "mscChart");
        Settle();
    }
    /// Chooses an entry of the chart's context menu.
    void ChooseEntry(const char* text) const
    {
        const auto entries = chart->actions();
        const auto entry = std::find_if(entries.begin(), entries.end(), [text](const QAction* one) {
            return one->text() == QLatin1String(text);
        });
        ASSERT_NE(entry, entries.end()) << text;
        (*entry)->trigger();
    }
    QString FilePath(const char* name) const { return Folder() + QLatin1Char('/') + QLatin1String(name); }
    void ExpectSaveDialog(const char* filter, const QString& chosen)
    {
        prompts.ExpectFileDialog({Prompts::FileDialog::Kind::SaveAs, QStringLiteral("Save Chart As"),
                                  QStringLiteral("Marks Of Asha.") +
                                      QLatin1String(filter).mid(QLatin1String(filter).size() - 4, 3),
                                  QString::fromLatin1(filter)},
                                 chosen);
    }

    std::unique_ptr<ReportOutput> output;
    ChartView* chart = nullptr;
};

TEST_F(ChartWindow, ShowsTheChartItIsGivenAndTheNextOneInItsPlace)
{
    Open();
    EXPECT_EQ(form->windowTitle().toStdString(), "Chart");
    EXPECT_EQ(Button("cmdPrint")->text().toStdString(), "Print");
    EXPECT_EQ(Button("cmdClose")->text().toStdString(), "Close");
    EXPECT_EQ(chart->chart()->title().toStdString(), "Marks Of Asha");
    EXPECT_NE(qobject_cast<QBarSeries*>(chart->chart()->series().value(0)), nullptr);
    form->ShowChart(TwoExams, {QStringLiteral("Another"), {}, {}}, ChartKind::Line);
    EXPECT_EQ(chart->chart()->title().toStdString(), "Another");
    EXPECT_EQ(qobject_cast<QBarSeries*>(chart->chart()->series().value(0)), nullptr);
}

TEST_F(ChartWindow, TellsItsValuesToWhoCannotSeeThem)
{
    Open();
    EXPECT_EQ(chart->accessibleName().toStdString(), "Chart: Marks Of Asha");
    EXPECT_EQ(chart->accessibleDescription().toStdString(),
              "Mid Term: Eng 56.67, Mat 80\nAnnual: Eng 45, Mat 0");
}

TEST_F(ChartWindow, FollowsTheLookOfTheDisplay)
{
    Open();
    UseDarkLook(true);
    Settle();
    EXPECT_EQ(chart->chart()->backgroundBrush().color(), ColorsOfCharts(true).ground);
    EXPECT_EQ(chart->chart()->title().toStdString(), "Marks Of Asha");
    UseDarkLook(false);
    Settle();
    EXPECT_EQ(chart->chart()->backgroundBrush().color(), ColorsOfCharts(false).ground);
}

TEST_F(ChartWindow, PrintsOnOnePageOnItsSideInLightColorsWhateverTheDisplayHas)
{
    Open();
    UseDarkLook(true);
    Press(Button("cmdPrint"));
    UseDarkLook(false);
    ASSERT_EQ(output->printed.size(), 1U);
    EXPECT_EQ(output->printed[0].orientation, QPageLayout::Landscape);
    EXPECT_EQ(output->printed[0].title.toStdString(), "Marks Of Asha");
    TestPaper paper(QPageLayout::Landscape);
    EXPECT_TRUE(output->printed[0].paint(paper));
    ASSERT_EQ(paper.Pages().size(), 1U);
    for (const char* text : {"Marks Of Asha", "EXAMS", "MARKS", "Eng", "Annual"})
        EXPECT_TRUE(paper.Holds(0, text)) << text;
    EXPECT_EQ(paper.Pages()[0].pixmaps, 0);
    EXPECT_FALSE(paper.Pages()[0].fills.contains(ColorsOfCharts(true).ground.rgb()));
}

TEST_F(ChartWindow, CtrlPPrintsTooWhereverTheKeyboardIs)
{
    Open();
    for (const char* control : {"mscChart", "cmdClose"}) {
        SCOPED_TRACE(control);
        output->printed.clear();
        Find<QWidget>(form, control)->setFocus();
        PressKey(form, Qt::Key_P, Qt::ControlModifier);
        EXPECT_EQ(output->printed.size(), 1U);
    }
}

TEST_F(ChartWindow, ItsMenuCopiesSavesAndPrints)
{
    Open();
    EXPECT_EQ(chart->contextMenuPolicy(), Qt::ActionsContextMenu);
    QStringList entries;
    for (const QAction* entry : chart->actions())
        entries.append(entry->text());
    EXPECT_EQ(entries.join(QLatin1Char('|')).toStdString(),
              "Copy Picture|Save As PNG...|Save As SVG...|Print...");
}

TEST_F(ChartWindow, IsDrawnAnewForTheRoomThatItHas)
{
    Open();
    const auto labels = [this] {
        return qobject_cast<QBarCategoryAxis*>(chart->chart()->axes(Qt::Horizontal).value(0))->labelsAngle();
    };
    ChartTable exams = TwoExams;
    for (ChartTable::Row& row : exams.rows)
        row.label = QStringLiteral("Halfyearlyexamination ") + row.label;
    form->ShowChart(exams, Heads, ChartKind::Bar);
    chart->resize(1000, 400);
    EXPECT_EQ(labels(), 0);
    chart->resize(260, 400);
    EXPECT_EQ(labels(), -90) << "there is no room for level labels";
}

TEST_F(ChartWindow, CopiesItselfAsAPicture)
{
    Open();
    QGuiApplication::clipboard()->clear();
    chart->setFocus();
    QTest::keyClick(chart, Qt::Key_C, Qt::ControlModifier);
    const QImage picture = QGuiApplication::clipboard()->image();
    ASSERT_FALSE(picture.isNull());
    EXPECT_GE(picture.width(), 1600);
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::white));
    int blue = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            blue += picture.pixelColor(x, y) == ColorsOfCharts(false).series[0] ? 1 : 0;
    EXPECT_GT(blue, 1000) << "the bars of the first subject";
}

TEST_F(ChartWindow, FollowsTheLettersOfTheDisplay)
{
    Open();
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(large);
    // The toolkit says so by itself while the program's loop runs.
    QEvent changed(QEvent::ApplicationFontChange);
    QApplication::sendEvent(chart, &changed);
    EXPECT_EQ(chart->chart()->axes(Qt::Horizontal).value(0)->labelsFont().pointSizeF(), large.pointSizeF());
    QApplication::setFont(before);
}

TEST_F(ChartWindow, CtrlCCopiesOnlyWhileTheChartHasTheKeyboard)
{
    Open();
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    Button("cmdClose")->setFocus();
    PressKey(form, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
}

TEST_F(ChartWindow, SavesItselfAsAPngFile)
{
    Open();
    ExpectSaveDialog("Pictures (*.png)", FilePath("chart.png"));
    ChooseEntry("Save As PNG...");
    EXPECT_TRUE(QImage(FilePath("chart.png")) == chart->Picture());
}

TEST_F(ChartWindow, SavesItselfAsAnSvgFile)
{
    Open();
    ExpectSaveDialog("Drawings (*.svg)", FilePath("chart.svg"));
    ChooseEntry("Save As SVG...");
    QFile file(FilePath("chart.svg"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray drawing = file.readAll();
    const QSvgRenderer renderer(drawing);
    EXPECT_TRUE(renderer.isValid());
    EXPECT_EQ(renderer.viewBox(), QRect(0, 0, 1000, 640));
    EXPECT_TRUE(drawing.contains("<title>Marks Of Asha</title>"));
    EXPECT_TRUE(drawing.contains("Mid Term"));
    EXPECT_FALSE(drawing.contains("<image")) << "nothing in it is a picture of dots";
}

TEST_F(ChartWindow, AsksBeforeItReplacesAFileAndLeavesItOnNo)
{
    Open();
    QFile file(FilePath("chart.svg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("mine");
    file.close();
    const QString question =
        QStringLiteral("The File \"%1\" Already Exists. Do You Want To Replace It ?").arg(file.fileName());
    ExpectSaveDialog("Drawings (*.svg)", file.fileName());
    prompts.ExpectQuestion(question, false);
    ChooseEntry("Save As SVG...");
    EXPECT_EQ(file.size(), 4);
    ExpectSaveDialog("Drawings (*.svg)", file.fileName());
    prompts.ExpectQuestion(question, true);
    ChooseEntry("Save As SVG...");
    EXPECT_GT(file.size(), 1000);
}

TEST_F(ChartWindow, WithoutAChosenFileNothingIsWritten)
{
    Open();
    ExpectSaveDialog("Pictures (*.png)", {});
    ChooseEntry("Save As PNG...");
    prompts.Verify();
}

TEST_F(ChartWindow, OnAFullDiskTheUserIsToldAndNoHalfOfAFileIsLeft)
{
    Open();
    const FileSizeLimit full(1024);
    ExpectSaveDialog("Drawings (*.svg)", FilePath("chart.svg"));
    prompts.ExpectCritical(QStringLiteral("The chart could not be saved as \"%1\". The disk may be full, or "
                                          "you may not write there.")
                               .arg(FilePath("chart.svg")));
    ChooseEntry("Save As SVG...");
    prompts.Verify();
    EXPECT_FALSE(QFile::exists(FilePath("chart.svg")));
}

TEST_F(ChartWindow, IntoAFolderThatCannotBeWrittenNothingIsSavedAndTheUserIsTold)
{
    Open();
    const QString path = QStringLiteral("/dev/null/chart.png");
    ExpectSaveDialog("Pictures (*.png)", path);
    prompts.ExpectCritical(QStringLiteral("The chart could not be saved as \"%1\". The disk may be full, or "
                                          "you may not write there.")
                               .arg(path));
    ChooseEntry("Save As PNG...");
    prompts.Verify();
}

TEST_F(ChartWindow, OffersItsTitleAsAFileNameThatEverySystemTakes)
{
    Open();
    form->ShowChart(TwoExams, {QStringLiteral("Marks Of A/B: <Term>"), {}, {}}, ChartKind::Bar);
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::SaveAs, QStringLiteral("Save Chart As"),
                              QStringLiteral("Marks Of A-B- -Term-.png"), QStringLiteral("Pictures (*.png)")},
                             {});
    ChooseEntry("Save As PNG...");
    form->ShowChart(TwoExams, {}, ChartKind::Bar);
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::SaveAs,
                              QStringLiteral("Save Chart As"),
                              {},
                              QStringLiteral("Pictures (*.png)")},
                             {});
    ChooseEntry("Save As PNG...");
}

TEST_F(ChartWindow, PaperThatCannotBePrintedOnIsKnown)
{
    Open();
    Press(Button("cmdPrint"));
    ASSERT_EQ(output->printed.size(), 1U);
    QPdfWriter paper(QStringLiteral("/dev/null/chart.pdf"));
    // The toolkit warns of a file that cannot be opened.
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    EXPECT_FALSE(output->printed[0].paint(paper));
    qInstallMessageHandler(before);
}

TEST_F(ChartWindow, TheMouseOverABarShowsSeriesLabelAndValue)
{
    Open();
    QToolTip::hideText();
    EXPECT_TRUE(chart->viewport()->hasMouseTracking())
        << "a display tells of no move without a button otherwise";
    const auto* bars = qobject_cast<QBarSeries*>(chart->chart()->series().value(0));
    ASSERT_NE(bars, nullptr);
    // Within the first bar of the first exam, which stands at the left of its label.
    const QPointF top = chart->chart()->mapToPosition(QPointF(0, 20), chart->chart()->series().value(0));
    const double group = chart->chart()->plotArea().width() / 2 * bars->barWidth();
    const QPoint place = chart->mapFromScene(chart->chart()->mapToScene(top - QPointF(group / 4, 0)));
    QTest::mouseMove(chart->viewport(), place + QPoint(0, 2));
    QTest::mouseMove(chart->viewport(), place);
    ASSERT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }));
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("Eng"))) << QToolTip::text().toStdString();
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("Mid Term: 56.67")))
        << QToolTip::text().toStdString();
    // What comes when the mouse has rested for a while.
    QHelpEvent rest(QEvent::ToolTip, place, chart->viewport()->mapToGlobal(place));
    QApplication::sendEvent(chart->viewport(), &rest);
    EXPECT_FALSE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 600));
    QTest::mouseMove(chart->viewport(), QPoint(3, 3));
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(ChartWindow, CloseAsksWhereTheOfficeWantsToBeAsked)
{
    Session().gblnPromptOnExit = true;
    Open();
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Chart ?"), false);
    Press(Button("cmdClose"));
    EXPECT_FALSE(form->IsUnloaded());
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Chart ?"), true);
    Press(Button("cmdClose"));
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(ChartWindow, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmStudentExamAvgChart"));
}

} // namespace
} // namespace tally::test
