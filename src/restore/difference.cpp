#include "difference.h"

#include <QHash>
#include <QStringList>

namespace {

QString personOf(const QVariantMap &row)
{
    return row.value(QStringLiteral("name")).toString().toLower() + QLatin1Char('\n')
        + row.value(QStringLiteral("created")).toString();
}

QString counted(int number, const QString &one, const QString &more)
{
    return QString::number(number) + QLatin1Char(' ') + (number == 1 ? one : more);
}

} // namespace

Difference Difference::between(const PatientTable &copy, const PatientTable &today)
{
    // Ids are never reused, unless the table was dropped in between: then they start at 1 again.
    const bool idsHold = today.lastId >= copy.lastId;
    QHash<QString, const QVariantMap *> byPerson;
    QHash<qlonglong, const QVariantMap *> byId;
    for (const QVariantMap &row : today.rows) {
        byPerson.insert(personOf(row), &row);
        byId.insert(row.value(QStringLiteral("id")).toLongLong(), &row);
    }

    Difference difference;
    for (const QVariantMap &row : copy.rows) {
        const QVariantMap *now = idsHold ? byId.value(row.value(QStringLiteral("id")).toLongLong()) : nullptr;
        if (!now || now->value(QStringLiteral("created")) != row.value(QStringLiteral("created"))) {
            now = byPerson.value(personOf(row)); // restored earlier, under a new id
        }
        if (!now) {
            difference.missing.append(row);
            continue;
        }
        QVariantMap then = row;
        then.insert(QStringLiteral("id"), now->value(QStringLiteral("id")));
        difference.changed += then != *now;
    }
    difference.added = qMax(0, today.rows.size() - (copy.rows.size() - difference.missing.size()));
    return difference;
}

QString Difference::text() const
{
    QStringList parts;
    if (added > 0) {
        parts << counted(added, QStringLiteral("patient de moins"), QStringLiteral("patients de moins"));
    }
    if (!missing.isEmpty()) {
        parts << counted(missing.size(), QStringLiteral("patient de plus"), QStringLiteral("patients de plus"));
    }
    if (changed > 0) {
        parts << counted(changed, QStringLiteral("fiche modifiée"), QStringLiteral("fiches modifiées"));
    }
    return parts.isEmpty() ? QStringLiteral("comme aujourd'hui") : parts.join(QStringLiteral(", "));
}
