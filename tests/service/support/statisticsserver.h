#pragma once

#include "certificate.h"

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

/// A statistics service on the loopback interface, in a thread of its own: it works while the test's thread is busy.
class StatisticsServer : public QThread
{
    Q_OBJECT

public:
    enum Behaviour {
        AnswersOk,
        AnswersError, ///< status 500
        AnswersHugely, ///< 100 MB
        NeverAnswers, ///< reads the request and does not reply
        NeverShakesHands, ///< accepts the connection and does not reply
    };

    /// Listens on \a port with that certificate until it is destroyed.
    StatisticsServer(Behaviour behaviour, const Certificate &certificate, quint16 port);
    ~StatisticsServer() override;

    /// Waits until that many complete requests have arrived; returns all requests, header and body together.
    QList<QByteArray> requests(int count, int timeoutMs = 10000);
    /// The number of connections from this process; without a namespace of its own, other processes may also connect.
    int connections() const;

protected:
    void run() override;

private:
    const Behaviour behaviour;
    const Certificate certificate;
    const quint16 port;
    mutable QMutex mutex;
    QWaitCondition changed;
    bool listening = false;
    QList<QByteArray> received;
    int accepted = 0;
};
