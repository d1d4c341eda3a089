#include "reports/output/FileName.h"

namespace tally {

QString FileNameOf(const QString& title)
{
    constexpr int LongestTitle = 70;
    QString name = title.simplified().left(LongestTitle);
    for (QChar& letter : name) {
        if (QStringLiteral("/\\:*?\"<>|").contains(letter) || !letter.isPrint())
            letter = u'-';
    }
    return name;
}

} // namespace tally
