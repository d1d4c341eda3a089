#include "store/StoreError.h"

#include "store/Dialect.h"

namespace tally::store {

StoreError::StoreError(int engineCode, const QString& engineText, QString statement)
    : kind_(dialect::KindOf(engineCode, engineText)), engineCode_(engineCode),
      statement_(std::move(statement))
{
    const QString words = dialect::PlainWords(engineCode);
    description_ = words.isEmpty() ? engineText : words + QLatin1String(" (") + engineText + QLatin1Char(')');
    what_ = description_.toUtf8();
}

StoreError::StoreError(QString description)
    : description_(std::move(description)), what_(description_.toUtf8())
{}

StoreError StoreError::RowIsGone(const QString& statement)
{
    return {dialect::ReferenceError(), QStringLiteral("the row is no longer there"), statement};
}

bool StoreError::IsLocked() const
{
    return dialect::IsLock(engineCode_);
}

bool StoreError::IsDuplicate() const
{
    return dialect::IsDuplicateKey(engineCode_);
}

} // namespace tally::store
