#include "copyretention.h"
#include "support/copynames.h"

#include <QtTest>

#include <algorithm>

namespace {

const QDate today(2026, 11, 21);

QVector<Copy> daily(const QVector<QDate> &days)
{
    QVector<Copy> copies;
    for (const QDate &day : days) {
        Copy copy;
        copy.day = day;
        copy.changes = quint32(day.toJulianDay());
        copies << copy;
    }
    return copies;
}

} // namespace

class tst_CopyRetention : public QObject
{
    Q_OBJECT

private slots:
    void seven_days_five_weeks_and_twelve_months_are_kept();
    void a_wrong_clock_deletes_no_required_copy_data();
    void a_wrong_clock_deletes_no_required_copy();
    void copies_before_an_upgrade_or_return_stay_for_twelve_months();
};

void tst_CopyRetention::seven_days_five_weeks_and_twelve_months_are_kept()
{
    // A copy on every day of two years, with rotation after each.
    QVector<Copy> left;
    for (QDate day(2024, 11, 22); day <= today; day = day.addDays(1)) {
        left = daily({day}) + left;
        for (const Copy &copy : superfluousCopies(left, day)) {
            left.erase(std::remove_if(left.begin(), left.end(),
                                      [&](const Copy &other) { return other.name() == copy.name(); }),
                       left.end());
        }
    }
    QCOMPARE(namesOf(left),
             QStringList({"2026-11-21", "2026-11-20", "2026-11-19", "2026-11-18", "2026-11-17", "2026-11-16",
                          "2026-11-15", "2026-11-14", "2026-11-08", "2026-11-01", "2026-10-31", "2026-10-25",
                          "2026-09-30", "2026-08-31", "2026-07-31", "2026-06-30", "2026-05-31", "2026-04-30",
                          "2026-03-31", "2026-02-28", "2026-01-31", "2025-12-31"}));
}

void tst_CopyRetention::a_wrong_clock_deletes_no_required_copy_data()
{
    QTest::addColumn<QDate>("wrong");
    QTest::newRow("years ahead") << QDate(2035, 1, 1);
    QTest::newRow("on a later day of a past week") << QDate(2026, 10, 25);
    QTest::newRow("a week ahead") << today.addDays(7);
    QTest::newRow("a week back") << today.addDays(-7);
    QTest::newRow("years back") << QDate(2011, 1, 1);
}

void tst_CopyRetention::a_wrong_clock_deletes_no_required_copy()
{
    QFETCH(QDate, wrong);
    // All copies that must exist on `today`.
    QVector<Copy> copies;
    for (int day = 0; day < 7; ++day)
        copies += daily({today.addDays(-day)});
    copies += daily({{2026, 11, 8},
                     {2026, 11, 1},
                     {2026, 10, 31},
                     {2026, 10, 23},
                     {2026, 9, 30},
                     {2026, 8, 31},
                     {2026, 7, 31},
                     {2026, 6, 30},
                     {2026, 5, 31},
                     {2026, 4, 30},
                     {2026, 3, 31},
                     {2026, 2, 28},
                     {2026, 1, 31},
                     {2025, 12, 31}});
    QCOMPARE(namesOf(superfluousCopies(copies, today)), QStringList());

    // Two starts with the wrong clock: the first one is followed by the copies of today and of the day before.
    for (const int changes : {int(today.toJulianDay()) - 2, int(today.toJulianDay()) + 1}) {
        copies += daily({changes > today.toJulianDay() ? wrong : wrong.addDays(-1)});
        copies.last().changes = quint32(changes);
    }
    std::sort(copies.begin(), copies.end(), [](const Copy &one, const Copy &other) { return one.day > other.day; });
    QCOMPARE(namesOf(superfluousCopies(copies, wrong)), QStringList());
    // Once the clock is right again, only the copies made with the wrong clock may be deleted.
    for (const Copy &copy : superfluousCopies(copies, today))
        QVERIFY2(copy.day == wrong || copy.day == wrong.addDays(-1), qPrintable(copy.name()));
}

void tst_CopyRetention::copies_before_an_upgrade_or_return_stay_for_twelve_months()
{
    Copy kept;
    kept.day = QDate(2025, 11, 15);
    kept.kind = Copy::BeforeUpgrade;
    QVector<Copy> copies;
    for (int month = 0; month < 12; ++month)
        copies += daily({today.addMonths(-month)});
    QCOMPARE(namesOf(superfluousCopies(copies + QVector<Copy>{kept}, today)), QStringList());
    copies = daily({today.addMonths(1)}) + copies;
    QCOMPARE(namesOf(superfluousCopies(copies + QVector<Copy>{kept}, today.addMonths(1))),
             QStringList{"2025-11-15-before-upgrade"});
}

QTEST_GUILESS_MAIN(tst_CopyRetention)

#include "tst_CopyRetention.moc"
