#include "masters/TeacherFixture.h"

#include "core/mdiTallyboard.h"

#include <QLabel>
#include <QMdiArea>

namespace tally::test {

void ExpectOneControlALetter(const QWidget* form)
{
    QStringList texts;
    for (const auto* label : form->findChildren<QLabel*>())
        if (label->buddy())
            texts.append(label->text());
    for (const auto* button : form->findChildren<QAbstractButton*>())
        texts.append(button->text());
    QStringList letters;
    for (const QString& text : texts)
        if (const auto mnemonic = QKeySequence::mnemonic(text); !mnemonic.isEmpty())
            letters.append(mnemonic.toString());
    EXPECT_GE(letters.size(), 5);
    EXPECT_EQ(letters.removeDuplicates(), 0);
}

void ExpectFits(mdiTallyboard* window, const QWidget* form)
{
    EXPECT_TRUE(window->Area()->viewport()->rect().contains(form->parentWidget()->geometry()));
    EXPECT_LE(form->minimumSizeHint().width(), form->width());
    EXPECT_LE(form->minimumSizeHint().height(), form->height());
}

} // namespace tally::test
