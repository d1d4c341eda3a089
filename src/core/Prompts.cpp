#include "core/Prompts.h"

#include <QApplication>
#include <QMessageBox>

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

bool Show(Kind kind, const QString& text, const QString& caption)
{
    const OpenBox box;
    if (Answerer())
        return Answerer()(kind, text);

    static constexpr std::array Icons{QMessageBox::Information, QMessageBox::Question, QMessageBox::NoIcon,
                                      QMessageBox::Critical};
    QMessageBox message(Icons.at(static_cast<std::size_t>(kind)), caption, text, QMessageBox::Ok,
                        QApplication::activeWindow());
    // Names and file paths stand in these texts; none of them is mark-up.
    message.setTextFormat(Qt::PlainText);
    if (kind == Kind::Question || kind == Kind::PlainQuestion) {
        message.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        message.setEscapeButton(QMessageBox::No);
    }
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
