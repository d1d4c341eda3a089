#pragma once

#include <QFile>

namespace tally::bench {

/// The most memory that this process ever held, in megabytes, as the kernel counted it.
inline double PeakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        qFatal("This system does not tell a process its memory");
    const QByteArray text = status.readAll();
    const QByteArray label = "VmHWM:";
    const qsizetype start = text.indexOf(label) + label.size();
    return text.mid(start, text.indexOf("kB", start) - start).trimmed().toDouble() / 1024;
}

} // namespace tally::bench
