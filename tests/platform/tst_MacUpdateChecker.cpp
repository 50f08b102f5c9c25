#include "buildsettings.h"
#include "macautoupdater.h"
#include "macupdatechecker.h"
#include "objecttrace.h"
#include "testhome.h"

#include <QMetaMethod>
#include <QTimer>
#include <QtTest>

namespace {

QStringList traces;

void keepTraces(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtDebugMsg)
        traces.append(text);
}

void tick(QTimer *timer)
{
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
}

} // namespace

class tst_MacUpdateChecker : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void construction_starts_a_check();
    void each_call_of_the_slot_starts_a_check();
    void the_feed_is_plain_http_on_the_build_host();
    void the_timer_repeats_every_24_hours();
    void each_tick_starts_a_check();
    void the_only_public_method_is_one_slot();
    void the_parent_is_the_given_one();
    void the_timer_is_deleted_with_the_checker();
    void the_updater_alone_starts_no_check();

private:
    QtMessageHandler m_before = nullptr;
};

void tst_MacUpdateChecker::init()
{
    traces.clear();
    m_before = qInstallMessageHandler(keepTraces);
}

void tst_MacUpdateChecker::cleanup()
{
    qInstallMessageHandler(m_before);
}

void tst_MacUpdateChecker::construction_starts_a_check()
{
    const MacUpdateChecker checker(nullptr);
    QCOMPARE(traces.size(), 1);
}

void tst_MacUpdateChecker::each_call_of_the_slot_starts_a_check()
{
    MacUpdateChecker checker(nullptr);
    QVERIFY(QMetaObject::invokeMethod(&checker, "checkForUpdate", Qt::DirectConnection));
    QCOMPARE(traces.size(), 2);
    checker.checkForUpdate();
    QCOMPARE(traces.size(), 3);
}

void tst_MacUpdateChecker::the_feed_is_plain_http_on_the_build_host()
{
    const MacUpdateChecker checker(nullptr);
    QCOMPARE(traces.size(), 1);
    const QString address = QString("http://%1/widget_vesk/tandry/mac/appcast.xml").arg(BuildSettings::updateHost);
    QVERIFY2(traces.first().contains(' ' + address + ';'), qPrintable(traces.first()));
}

void tst_MacUpdateChecker::the_timer_repeats_every_24_hours()
{
    const ObjectTrace trace;
    const MacUpdateChecker checker(nullptr);
    const auto *timer = ObjectTrace::first<QTimer>();
    QVERIFY(timer);
    QCOMPARE(timer->interval(), 86400000);
    QVERIFY(!timer->isSingleShot());
    QVERIFY(timer->isActive());
    QVERIFY(!timer->parent());
}

void tst_MacUpdateChecker::each_tick_starts_a_check()
{
    const ObjectTrace trace;
    const MacUpdateChecker checker(nullptr);
    auto *timer = ObjectTrace::first<QTimer>();
    QVERIFY(timer);
    tick(timer);
    QCOMPARE(traces.size(), 2);
    tick(timer);
    QCOMPARE(traces.size(), 3);
    QVERIFY(timer->isActive());
}

void tst_MacUpdateChecker::the_only_public_method_is_one_slot()
{
    const QMetaObject &meta = MacUpdateChecker::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("checkForUpdate()"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Slot);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_MacUpdateChecker::the_parent_is_the_given_one()
{
    QObject parent;
    const auto *checker = new MacUpdateChecker(&parent);
    QCOMPARE(checker->parent(), &parent);
    QVERIFY(!MacUpdateChecker(nullptr).parent());
}

void tst_MacUpdateChecker::the_timer_is_deleted_with_the_checker()
{
    const ObjectTrace trace;
    {
        const MacUpdateChecker checker(nullptr);
        QVERIFY(ObjectTrace::first<QTimer>());
    }
    QVERIFY(!ObjectTrace::first<QTimer>());
}

void tst_MacUpdateChecker::the_updater_alone_starts_no_check()
{
    MacAutoUpdater updater("http://localhost/feed.xml");
    QVERIFY(traces.isEmpty());
    updater.checkForUpdates();
    QCOMPARE(traces.size(), 1);
    QVERIFY2(traces.first().contains("http://localhost/feed.xml"), qPrintable(traces.first()));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_MacUpdateChecker test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_MacUpdateChecker.moc"
