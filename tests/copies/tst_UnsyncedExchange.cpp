#include "exchange.h"
#include "support/generation.h"

#include <QtTest>

/// Only Linux has a file that every process may open and none can sync.
class tst_UnsyncedExchange : public QObject
{
    Q_OBJECT

private slots:
    void an_exchange_with_a_file_that_cannot_be_synced_changes_nothing();
};

void tst_UnsyncedExchange::an_exchange_with_a_file_that_cannot_be_synced_changes_nothing()
{
    const DataFolder data;
    data.write(1);
    Exchange exchange(data.store);
    const QString folder = exchange.begin();
    generation::write(folder, 2);
    QVERIFY(QFile::link("/proc/version", folder + "/.first"));
    QVERIFY(!exchange.commit().isEmpty());
    QCOMPARE(generation::in(data.store.folder()), 1);
}

QTEST_GUILESS_MAIN(tst_UnsyncedExchange)

#include "tst_UnsyncedExchange.moc"
