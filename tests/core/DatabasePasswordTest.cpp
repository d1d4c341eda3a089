#include "core/DatabasePassword.h"

#include <QCryptographicHash>

#include <gtest/gtest.h>

namespace tally {
namespace {

TEST(DatabasePasswordTest, IsTheOneWithWhichTheSchoolsFilesWereMade)
{
    SessionContext session;
    BuildDatabasePassword(session);
    // It stands nowhere whole, so neither here.
    EXPECT_EQ(QCryptographicHash::hash(DatabasePassword(session).toUtf8(), QCryptographicHash::Sha256)
                  .toHex()
                  .toStdString(),
              "22af4e6bbc519e9f747ffa7b72b6a8b7fd72f1d52c6f7421edb246e5bb16e26e");
}

} // namespace
} // namespace tally
