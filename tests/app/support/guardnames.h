#pragma once

#include <QDir>
#include <QString>

#include <unistd.h>

/// The 16-bit checksum of ISO 3309, computed bit by bit as the standard describes it, for paths known only at run time.
inline quint16 checksumBitByBit(const QByteArray &bytes)
{
    unsigned crc = 0xffff;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ 0x8408 : crc >> 1;
    }
    return quint16(~crc);
}

/// The path of an instance's socket, given the two middle parts of its name.
inline QString socketPath(const QString &prefixAndChecksum, uint user = ::getuid())
{
    return QDir::tempPath() + "/qtsingleapp-" + prefixAndChecksum + '-' + QString::number(user, 16);
}

/// The path of the socket of a program at `path`, given the letters at the start of its file name.
inline QString socketPathFor(const QString &path, const QString &prefix, uint user = ::getuid())
{
    return socketPath(prefix + '-' + QString::number(checksumBitByBit(path.toUtf8()), 16), user);
}
