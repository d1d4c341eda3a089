#pragma once

#include <QString>
#include <QTemporaryDir>

#include <cstdint>

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

    enum class History : std::uint8_t
    {
        None,      ///< twelve classes of four divisions; next to nobody sits in one
        FourYears, ///< seventy more divisions in each class, in which the students sit
    };

    // The years of the history by their codes; before the active one lie three more.
    static constexpr int ActiveYear = 1;
    static constexpr int NextYear = 2;
    // Of the class below the highest one. Nobody sits in the next year yet.
    static constexpr int PromotedClass = 2;
    static constexpr int HighestClass = 1;
    static constexpr int FullDivision = 11;
    static constexpr int StudentsOfFullDivision = 60;
    static constexpr int SmallDivision = 10;
    static constexpr int StudentsOfSmallDivision = 6;

    explicit MasterScreensSchool(History history = History::None);

    QString Folder() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
};

} // namespace tally::bench
