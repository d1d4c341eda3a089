#pragma once

#include "store/DeliveredRows.h"
#include "store/StoreFiles.h"
#include "store/Tables.h"
#include "support/FileCalls.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>

namespace tally::test {

/// A school in a file, and clients that are killed while they write to it.
class KilledSchool : public testing::Test
{
protected:
    using Work = std::function<void(store::Transaction&)>;

    /// Makes the file with a division of two subjects and so many students; `lay` puts the rows there that
    /// the clients will meet.
    void Lay(int students, const Work& lay)
    {
        {
            store::Connection main(files_.Path(), Password, store::Connection::Mode::Create);
            store::Connection temp = DeliveredTempStore();
            store::Transaction transaction(main);
            store::CreateMainTables(transaction);
            store::InsertDeliveredMainRows(transaction);
            TestSchool school(main, temp);
            school.AddUsualDivision(2);
            for (int student = 0; student < students; ++student)
                school.AddStudent(1, QStringLiteral("Student %1").arg(student));
            lay(transaction);
            transaction.Commit();
        }
        laid_ = files_.Bytes();
    }

    /// Does the work once for each of its file operations, by a client that is killed at that one, and reads
    /// what a next client finds: always the state before or the state behind, and never the one before again
    /// once a later kill has left the other.
    void ExpectWhole(const Work& work, const std::function<std::string(store::Connection&)>& state)
    {
        const std::string before = StateOf(state);
        std::string expected = before;
        std::size_t killed = 0;
        for (; !RunAndDieAt(killed, [&] { Do(work); }); ++killed) {
            const std::string found = StateOf(state);
            if (found != expected) {
                EXPECT_EQ(expected, before) << "the later kill " << killed << " left another state";
                expected = found;
            }
            files_.Write(laid_);
            QFile::remove(files_.Path(QStringLiteral("Tallyboard.mdb-journal")));
        }
        const std::string behind = StateOf(state);
        EXPECT_NE(behind, before) << "the work changes nothing";
        EXPECT_TRUE(expected == before || expected == behind) << expected;
        EXPECT_GT(killed, 5U) << "the operations were not seen";
    }

private:
    void Do(const Work& work) const
    {
        store::Connection main(files_.Path(), Password);
        store::Transaction transaction(main);
        work(transaction);
        transaction.Commit();
    }

    std::string StateOf(const std::function<std::string(store::Connection&)>& state) const
    {
        store::Connection main(files_.Path(), Password);
        return state(main);
    }

    StoreFiles files_;
    QByteArray laid_;
};

} // namespace tally::test
