// Kills a process at random moments during its work. TANDRY_KILLS sets the number of rounds, TANDRY_KILL_SEED repeats a
// run.

#include "copyfolder.h"
#include "exchange.h"
#include "support/generation.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

class tst_CopyKills : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void an_exchange_leaves_all_old_or_all_new_files();
    void replacing_the_copy_of_a_day_leaves_the_old_or_the_new_one();
    void rotation_leaves_only_complete_copies_and_enough_of_them();

private:
    void runAndKill(const QString &what);
    void compareFound(int found);
    int cutWork() const;

    QRandomGenerator m_lot;
    int m_rounds = 15;
    int m_first = 0; ///< the generation at which the process began
    int m_last = 0; ///< the generation at which it was killed
    int m_found = 0; ///< the generation found after the last kill
    DataFolder m_data;
};

void tst_CopyKills::initTestCase()
{
    if (qEnvironmentVariableIntValue("TANDRY_KILLS") > 0)
        m_rounds = qEnvironmentVariableIntValue("TANDRY_KILLS");
    const quint32 seed = qEnvironmentVariableIsSet("TANDRY_KILL_SEED")
        ? qEnvironmentVariable("TANDRY_KILL_SEED").toUInt()
        : QRandomGenerator::global()->generate();
    m_lot.seed(seed);
    qInfo("%d kills each, TANDRY_KILL_SEED=%u", m_rounds, seed);
}

void tst_CopyKills::runAndKill(const QString &what)
{
    m_first = m_last + 1;
    QProcess process;
    process.start(COPIES_PROBE, {what, m_data.store.dataFolder(), QString::number(m_first)});
    QVERIFY(process.waitForReadyRead());
    QTest::qWait(m_lot.bounded(60)); // a random moment of its work
    process.kill();
    process.waitForFinished();
    m_last = process.readAllStandardOutput().trimmed().split('\n').last().toInt();
    QVERIFY2(m_last >= m_first, process.readAllStandardError().constData());
}

/// After a kill, the files are either the generation in progress or the one before it.
void tst_CopyKills::compareFound(int found)
{
    const int before = m_last == m_first ? m_found : m_last - 1;
    QVERIFY2(found == m_last || found == before,
             qPrintable(QString("%1 after a kill at %2, %3 before").arg(found).arg(m_last).arg(before)));
    m_found = found;
}

/// Unfinished work that the killed process left among the copies.
int tst_CopyKills::cutWork() const
{
    return QDir(m_data.store.copiesFolder(), ".*", QDir::NoSort, QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot)
        .count();
}

void tst_CopyKills::an_exchange_leaves_all_old_or_all_new_files()
{
    int cut = 0;
    for (int round = 0; round < m_rounds; ++round) {
        runAndKill("exchange");
        cut += generation::in(m_data.store.folder()) == 0;
        QCOMPARE(Exchange(m_data.store).finish(), QString());
        compareFound(generation::in(m_data.store.folder()));
    }
    qInfo("%d of them in the middle of the renames", cut);
}

void tst_CopyKills::replacing_the_copy_of_a_day_leaves_the_old_or_the_new_one()
{
    int cut = 0;
    m_found = 0;
    for (int round = 0; round < m_rounds; ++round) {
        runAndKill("replace");
        CopyFolder copyFolder(m_data.store);
        const QVector<Copy> copies = copyFolder.copies();
        for (const Copy &copy : copies)
            QVERIFY2(generation::in(copy.folder) > 0, "an incomplete copy is listed");
        cut += cutWork() > 0;
        copyFolder.recover();
        compareFound(m_data.copied("2026-01-01"));
        QCOMPARE(cutWork(), 0);
    }
    qInfo("%d of them in the middle of a copy", cut);
}

void tst_CopyKills::rotation_leaves_only_complete_copies_and_enough_of_them()
{
    QDir(m_data.store.copiesFolder()).removeRecursively();
    m_found = 0;
    int most = 0;
    int cut = 0;
    for (int round = 0; round < m_rounds; ++round) {
        runAndKill("rotate");
        cut += cutWork() > 0;
        CopyFolder copyFolder(m_data.store);
        copyFolder.recover();
        QCOMPARE(cutWork(), 0);
        const QVector<Copy> copies = copyFolder.copies();
        for (const Copy &copy : copies)
            QVERIFY2(generation::in(copy.folder) > 0, "an incomplete copy is listed");
        most = qMax(most, copies.size());
        QVERIFY(copies.size() >= qMin(8, most));
        compareFound(copies.isEmpty() ? 0 : generation::in(copies.first().folder));
    }
    qInfo("%d of them in the middle of it, up to %d copies", cut, most);
}

QTEST_GUILESS_MAIN(tst_CopyKills)

#include "tst_CopyKills.moc"
