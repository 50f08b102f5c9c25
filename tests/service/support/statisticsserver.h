#pragma once

#include "certificate.h"

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

/// A statistics service on this machine's loopback, in a thread of its own so that it works while the test's is busy.
class StatisticsServer : public QThread
{
    Q_OBJECT

public:
    enum Behaviour {
        AnswersOk,
        AnswersError, ///< status 500
        AnswersHugely, ///< 100 MB
        NeverAnswers, ///< takes the request and says nothing
        NeverShakesHands, ///< takes the connection and says nothing
    };

    /// Listens on \a port with that certificate until it is destroyed.
    StatisticsServer(Behaviour behaviour, const Certificate &certificate, quint16 port);
    ~StatisticsServer() override;

    /// Waits until that many requests have arrived whole; then all there are, header and body together.
    QList<QByteArray> requests(int count, int timeoutMs = 10000);
    /// How many connections of this process there have been; another's may come on a network that is not the test's own.
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
