#include "masters/TeacherFixture.h"

#include <QLabel>

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

} // namespace tally::test
