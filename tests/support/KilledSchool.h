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
    /// What a screen stores in one transaction.
    using Save = std::function<void(store::Transaction&)>;
    /// What begins and commits its transactions itself.
    using Work = std::function<void(store::Connection&)>;
    /// What a next client finds, in words.
    using Reading = std::function<std::string(store::Connection&)>;

    /// Makes the file with a division of two subjects and so many students; `lay` puts the rows there that
    /// the clients will meet.
    void Lay(int students, const Save& lay)
    {
        LayFile([&](store::Transaction& transaction) {
            store::CreateMainTables(transaction);
            store::InsertDeliveredMainRows(transaction);
            store::Connection temp = DeliveredTempStore();
            TestSchool school(transaction.On(), temp);
            school.AddUsualDivision(2);
            for (int student = 0; student < students; ++student)
                school.AddStudent(1, QStringLiteral("Student %1").arg(student));
            lay(transaction);
        });
    }
    /// The same with nothing but what `fill` puts there, tables included.
    void LayFile(const Save& fill)
    {
        {
            store::Connection main(files_.Path(), Password, store::Connection::Mode::Create);
            store::Transaction transaction(main);
            fill(transaction);
            transaction.Commit();
        }
        laid_ = files_.Bytes();
    }

    /// Does the work once for each of its file operations, by a client that is killed at that one, and reads
    /// what a next client finds: always the state before or the state behind, and never the one before again
    /// once a later kill has left the other.
    void ExpectWhole(const Work& work, const Reading& state)
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
    void ExpectWhole(const Save& save, const Reading& state)
    {
        const Work inOneTransaction = [&save](store::Connection& main) {
            store::Transaction transaction(main);
            save(transaction);
            transaction.Commit();
        };
        ExpectWhole(inOneTransaction, state);
    }

    /// All values of all rows that the query gives.
    static Reading RowsOf(const char* query)
    {
        return [query](store::Connection& main) {
            std::string all;
            auto rows = main.Query(QString::fromLatin1(query));
            while (rows.Next()) {
                for (int column = 0; column < rows.ColumnCount(); ++column)
                    all += rows.Text(column).toStdString() + ' ';
                all += "; ";
            }
            return all;
        };
    }

private:
    void Do(const Work& work) const
    {
        store::Connection main(files_.Path(), Password);
        work(main);
    }

    std::string StateOf(const Reading& state) const
    {
        store::Connection main(files_.Path(), Password);
        return state(main);
    }

    StoreFiles files_;
    QByteArray laid_;
};

} // namespace tally::test
