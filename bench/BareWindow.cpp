// The least program with a window of the splash's size: says when one label is painted, and ends.

#include "bench/Milestone.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>

namespace {

class Label : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QLabel::paintEvent(event);
        QTimer::singleShot(0, [] {
            tally::bench::PrintMilestone("visible");
            std::_Exit(0);
        });
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Label label(QStringLiteral("KITE"));
    label.resize(800, 600);
    label.show();
    return QApplication::exec();
}
