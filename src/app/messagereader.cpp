#include "messagereader.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace {
constexpr int lengthBytes = 4;
constexpr int lengthWaitMs = 30000;
constexpr int pieceWaitMs = 2000;
} // namespace

MessageReader::MessageReader(QIODevice &source)
    : device(source)
{
}

bool MessageReader::receive()
{
    if (!receiveLength()) {
        return false;
    }
    while (remaining > 0) {
        if (!receivePiece()) {
            return false;
        }
        if (remaining > 0 && !device.waitForReadyRead(pieceWaitMs)) {
            break;
        }
    }
    return true;
}

QString MessageReader::message() const
{
    // Without the size the text would end at the first zero byte.
    return QString::fromUtf8(received.constData(), received.size());
}

bool MessageReader::receiveLength()
{
    // The state of the connection is not checked: see docs/decisions/guard-waits.md.
    while (device.bytesAvailable() < lengthBytes) {
        device.waitForReadyRead(lengthWaitMs);
    }

    QDataStream(&device) >> remaining;
    return remaining <= longestMessageBytes;
}

/// Reads the bytes that have arrived, but at least one, so that a failed read shows.
bool MessageReader::receivePiece()
{
    const qint64 arrived = std::max<qint64>(device.bytesAvailable(), 1);
    const int wanted = int(std::min<qint64>(arrived, remaining));
    const int before = received.size();

    received.resize(before + wanted);
    const int taken = QDataStream(&device).readRawData(received.data() + before, wanted);
    received.resize(before + std::max(taken, 0));
    if (taken < 0) {
        return false;
    }

    remaining -= quint32(taken);
    return true;
}
