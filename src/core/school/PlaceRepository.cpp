#include "core/school/PlaceRepository.h"

namespace tally {

CodedTexts PlaceRepository::States()
{
    return ReadCodedTexts(main_.Query(QStringLiteral(
        "SELECT 0 AS StateCode, ' ' AS StateName FROM StateMaster"
        " UNION SELECT StateCode, StateName FROM StateMaster WHERE StateCode > 0 ORDER BY StateName")));
}

CodedTexts PlaceRepository::Cities(int stateCode)
{
    return ReadCodedTexts(main_.Query(QStringLiteral("SELECT CityCode, CityName FROM CityMaster"
                                                     " WHERE CityCode > 0 AND StateCode = ?"
                                                     " ORDER BY CityName"),
                                      stateCode));
}

} // namespace tally
