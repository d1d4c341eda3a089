#pragma once

#include "tools/SampleRandom.h"

#include <QString>

namespace tally {

struct SamplePerson
{
    bool girl;
    QString name;
    QString familyName;
};

/// Names made up from common given and family names; a few hold letters outside ASCII, none an apostrophe.
SamplePerson InventPerson(SampleRandom& random);
/// A man's name with this family name.
QString InventFather(SampleRandom& random, const QString& familyName);
QString InventStreet(SampleRandom& random);

} // namespace tally
