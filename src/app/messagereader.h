#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

/// Reads one message: a 32-bit big-endian length, then that many bytes of UTF-8. The sender is not trusted: memory grows
/// with the bytes received, never with the announced length.
class MessageReader
{
    Q_DISABLE_COPY(MessageReader)

public:
    /// The longest message, in bytes. Its text, two bytes a character, must fit a QString, which ends below 2^31 bytes.
    static constexpr quint32 longestMessageBytes = (quint32(1) << 30) - 64;

    /// Reads from `device`, which must be open and outlive the reader.
    explicit MessageReader(QIODevice &device);

    /// Waits for the message, without limit for the length and up to 2000 ms for each further piece. A message that
    /// stops early counts as complete. False when a read failed or the length exceeds `longestMessageBytes`.
    bool receive();

    /// The received text; invalid UTF-8 becomes replacement characters.
    QString message() const;

private:
    bool receiveLength();
    bool receivePiece();

    QIODevice &device;
    QByteArray received;
    quint32 remaining = 0;
};
