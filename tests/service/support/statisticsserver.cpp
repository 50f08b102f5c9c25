#include "statisticsserver.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSslSocket>
#include <QTcpServer>

#include <functional>

#include <netinet/in.h>
#include <sys/socket.h>

/// Passes each connection on as a descriptor.
class Acceptor : public QTcpServer
{
public:
    std::function<void(qintptr)> accept;

protected:
    void incomingConnection(qintptr descriptor) override { accept(descriptor); }
};

namespace {

constexpr int highestDescriptor = 1024;
constexpr int hugeSize = 100 * 1024 * 1024;

/// Whether the other end of a connection is a socket of this process.
bool isOurs(quint16 peerPort)
{
    for (int descriptor = 0; descriptor < highestDescriptor; ++descriptor) {
        sockaddr_in name;
        socklen_t size = sizeof name;
        if (getsockname(descriptor, reinterpret_cast<sockaddr *>(&name), &size) == 0 && name.sin_family == AF_INET
            && ntohs(name.sin_port) == peerPort)
            return true;
    }
    return false;
}

/// The length of the whole request, or -1 while its header is incomplete.
int lengthOf(const QByteArray &request)
{
    const int headerEnd = request.indexOf("\r\n\r\n");
    const int field = request.indexOf("Content-Length: ");
    if (headerEnd < 0 || field < 0)
        return -1;
    const int digits = field + int(strlen("Content-Length: "));
    return headerEnd + 4 + request.mid(digits, request.indexOf("\r\n", digits) - digits).toInt();
}

QByteArray answer(StatisticsServer::Behaviour behaviour)
{
    switch (behaviour) {
    case StatisticsServer::AnswersOk: return "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nOK";
    case StatisticsServer::AnswersError: return "HTTP/1.1 500 Internal Server Error\r\nContent-Length: 4\r\n\r\nOops";
    case StatisticsServer::AnswersHugely:
        return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(hugeSize) + "\r\n\r\n"
            + QByteArray(hugeSize, 'x');
    case StatisticsServer::NeverAnswers:
    case StatisticsServer::NeverShakesHands: break;
    }
    return QByteArray();
}

} // namespace

StatisticsServer::StatisticsServer(Behaviour wanted, const Certificate &own, quint16 wantedPort)
    : behaviour(wanted)
    , certificate(own)
    , port(wantedPort)
{
    start();
    QMutexLocker lock(&mutex);
    while (!listening)
        changed.wait(&mutex);
}

StatisticsServer::~StatisticsServer()
{
    quit();
    wait();
}

void StatisticsServer::run()
{
    Acceptor acceptor;
    acceptor.accept = [this, &acceptor](qintptr descriptor) {
        auto *socket = new QSslSocket(&acceptor);
        socket->setSocketDescriptor(descriptor);
        if (isOurs(socket->peerPort())) {
            const QMutexLocker lock(&mutex);
            ++accepted;
            changed.wakeAll();
        }
        if (behaviour == NeverShakesHands)
            return;
        socket->setLocalCertificate(certificate.certificate);
        socket->setPrivateKey(certificate.key);
        auto *request = new QByteArray;
        connect(socket, &QObject::destroyed, [request] { delete request; });
        connect(socket, &QIODevice::readyRead, socket, [this, socket, request] {
            request->append(socket->readAll());
            const int length = lengthOf(*request);
            if (length < 0 || request->size() < length)
                return;
            socket->write(answer(behaviour));
            const QMutexLocker lock(&mutex);
            received.append(*request);
            request->clear();
            changed.wakeAll();
        });
        socket->startServerEncryption();
    };
    if (!acceptor.listen(QHostAddress::LocalHost, port))
        qFatal("Port %d: %s", port, qPrintable(acceptor.errorString()));
    {
        const QMutexLocker lock(&mutex);
        listening = true;
        changed.wakeAll();
    }
    exec();
}

QList<QByteArray> StatisticsServer::requests(int count, int timeoutMs)
{
    QElapsedTimer timer;
    timer.start();
    forever
    {
        {
            QMutexLocker lock(&mutex);
            if (received.size() >= count || timer.elapsed() > timeoutMs)
                return received;
            changed.wait(&mutex, 5);
        }
        // The service's end of the connection belongs to this thread.
        QCoreApplication::processEvents();
    }
}

int StatisticsServer::connections() const
{
    const QMutexLocker lock(&mutex);
    return accepted;
}
