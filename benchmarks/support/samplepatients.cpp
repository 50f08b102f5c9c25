#include "samplepatients.h"

#include <sqlite3.h>

#include <cstdint>

namespace {

const char *const syllables[] = {"BO", "CHA", "FLO", "GER", "LEN", "NI", "PER", "ROS", "SI", "TI", "VAL", "WE"};
const char *const firstNames[] = {"Alice", "Benoît", "Chloé", "Elodie", "François", "Hélène", "Jules", "Léa"};
constexpr std::uint32_t syllableCount = sizeof syllables / sizeof *syllables;
constexpr std::uint32_t firstNameCount = sizeof firstNames / sizeof *firstNames;
constexpr int stepCount = 5;

/// Scatters neighbouring numbers: names are not created in alphabetical order.
std::uint32_t scatter(std::uint32_t number)
{
    number = (number ^ (number >> 16)) * 0x45d9f3bU;
    number = (number ^ (number >> 16)) * 0x45d9f3bU;
    return number ^ (number >> 16);
}

void bindText(sqlite3_stmt *statement, int position, const QByteArray &text)
{
    sqlite3_bind_text(statement, position, text.constData(), text.size(), SQLITE_TRANSIENT);
}

QByteArray date(int year, std::uint32_t seed)
{
    return QByteArray::number(year) + '-' + QByteArray::number(1 + seed % 12).rightJustified(2, '0') + '-'
        + QByteArray::number(1 + seed / 12 % 28).rightJustified(2, '0');
}

} // namespace

const char *const SamplePatients::searchTerms[2] = {"dup", "mar"};

QByteArray SamplePatients::name(int number)
{
    std::uint32_t seed = scatter(static_cast<std::uint32_t>(number) + 1);
    const auto take = [&seed](std::uint32_t count) {
        const std::uint32_t taken = seed % count;
        seed /= count;
        return taken;
    };
    const int kind = number % 100;
    const QByteArray first = syllables[take(syllableCount)];
    const QByteArray rest = QByteArray(syllables[take(syllableCount)]) + syllables[take(syllableCount)];
    const QByteArray term = QByteArray(searchTerms[kind < 50 ? 0 : 1]).toUpper();
    QByteArray surname = first + rest;

    if (kind % 50 < 5) {
        surname = term + rest;
    } else if (kind % 50 < 8) {
        surname = first + term + rest;
    }
    return surname + ' ' + firstNames[take(firstNameCount)];
}

void SamplePatients::bind(sqlite3_stmt *insert, int number)
{
    const std::uint32_t seed = scatter(static_cast<std::uint32_t>(number) + 0x9e3779b9U);
    const int answered = static_cast<int>(seed % (stepCount + 1));
    int position = 1;

    sqlite3_bind_int(insert, position++, static_cast<int>(seed >> 8 & 1));
    bindText(insert, position++, name(number));
    bindText(insert, position++, "06 " + QByteArray::number(10000000 + seed % 90000000));
    bindText(insert, position++, date(2014, seed));
    for (int step = 0; step < stepCount; ++step) {
        const bool isAnswered = step < answered;
        sqlite3_bind_int(insert, position++, isAnswered ? static_cast<int>(seed >> (step + 9) & 1) : 0);
        bindText(insert, position++, isAnswered ? date(2014, seed >> step) : QByteArray(""));
    }
    bindText(insert, position, number % 10 == 3 ? date(2015, seed) : date(2050, seed));
}
