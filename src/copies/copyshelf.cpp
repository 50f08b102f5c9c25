#include "copyshelf.h"

#include "files.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr int daysKept = 7;
constexpr int weeksKept = 5;
constexpr int monthsKept = 12;

const QLatin1String beforeUpgrade("-before-upgrade");
const QLatin1String beforeReturn("-before-return");
const QLatin1String unfinished(".new-");
const QLatin1String replaced(".old-");
const QLatin1String thrownAway(".gone");

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

/// Counts distinct periods: true for the first copy of each of the first \a limit of them.
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

/// SQLite's own count of the transactions that changed the file, in its header.
quint32 changesIn(const QString &database)
{
    constexpr int offset = 24;
    QFile file(database);
    quint32 count = 0;
    if (file.open(QIODevice::ReadOnly) && file.seek(offset)) {
        count = qFromBigEndian<quint32>(file.read(sizeof(count)).leftJustified(sizeof(count), '\0').constData());
    }
    return count;
}

/// The daily copies whose days come in the order in which they were made: the longest such row of them. The others were
/// made by a wrong clock.
QSet<QString> copiesInOrder(QVector<Copy> copies)
{
    copies.erase(
        std::remove_if(copies.begin(), copies.end(), [](const Copy &copy) { return copy.kind != Copy::Daily; }),
        copies.end());
    std::sort(copies.begin(), copies.end(), [](const Copy &one, const Copy &other) {
        return one.changes != other.changes ? one.changes < other.changes : one.day < other.day;
    });
    QVector<int> lengths; // of the longest row that ends with each copy, and the copy before it in that row
    QVector<int> previous;
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
        if (last < 0 || length >= lengths.at(last)) { // of two that are equally long, the one made last
            last = index;
        }
    }
    QSet<QString> names;
    for (; last >= 0; last = previous.at(last)) {
        names.insert(copies.at(last).name());
    }
    return names;
}

/// The copy that a folder's name stands for; its day is invalid for any other name.
Copy copyNamed(const QString &name)
{
    static const QRegularExpression form(
        QStringLiteral("\\A(\\d{4}-\\d{2}-\\d{2})(-before-upgrade|-before-return)?(?:-(\\d+))?\\z"));
    const QRegularExpressionMatch match = form.match(name);
    Copy copy;
    copy.day = QDate::fromString(match.captured(1), Qt::ISODate);
    copy.kind = match.captured(2) == beforeUpgrade ? Copy::BeforeUpgrade
        : match.captured(2) == beforeReturn        ? Copy::BeforeReturn
                                                   : Copy::Daily;
    copy.number = match.captured(3).isEmpty() ? 1 : match.captured(3).toInt();
    return copy;
}

} // namespace

QString Copy::name() const
{
    QString name = day.toString(Qt::ISODate);
    if (kind != Daily) {
        name += kind == BeforeUpgrade ? beforeUpgrade : beforeReturn;
    }
    return number > 1 ? name + QLatin1Char('-') + QString::number(number) : name;
}

CopyShelf::CopyShelf(const StoreFiles &store)
    : m_store(store)
    , m_reader(store)
{
}

QVector<Copy> CopyShelf::copies() const
{
    QVector<Copy> found;
    const QStringList names = QDir(m_store.copiesFolder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        Copy copy = copyNamed(name);
        copy.folder = path(name);
        const QString database = copy.folder + QLatin1Char('/') + StoreFiles::databaseName();
        if (copy.day.isValid() && QFileInfo::exists(database)) {
            copy.changes = changesIn(database);
            found.append(copy);
        }
    }
    // Of one day, the one that was written last.
    std::sort(found.begin(), found.end(), [](const Copy &one, const Copy &other) {
        return one.day != other.day ? one.day > other.day
                                    : QFileInfo(one.folder).lastModified() > QFileInfo(other.folder).lastModified();
    });
    return found;
}

void CopyShelf::tidy()
{
    const QStringList names = QDir(m_store.copiesFolder()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        if (name.startsWith(replaced)) {
            const QString original = path(name.mid(replaced.size()));
            if (!QFileInfo::exists(original)) {
                files::rename(path(name), original);
                continue;
            }
        }
        if (name.startsWith(replaced) || name.startsWith(unfinished) || name == thrownAway) {
            QDir(path(name)).removeRecursively();
        }
    }
}

QString CopyShelf::copyDay(const QDate &today, bool isStart)
{
    const QVector<Copy> all = copies();
    const auto last = std::find_if(all.begin(), all.end(), [&](const Copy &copy) { return copy.day <= today; });
    if (last != all.end() && m_reader.isSameAs(last->folder)) {
        return {};
    }
    Copy copy;
    copy.day = today;
    const bool stays = std::any_of(all.begin(), all.end(), [&](const Copy &existing) {
        return existing.name() == copy.name() && (!isStart || !mayReplace(existing, all));
    });
    if (stays) {
        return {};
    }
    QString reason = m_reader.reasonAgainstCopy();
    if (reason.isEmpty()) {
        reason = make(copy);
    }
    if (reason.isEmpty()) {
        rotate(today);
    }
    return reason;
}

QString CopyShelf::keep(Copy::Kind kind, const QDate &today)
{
    Copy copy;
    copy.day = today;
    copy.kind = kind;
    const QVector<Copy> all = copies();
    const bool isKept = std::any_of(all.begin(), all.end(), [&](const Copy &existing) {
        return existing.kind == kind && m_reader.isSameAs(existing.folder);
    });
    if (isKept) {
        return {};
    }
    while (QFileInfo::exists(path(copy.name()))) {
        ++copy.number;
    }
    return make(copy);
}

QVector<Copy> CopyShelf::superfluous(const QVector<Copy> &copies, const QDate &today)
{
    QVector<Copy> toGo;
    PeriodCount days(daysKept);
    PeriodCount weeks(weeksKept);
    PeriodCount months(monthsKept);
    bool isNewest = true;
    const QSet<QString> inOrder = copiesInOrder(copies);
    for (const Copy &copy : copies) {
        if (copy.day > today) {
            continue;
        }
        if (!inOrder.contains(copy.name())) { // kept for a reason, or made by a wrong clock
            if (months.isFull()) {
                toGo.append(copy);
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
            toGo.append(copy);
        }
    }
    return toGo;
}

/// Fills a folder under another name and gives it the copy's name once all of it is on the disk.
QString CopyShelf::make(const Copy &copy)
{
    const QString work = path(unfinished + QString::number(QCoreApplication::applicationPid()));
    QDir(work).removeRecursively();
    QString reason = files::makeFolder(work);
    if (reason.isEmpty()) {
        reason = m_reader.copyTo(work);
    }
    if (reason.isEmpty()) {
        reason = publish(work, copy.name());
    }
    if (!reason.isEmpty()) {
        QDir(work).removeRecursively();
    }
    return reason;
}

/// A folder that has the name already steps aside first; tidy() puts it back if we die in between.
QString CopyShelf::publish(const QString &filled, const QString &name)
{
    const QString aside = path(replaced + name);
    if (QFileInfo::exists(path(name))) {
        QString reason = files::rename(path(name), aside);
        if (!reason.isEmpty()) {
            return reason;
        }
    }
    QString reason = files::rename(filled, path(name));
    if (!reason.isEmpty()) {
        files::rename(aside, path(name));
        return reason;
    }
    QString syncing = files::sync(m_store.copiesFolder());
    if (syncing.isEmpty()) {
        QDir(aside).removeRecursively();
    }
    return syncing;
}

void CopyShelf::rotate(const QDate &today)
{
    const QVector<Copy> toGo = superfluous(copies(), today);
    for (const Copy &copy : toGo) {
        // Renamed first: a folder that is half emptied must not look like a copy.
        if (files::rename(copy.folder, path(thrownAway)).isEmpty()) {
            QDir(path(thrownAway)).removeRecursively();
        }
    }
}

/// Not when patients were thrown away or replaced in between, and not when there are copies of later days: the clock is
/// wrong then, or was, and the copy may be an old one.
bool CopyShelf::mayReplace(const Copy &existing, const QVector<Copy> &all) const
{
    return std::none_of(all.begin(), all.end(), [&](const Copy &copy) {
        return copy.day > existing.day || (copy.day == existing.day && copy.kind != Copy::Daily);
    });
}

QString CopyShelf::path(const QString &name) const
{
    return m_store.copiesFolder() + QLatin1Char('/') + name;
}
