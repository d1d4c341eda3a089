#include "core/Prompts.h"

#include <QApplication>
#include <QMessageBox>

namespace tally::Prompts {

namespace {

Answer& Answerer()
{
    static Answer answer;
    return answer;
}

bool Show(Kind kind, const QString& text, const QString& caption)
{
    if (Answerer())
        return Answerer()(kind, text);

    static constexpr std::array Icons{QMessageBox::Information, QMessageBox::Question, QMessageBox::NoIcon,
                                      QMessageBox::Critical};
    QMessageBox box(Icons.at(static_cast<std::size_t>(kind)), caption, text, QMessageBox::Ok,
                    QApplication::activeWindow());
    // Names and file paths stand in these texts; none of them is mark-up.
    box.setTextFormat(Qt::PlainText);
    if (kind == Kind::Question || kind == Kind::PlainQuestion) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    }
    return box.exec() == QMessageBox::Yes;
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

void AnswerWith(Answer answer)
{
    Answerer() = std::move(answer);
}

} // namespace tally::Prompts
