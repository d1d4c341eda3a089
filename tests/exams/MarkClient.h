#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <string>

namespace tally::test {

/// One more clerk at the mark screen, in a process of its own on the same files.
class MarkClient
{
public:
    explicit MarkClient(const QString& folder)
    {
        process_.start(
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("mark_save_client")),
            {folder});
    }
    MarkClient(const MarkClient&) = delete;
    MarkClient& operator=(const MarkClient&) = delete;
    ~MarkClient()
    {
        process_.kill();
        process_.waitForFinished();
    }

    void Tell(const char* line)
    {
        process_.write(line);
        process_.write("\n");
        process_.waitForBytesWritten();
    }
    /// The next line it says; its errors when it says none.
    std::string Says()
    {
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(60000))
                return process_.readAllStandardError().toStdString();
        return process_.readLine().trimmed().toStdString();
    }

private:
    QProcess process_;
};

} // namespace tally::test
