#include "copyretention.h"

#include <QSet>

#include <algorithm>

namespace {

constexpr int daysKept = 7;
constexpr int weeksKept = 5;
constexpr int monthsKept = 12;

int weekOf(const QDate &day)
{
    int year = 0;
    const int week = day.weekNumber(&year);
    return year * 100 + week;
}

int monthOf(const QDate &day)
{
    return day.year() * 100 + day.month();
}

/// Counts distinct periods: true for the first copy of each of the first `limit` of them.
class PeriodCount
{
public:
    explicit PeriodCount(int limit)
        : m_limit(limit)
    {
    }
    bool isFirst(int period)
    {
        if (m_seen.contains(period) || m_seen.size() == m_limit) {
            return false;
        }
        m_seen.insert(period);
        return true;
    }
    bool isFull() const { return m_seen.size() == m_limit; }

private:
    const int m_limit;
    QSet<int> m_seen;
};

/// The daily copies in the order in which they were made.
QVector<Copy> dailyInOrderOfMaking(QVector<Copy> copies)
{
    copies.erase(
        std::remove_if(copies.begin(), copies.end(), [](const Copy &copy) { return copy.kind != Copy::Daily; }),
        copies.end());
    std::sort(copies.begin(), copies.end(), [](const Copy &one, const Copy &other) {
        return one.changes != other.changes ? one.changes < other.changes : one.day < other.day;
    });
    return copies;
}

/// The names of the daily copies dated by a correct clock: the longest sequence, in the order in which the copies were
/// made, whose days never decrease.
QSet<QString> namesWithCorrectDay(const QVector<Copy> &allCopies)
{
    const QVector<Copy> copies = dailyInOrderOfMaking(allCopies);
    QVector<int> lengths; // of the longest sequence that ends with each copy
    QVector<int> previous; // the copy before it in that sequence
    int last = -1;
    for (int index = 0; index < copies.size(); ++index) {
        int length = 1;
        int before = -1;
        for (int earlier = 0; earlier < index; ++earlier) {
            if (copies.at(earlier).day <= copies.at(index).day && lengths.at(earlier) >= length) {
                length = lengths.at(earlier) + 1;
                before = earlier;
            }
        }
        lengths.append(length);
        previous.append(before);
        if (last < 0 || length >= lengths.at(last)) { // of two equally long sequences, the one made last
            last = index;
        }
    }
    QSet<QString> names;
    for (; last >= 0; last = previous.at(last)) {
        names.insert(copies.at(last).name());
    }
    return names;
}

} // namespace

QVector<Copy> superfluousCopies(const QVector<Copy> &copies, const QDate &today)
{
    QVector<Copy> superfluous;
    PeriodCount days(daysKept);
    PeriodCount weeks(weeksKept);
    PeriodCount months(monthsKept);
    bool isNewest = true;
    const QSet<QString> correctlyDated = namesWithCorrectDay(copies);
    for (const Copy &copy : copies) {
        if (copy.day > today) {
            continue;
        }
        if (!correctlyDated.contains(copy.name())) { // made before an upgrade or a return, or by a wrong clock
            if (months.isFull()) {
                superfluous.append(copy);
            }
            continue;
        }
        if (isNewest) {
            isNewest = false;
            continue;
        }
        const bool isOfDay = days.isFirst(int(copy.day.toJulianDay()));
        const bool isOfWeek = weeks.isFirst(weekOf(copy.day));
        const bool isOfMonth = months.isFirst(monthOf(copy.day));
        if (!isOfDay && !isOfWeek && !isOfMonth) {
            superfluous.append(copy);
        }
    }
    return superfluous;
}
