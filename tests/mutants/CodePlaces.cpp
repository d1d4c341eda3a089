#include "mutants/CodePlaces.h"

#include <QStringList>

#include <stdexcept>

namespace tally::mutants {

std::vector<CodePlace> CodePlacesIn(const QString& list)
{
    std::vector<CodePlace> places;
    const QStringList lines = list.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        bool numbers = false;
        const std::uint32_t number = fields.value(0).toUInt(&numbers);
        if (fields.size() != 5 || !numbers)
            throw std::runtime_error("line " + std::to_string(places.size() + 1) + ": no change");
        places.push_back({number, fields[1], fields[2].toInt(), fields[3], fields[4]});
    }
    return places;
}

std::vector<CodePlace> EvenlyFrom(const std::vector<CodePlace>& places, std::size_t count)
{
    if (count >= places.size())
        return places;
    std::vector<CodePlace> sample;
    for (std::size_t number = 0; number < count; ++number)
        sample.push_back(places[(2 * number + 1) * places.size() / (2 * count)]);
    return sample;
}

std::vector<CodePlace> PlacesWithin(const std::vector<CodePlace>& places, QString path)
{
    while (path.endsWith(QLatin1Char('/')))
        path.chop(1);
    std::vector<CodePlace> within;
    for (const CodePlace& place : places)
        if (place.file == path || place.file.startsWith(path + QLatin1Char('/')))
            within.push_back(place);
    return within;
}

} // namespace tally::mutants
