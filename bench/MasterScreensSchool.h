#pragma once

#include <QString>
#include <QTemporaryDir>

namespace tally::bench {

/// An encrypted, delivered set of databases whose lists are longer than any one school's: 30 states with
/// 2,000 cities, 500 teachers, 50,000 students. The names of the states, cities and teachers added all hold
/// an "a". Its files lie in a folder that goes with it.
class MasterScreensSchool
{
public:
    static constexpr int States = 30;
    static constexpr int Cities = 2000;
    static constexpr int Teachers = 500;
    static constexpr int Students = 50000;

    MasterScreensSchool();

    QString Folder() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
};

} // namespace tally::bench
