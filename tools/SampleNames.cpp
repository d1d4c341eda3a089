#include "tools/SampleNames.h"

#include <array>

namespace tally {

namespace {

constexpr std::array Boys{
    "Aarav",  "Adrian",  "Ajay",   "Akhil",  "Anand",  "Arun",   "Ashwin", "Balu",   "Bharat",  "Charan",
    "Daniel", "Deepak",  "Dinesh", "Farhan", "Gautam", "Gopal",  "Harish", "Imran",  "Jacob",   "Jayan",
    "José",   "Karthik", "Kiran",  "Kumar",  "Lokesh", "Madhav", "Manoj",  "Mathew", "Mohan",   "Naveen",
    "Nikhil", "Omar",    "Pranav", "Rahul",  "Rajesh", "René",   "Rohan",  "Sanjay", "Senthil", "Søren",
    "Suresh", "Tarun",   "Thomas", "Uday",   "Varun",  "Vijay",  "Vinod",  "Vivek",  "Yusuf",   "Zubin"};
constexpr std::array Girls{
    "Aisha",  "Amala",  "Anitha",  "Anjali", "Asha",  "Bhavani", "Chitra", "Deepa",   "Devi",   "Divya",
    "Esther", "Fatima", "Gayatri", "Geetha", "Hema",  "Indira",  "Janaki", "Jaya",    "Kavya",  "Lakshmi",
    "Latha",  "Łucja",  "Malini",  "Mary",   "Meena", "Mira",    "Nalini", "Nandini", "Nisha",  "Padma",
    "Pooja",  "Priya",  "Radha",   "Rani",   "Rekha", "Renée",   "Rosa",   "Sandhya", "Sara",   "Shanti",
    "Sneha",  "Sudha",  "Tara",    "Uma",    "Usha",  "Vani",    "Veena",  "Vidya",   "Yamuna", "Zoë"};
constexpr std::array Families{
    "Achari",  "Ahmed",    "Anthony", "Bhat",   "Chandran", "Cherian", "Das",    "Dias",      "Fernández",
    "Ganesan", "George",   "Ghosh",   "Gomes",  "Iyer",     "Jain",    "John",   "Joseph",    "Kamath",
    "Khan",    "Krishnan", "Kurian",  "Lobo",   "Mani",     "Menon",   "Mistry", "Mukherjee", "Müller",
    "Murthy",  "Nadar",    "Nair",    "Naidu",  "Nambiar",  "Núñez",   "Paul",   "Pillai",    "Prasad",
    "Raja",    "Rajan",    "Rao",     "Reddy",  "Roy",      "Samuel",  "Selvam", "Shetty",    "Sundaram",
    "Thomas",  "Varghese", "Varma",   "Xavier", "Zachariah"};
constexpr std::array Streets{"Temple Street",   "Lake Road",
                             "Station Road",    "Market Street",
                             "Beach Road",      "Church Street",
                             "Gandhi Road",     "Park Avenue",
                             "Mill Lane",       "River View",
                             "School Street",   "Hill Road",
                             "Garden Cross",    "Old Post Office Road",
                             "Canal Bank Road", "Palm Grove"};

template <std::size_t Count>
QString Pick(SampleRandom& random, const std::array<const char*, Count>& names)
{
    return QString::fromUtf8(names[static_cast<std::size_t>(random.Below(static_cast<int>(Count)))]);
}

QString Initial(SampleRandom& random)
{
    return QString(QLatin1Char(static_cast<char>('A' + random.Below(26))));
}

} // namespace

SamplePerson InventPerson(SampleRandom& random)
{
    SamplePerson person;
    person.girl = random.Below(2) == 1;
    const QString given = person.girl ? Pick(random, Girls) : Pick(random, Boys);
    const QString initial = Initial(random);
    person.familyName = Pick(random, Families);
    person.name = QStringLiteral("%1 %2. %3").arg(given, initial, person.familyName);
    return person;
}

QString InventFather(SampleRandom& random, const QString& familyName)
{
    return Pick(random, Boys) + QLatin1Char(' ') + familyName;
}

QString InventStreet(SampleRandom& random)
{
    const int house = random.Between(1, 240);
    return QStringLiteral("%1, %2").arg(house).arg(Pick(random, Streets));
}

} // namespace tally
