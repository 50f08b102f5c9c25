#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

/// Takes one message off a connection: a 32-bit big-endian length, then that many bytes of UTF-8.
///
/// Whoever sends is not trusted: memory grows with what has arrived and never with the length that was announced.
class MessageReader
{
    Q_DISABLE_COPY(MessageReader)

public:
    /// The longest message that can be taken, in bytes: its text, two bytes a character, must fit a Qt 5 string,
    /// which ends below 2^31 bytes.
    static constexpr quint32 longestMessageBytes = (quint32(1) << 30) - 64;

    /// Reads from `device`, which must be open and outlive the reader.
    explicit MessageReader(QIODevice &device);

    /// Waits for the message and takes it: without end for the length, up to 2000 ms for each further piece.
    ///
    /// A sender that stops early is taken at what it sent. False when a read failed, or when the length is more than
    /// `longestMessageBytes`.
    bool receive();

    /// The text that was received; bytes that are no UTF-8 come out as replacement characters.
    QString message() const;

private:
    bool receiveLength();
    bool receivePiece();

    QIODevice &device;
    QByteArray received;
    quint32 remaining = 0;
};
