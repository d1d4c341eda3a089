#pragma once

#include "store/Connection.h"
#include "store/StoreError.h"
#include "store/Transaction.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace tally::test {

/// Another client that takes the school from state 0 to state 1 and back, each time in one transaction, for
/// as long as it lives.
class BusyClient
{
public:
    using Work = std::function<void(store::Transaction&, int state)>;

    BusyClient(std::unique_ptr<store::Connection> connection, Work work)
        : connection_(std::move(connection)), work_(std::move(work))
    {
        // With fewer waits for the disk the client is busy more often.
        connection_->HoldsWorkingTables();
        thread_ = std::thread([this] { Run(); });
    }
    BusyClient(const BusyClient&) = delete;
    BusyClient& operator=(const BusyClient&) = delete;
    ~BusyClient()
    {
        stop_ = true;
        thread_.join();
    }

private:
    void Run()
    {
        for (int state = 1; !stop_; state = 1 - state) {
            try {
                store::Transaction transaction(*connection_);
                work_(transaction, state);
                transaction.Commit();
            } catch (const store::StoreError&) {
                // The reader was in the way for too long; the other state is as good.
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    std::unique_ptr<store::Connection> connection_;
    Work work_;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

/// Makes every reading of a table take some milliseconds, in which others can commit. Its rows are then those
/// of `table`Rows.
inline void ReadSlowly(store::Connection& connection, const QString& table)
{
    connection.Execute(QStringLiteral("ALTER TABLE %1 RENAME TO %1Rows").arg(table));
    connection.Execute(
        QStringLiteral("CREATE VIEW %1 AS SELECT * FROM %1Rows WHERE (WITH RECURSIVE n(i) AS (SELECT 1 UNION "
                       "ALL SELECT i + 1 FROM n LIMIT 20000) SELECT count(*) FROM n) > 0")
            .arg(table));
}

/// `load` reads again and again while the client is busy, and gives the state that each part of what it read
/// is of. All parts of one reading must be of one state.
inline void ExpectOneMoment(std::unique_ptr<store::Connection> client, BusyClient::Work work,
                            const std::function<QStringList()>& load)
{
    using namespace std::chrono_literals;
    const BusyClient busy(std::move(client), std::move(work));
    QSet<QString> states;
    const auto start = std::chrono::steady_clock::now();
    const auto lasts = [start](auto time) { return std::chrono::steady_clock::now() - start < time; };
    while (lasts(1500ms) || (states.size() < 2 && lasts(30s))) {
        const QStringList parts = load();
        ASSERT_EQ(QSet<QString>(parts.begin(), parts.end()).size(), 1)
            << parts.join(QLatin1Char(' ')).toStdString();
        states.insert(parts.front());
    }
    EXPECT_EQ(states.size(), 2) << "the client was not busy";
}

} // namespace tally::test
