#include "autorun.h"
#include "settingslock.h"

#include <QtTest>

#include <sys/file.h>

class tst_SettingsLock : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void an_empty_lock_is_deleted();
    void a_lock_with_an_owner_stays();
    void an_empty_lock_held_by_a_process_stays();
    void without_a_lock_nothing_happens();
    void launch_at_login_deletes_the_lock_of_its_list();

private:
    QTemporaryDir m_folder;
    const QString m_settings = m_folder.filePath("preferences.conf");
    QFile m_lock{m_settings + ".lock"};
};

void tst_SettingsLock::init()
{
    m_lock.close();
    QVERIFY(m_lock.open(QIODevice::WriteOnly | QIODevice::Truncate));
}

void tst_SettingsLock::an_empty_lock_is_deleted()
{
    dropEmptyLock(m_settings);
    QVERIFY(!m_lock.exists());
}

void tst_SettingsLock::a_lock_with_an_owner_stays()
{
    m_lock.write("4711\ntandry\nhost\n");
    m_lock.close();
    dropEmptyLock(m_settings);
    QVERIFY(m_lock.exists());
}

void tst_SettingsLock::an_empty_lock_held_by_a_process_stays()
{
    QCOMPARE(flock(m_lock.handle(), LOCK_EX | LOCK_NB), 0);
    dropEmptyLock(m_settings);
    QVERIFY(m_lock.exists());
}

void tst_SettingsLock::without_a_lock_nothing_happens()
{
    QVERIFY(m_lock.remove());
    dropEmptyLock(m_settings);
    QVERIFY(QDir(m_folder.path()).isEmpty());
}

void tst_SettingsLock::launch_at_login_deletes_the_lock_of_its_list()
{
    qputenv("HOME", QFile::encodeName(m_folder.path()));
    const QString agents = m_folder.filePath("Library/LaunchAgents");
    QFile lock(agents + "/com.olmeric.vesktandry.plist.lock");
    QVERIFY(QDir().mkpath(agents) && lock.open(QIODevice::WriteOnly));
    lock.close();
    const Autorun autorun;
    QVERIFY(!lock.exists());
}

QTEST_GUILESS_MAIN(tst_SettingsLock)

#include "tst_SettingsLock.moc"
