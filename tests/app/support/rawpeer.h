#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// The length that precedes a message on the socket.
inline QByteArray lengthBytes(quint32 length)
{
    const char bytes[] = {char(length >> 24), char(length >> 16), char(length >> 8), char(length)};
    return QByteArray(bytes, sizeof bytes);
}

inline bool addressFor(const QString &path, sockaddr_un &address)
{
    const QByteArray name = QFile::encodeName(path);
    address = {};
    address.sun_family = AF_UNIX;
    if (size_t(name.size()) >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
    return true;
}

/// One end of a local socket, without Qt: sends exactly the given bytes.
class RawPeer
{
    Q_DISABLE_COPY(RawPeer)

public:
    explicit RawPeer(int connected = -1)
        : descriptor(connected)
    {
    }
    RawPeer(RawPeer &&other) noexcept
        : descriptor(other.descriptor)
    {
        other.descriptor = -1;
    }
    ~RawPeer() { hangUp(); }

    bool connectTo(const QString &path)
    {
        sockaddr_un address;
        descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        return addressFor(path, address)
            && ::connect(descriptor, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0;
    }

    bool send(const QByteArray &bytes)
    {
        return ::send(descriptor, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) == bytes.size();
    }

    void endSending() { ::shutdown(descriptor, SHUT_WR); }

    void hangUp()
    {
        if (descriptor != -1)
            ::close(descriptor);
        descriptor = -1;
    }

    /// True once the other side has read everything that was sent.
    bool isTaken() const
    {
        int waiting = -1;
        return ::ioctl(descriptor, TIOCOUTQ, &waiting) == 0 && waiting == 0;
    }

    bool hasSomethingToRead(int limitMs) const
    {
        pollfd readable = {descriptor, POLLIN, 0};
        return ::poll(&readable, 1, limitMs) == 1;
    }

    /// Reads exactly `count` bytes, or fewer when the other side hangs up or the limit expires.
    QByteArray receive(int count, int limitMs = 20000)
    {
        QByteArray bytes;
        while (bytes.size() < count && hasSomethingToRead(limitMs)) {
            char piece[4096];
            const ssize_t got = ::read(descriptor, piece, size_t(qMin(count - bytes.size(), int(sizeof piece))));
            if (got <= 0)
                break;
            bytes.append(piece, int(got));
        }
        return bytes;
    }

    /// True when the other side has hung up within the limit and nothing is left to read.
    bool isHungUp(int limitMs = 20000) const
    {
        char byte;
        return hasSomethingToRead(limitMs) && ::read(descriptor, &byte, 1) <= 0;
    }

private:
    int descriptor = -1;
};

/// A listening local socket, without Qt. Its file remains after the destructor, as after a crash.
class RawListener
{
    Q_DISABLE_COPY(RawListener)

public:
    RawListener() = default;
    ~RawListener() { ::close(descriptor); }

    bool listen(const QString &path)
    {
        sockaddr_un address;
        descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        return addressFor(path, address)
            && ::bind(descriptor, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0
            && ::listen(descriptor, 5) == 0;
    }

    bool hasConnection(int limitMs) const
    {
        pollfd acceptable = {descriptor, POLLIN, 0};
        return ::poll(&acceptable, 1, limitMs) == 1;
    }

    RawPeer accept(int limitMs = 20000)
    {
        return RawPeer(hasConnection(limitMs) ? ::accept(descriptor, nullptr, nullptr) : -1);
    }

private:
    int descriptor = -1;
};
