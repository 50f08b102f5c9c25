#include "certificate.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "statisticsserver.h"
#include "testmain.h"

#include <QAbstractEventDispatcher>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

#include <algorithm>

namespace {

constexpr quint16 port = 47443; // the port of the statistics host in test builds

/// Fires all one-minute timers at once, as if the minute had passed; returns their number.
int passLimits()
{
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    int passed = 0;
    for (QObject *timer : dispatcher->findChildren<QObject *>()) {
        const auto timers = dispatcher->registeredTimers(timer);
        if (timer->inherits("QSingleShotTimer") && timers.size() == 1 && timers.first().interval == 60000) {
            QTimerEvent event(timers.first().timerId);
            QCoreApplication::sendEvent(timer, &event);
            ++passed;
        }
    }
    return passed;
}

QNetworkReply *onlyReply(const RunningService &running)
{
    const auto replies = running.service->findChild<QNetworkAccessManager *>()->findChildren<QNetworkReply *>();
    return replies.size() == 1 ? replies.first() : nullptr;
}

bool allFinished(const RunningService &running)
{
    const auto replies = running.service->findChild<QNetworkAccessManager *>()->findChildren<QNetworkReply *>();
    return std::all_of(replies.begin(), replies.end(), [](const QNetworkReply *reply) { return reply->isFinished(); });
}

/// Measures time without the time in which this thread was ready but had no processor, where the system reports that:
/// distinguishes a wait from a busy machine.
class OwnTime
{
public:
    OwnTime() { timer.start(); }
    /// The milliseconds since the construction or the last call.
    qint64 restart()
    {
        const qint64 before = starvedMs;
        starvedMs = readStarvedMs();
        return timer.restart() - (starvedMs - before);
    }

private:
    static qint64 readStarvedMs()
    {
        QFile file("/proc/thread-self/schedstat");
        return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() / 1000000 : 0;
    }

    QElapsedTimer timer;
    qint64 starvedMs = readStarvedMs();
};

/// The longest pause between two events of this thread.
class Heartbeat : public QObject
{
public:
    Heartbeat() { startTimer(5); }
    qint64 longestPauseMs = 0;

protected:
    void timerEvent(QTimerEvent *) override { longestPauseMs = qMax(longestPauseMs, beat.restart()); }

private:
    OwnTime beat;
};

} // namespace

/// When the daily upload is sent, and that no behaviour of a server disturbs the program.
class ServiceUpload : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void construction_uploads_once();
    void timer_uploads_every_day();
    void replies_are_neither_read_nor_deleted();
    void window_does_not_wait_for_the_server_data();
    void window_does_not_wait_for_the_server();
    void server_with_an_untrusted_certificate_receives_nothing();
    void refused_connection_is_ignored();
    void error_of_the_server_is_ignored();
    void endless_reply_is_limited_and_aborted();
    void silent_replies_do_not_stop_later_uploads();

private:
    Certificate *own = nullptr;
};

void ServiceUpload::initTestCase()
{
    OwnNetwork::claim(port);
    own = new Certificate("own");
    own->trust();
}

void ServiceUpload::cleanupTestCase()
{
    delete own;
}

void ServiceUpload::init()
{
    SettingsFile::forgetEverything();
    passLimits(); // for replies of services that were deleted
}

void ServiceUpload::construction_uploads_once()
{
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    const RunningService running;
    QCOMPARE(server.requests(1).size(), 1);
    QTRY_VERIFY(onlyReply(running) && onlyReply(running)->isFinished());
    QCOMPARE(onlyReply(running)->error(), QNetworkReply::NoError);
    QCOMPARE(server.connections(), 1);
}

void ServiceUpload::timer_uploads_every_day()
{
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    const RunningService running;
    QTimer *timer = running.service->statisticsTimer;
    QVERIFY(timer);
    QCOMPARE(timer->interval(), 86400000);
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());
    QCOMPARE(timer->parent(), nullptr);
    QCOMPARE(server.requests(1).size(), 1);

    QMetaObject::invokeMethod(timer, "timeout");
    QCOMPARE(server.requests(2).size(), 2);
    QMetaObject::invokeMethod(timer, "timeout");
    QCOMPARE(server.requests(3).size(), 3);
}

void ServiceUpload::replies_are_neither_read_nor_deleted()
{
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    RunningService running;
    QCOMPARE(server.requests(1).size(), 1);
    running.call("sendDataToServer");
    QCOMPARE(server.requests(2).size(), 2);
    const auto *manager = running.service->findChild<QNetworkAccessManager *>();
    const QList<QNetworkReply *> replies = manager->findChildren<QNetworkReply *>();
    QCOMPARE(replies.size(), 2);
    for (QNetworkReply *reply : replies) {
        QTRY_VERIFY(reply->isFinished());
        QCOMPARE(reply->parent(), manager);
        QCOMPARE(reply->readAll(), QByteArray("OK")); // not read before
    }
}

void ServiceUpload::window_does_not_wait_for_the_server_data()
{
    QTest::addColumn<int>("behaviour");
    QTest::newRow("200") << int(StatisticsServer::AnswersOk);
    QTest::newRow("500") << int(StatisticsServer::AnswersError);
    QTest::newRow("a reply of 100 MB") << int(StatisticsServer::AnswersHugely);
    QTest::newRow("no reply") << int(StatisticsServer::NeverAnswers);
    QTest::newRow("no handshake") << int(StatisticsServer::NeverShakesHands);
}

void ServiceUpload::window_does_not_wait_for_the_server()
{
    QFETCH(int, behaviour);
    StatisticsServer server(StatisticsServer::Behaviour(behaviour), *own, port);
    RunningService running;
    OwnTime slot;
    running.call("sendDataToServer");
    QVERIFY2(slot.restart() < 500, "The slot waited for the server");

    Heartbeat heartbeat;
    running.call("show");
    const auto answered = [&] {
        int count = 0;
        const auto *manager = running.service->findChild<QNetworkAccessManager *>();
        for (const QNetworkReply *reply : manager->findChildren<QNetworkReply *>())
            count += reply->bytesAvailable() > 0;
        return count;
    };
    if (behaviour == StatisticsServer::NeverShakesHands)
        QTRY_COMPARE(server.connections(), 2);
    else
        QCOMPARE(server.requests(2).size(), 2);
    if (behaviour < StatisticsServer::NeverAnswers)
        QTRY_COMPARE(answered(), 2);
    QTRY_VERIFY(running.main->isExposed());
    QVERIFY2(heartbeat.longestPauseMs < 1000, qPrintable(QString::number(heartbeat.longestPauseMs)));
}

void ServiceUpload::server_with_an_untrusted_certificate_receives_nothing()
{
    StatisticsServer server(StatisticsServer::AnswersOk, Certificate("foreign"), port);
    const RunningService running;
    QTRY_VERIFY(onlyReply(running) && onlyReply(running)->isFinished());
    QCOMPARE(onlyReply(running)->error(), QNetworkReply::SslHandshakeFailedError);
    QCOMPARE(server.connections(), 1);
    QCOMPARE(server.requests(1, 0).size(), 0);
}

void ServiceUpload::refused_connection_is_ignored()
{
    RunningService running;
    QTRY_VERIFY(onlyReply(running) && onlyReply(running)->isFinished());
    QCOMPARE(onlyReply(running)->error(), QNetworkReply::ConnectionRefusedError);

    // The next day a server listens.
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    running.call("sendDataToServer");
    QCOMPARE(server.requests(1).size(), 1);
}

void ServiceUpload::error_of_the_server_is_ignored()
{
    StatisticsServer server(StatisticsServer::AnswersError, *own, port);
    RunningService running;
    QTRY_VERIFY(onlyReply(running) && onlyReply(running)->isFinished());
    QCOMPARE(onlyReply(running)->error(), QNetworkReply::InternalServerError);
    QCOMPARE(server.connections(), 1); // there was no second attempt
    running.call("sendDataToServer");
    QCOMPARE(server.requests(2).size(), 2);
}

void ServiceUpload::endless_reply_is_limited_and_aborted()
{
    StatisticsServer server(StatisticsServer::AnswersHugely, *own, port);
    const RunningService running;
    const QNetworkReply *reply = onlyReply(running);
    QVERIFY(reply);
    qint64 most = 0;
    connect(reply, &QIODevice::readyRead, reply, [&] { most = qMax(most, reply->bytesAvailable()); });
    QTRY_VERIFY_WITH_TIMEOUT(most > 32 * 1024, 60000);
    QVERIFY2(!QTest::qWaitFor([&] { return most > 64 * 1024; }, 500), qPrintable(QString::number(most)));
    QVERIFY(!reply->isFinished());
    QCOMPARE(passLimits(), 1);
    QTRY_VERIFY(reply->isFinished());
    QCOMPARE(reply->error(), QNetworkReply::OperationCanceledError);
}

void ServiceUpload::silent_replies_do_not_stop_later_uploads()
{
    StatisticsServer server(StatisticsServer::NeverAnswers, *own, port);
    RunningService running;
    for (int i = 1; i < 6; ++i)
        running.call("sendDataToServer");
    // The number of connections that Qt opens to one host.
    QCOMPARE(server.requests(6).size(), 6);
    QCOMPARE(passLimits(), 6);
    QTRY_VERIFY(allFinished(running));
    running.call("sendDataToServer");
    QCOMPARE(server.requests(7).size(), 7);
}

SERVICE_TEST_MAIN(ServiceUpload)

#include "tst_ServiceUpload.moc"
