#include "masters/SimpleMasterRepository.h"

#include "core/modTallyboard.h"
#include "store/StoreError.h"

namespace tally {

GridResult SimpleMasterRepository::Rows(const QString& search, int parentCode)
{
    store::Statement query = main_.Prepare(QLatin1String(definition_.grid));
    query.BindNamed(":Search", search);
    if (definition_.parent)
        query.BindNamed(definition_.parent->placeholder, qint64{parentCode});
    return ReadGrid(std::move(query));
}

CodedTexts SimpleMasterRepository::Parents()
{
    if (!definition_.parent)
        return {};
    return ReadCodedTexts(main_.Query(QLatin1String(definition_.parent->entries)));
}

const DuplicateTest* SimpleMasterRepository::Duplicate(const SimpleMasterEntry& entry)
{
    for (const DuplicateTest& test : definition_.duplicates) {
        store::Statement count = Bound(main_.Prepare(test.count), entry);
        if (count.Next() && count.Long(0) > 0)
            return &test;
    }
    return nullptr;
}

void SimpleMasterRepository::Insert(store::Transaction& transaction, const SimpleMasterEntry& entry,
                                    int userCode)
{
    SimpleMasterEntry numbered = entry;
    numbered.code =
        GetNextCode(transaction, QLatin1String(definition_.key), QLatin1String(definition_.table), 0);
    Bound(transaction.Prepare(QLatin1String(definition_.insert)), numbered, userCode).RunBound();
}

void SimpleMasterRepository::Update(store::Transaction& transaction, const SimpleMasterEntry& entry,
                                    int userCode)
{
    // Without this another client's delete would swallow the change while the user reads that it was stored.
    const QString update = QLatin1String(definition_.update);
    if (Bound(transaction.Prepare(update), entry, userCode).RunBound() == 0)
        throw store::StoreError::RowIsGone(update);
}

void SimpleMasterRepository::Delete(store::Transaction& transaction, int code)
{
    SimpleMasterEntry entry;
    entry.code = code;
    Bound(transaction.Prepare(QLatin1String(definition_.remove)), entry).RunBound();
}

store::Statement SimpleMasterRepository::Bound(store::Statement statement, const SimpleMasterEntry& entry,
                                               int userCode) const
{
    statement.BindNamed(":Code", qint64{entry.code});
    statement.BindNamed(":User", qint64{userCode});
    statement.BindNamed(":Held", entry.heldName);
    if (definition_.parent)
        statement.BindNamed(definition_.parent->placeholder, qint64{entry.parentCode});
    for (qsizetype i = 0; i < entry.values.size(); ++i) {
        const SimpleMasterField& field = definition_.fields[static_cast<std::size_t>(i)];
        if (field.kind == SimpleMasterField::Kind::Number)
            statement.BindNamed(field.placeholder, entry.values[i].toLongLong());
        else
            statement.BindNamed(field.placeholder, entry.values[i]);
    }
    return statement;
}

} // namespace tally
