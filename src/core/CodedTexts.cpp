#include "core/CodedTexts.h"

namespace tally {

CodedTexts ReadCodedTexts(store::Statement query)
{
    CodedTexts texts;
    while (query.Next())
        texts.emplace_back(query.Int(0), query.Text(1));
    return texts;
}

} // namespace tally
