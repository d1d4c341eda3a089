#include "core/ui/Prompts.h"

#include "core/ui/look/Look.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QRegularExpression>

#include <array>
#include <utility>
#include <vector>

namespace tally::Prompts {

namespace {

Answer& Answerer()
{
    static Answer answer;
    return answer;
}

int open = 0;

std::vector<std::function<void()>>& Waiting()
{
    static std::vector<std::function<void()>> waiting;
    return waiting;
}

/// One more box is open while it lives.
class OpenBox
{
public:
    OpenBox() { ++open; }
    OpenBox(const OpenBox&) = delete;
    OpenBox& operator=(const OpenBox&) = delete;
    ~OpenBox()
    {
        if (--open > 0)
            return;
        for (const auto& work : std::exchange(Waiting(), {}))
            work();
    }
};

/// The text with places to break, which nobody sees, in words as long as paths are.
QString Breakable(QString text)
{
    static const QRegularExpression Separator(QStringLiteral("(?<=\\S{20})([/\\\\])"));
    return text.replace(Separator, QStringLiteral("\\1\u200b"));
}

/// Makes the box wide enough for its title beside the window manager's icon and buttons.
void MakeRoomForTitle(QMessageBox& box)
{
    constexpr int IconAndButtons = 20 * LookUnit;
    QFont bold = QApplication::font();
    bold.setBold(true);
    const int wanted = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + IconAndButtons;
    auto* rows = qobject_cast<QGridLayout*>(box.layout());
    const QMargins margins = rows->contentsMargins();
    rows->addItem(new QSpacerItem(wanted - margins.left() - margins.right(), 0), rows->rowCount(), 0, 1,
                  rows->columnCount());
}

bool Show(Kind kind, const QString& text, const QString& caption)
{
    const OpenBox box;
    if (Answerer())
        return Answerer()(kind, text);

    static constexpr std::array Icons{QMessageBox::Information, QMessageBox::Question, QMessageBox::NoIcon,
                                      QMessageBox::Critical};
    QMessageBox message(Icons.at(static_cast<std::size_t>(kind)), caption, Breakable(text), QMessageBox::Ok,
                        QApplication::activeWindow());
    // Names and file paths stand in these texts; none of them is mark-up.
    message.setTextFormat(Qt::PlainText);
    if (kind == Kind::Question || kind == Kind::PlainQuestion) {
        message.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        message.setEscapeButton(QMessageBox::No);
    }
    MakeRoomForTitle(message);
    return message.exec() == QMessageBox::Yes;
}

} // namespace

void Information(const QString& text)
{
    Show(Kind::Information, text, ApplicationTitle);
}

void Critical(const QString& text)
{
    Show(Kind::Critical, text, ApplicationTitle);
}

bool Ask(const QString& text, const QString& caption)
{
    return Show(Kind::Question, text, caption);
}

bool AskPlainly(const QString& text)
{
    return Show(Kind::PlainQuestion, text, ApplicationTitle);
}

bool AreOpen()
{
    return open > 0;
}

void WhenAnswered(std::function<void()> work)
{
    if (AreOpen())
        Waiting().push_back(std::move(work));
    else
        work();
}

void AnswerWith(Answer answer)
{
    Answerer() = std::move(answer);
}

} // namespace tally::Prompts
