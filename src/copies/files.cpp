#include "files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr size_t chunkBytes = 65536;
using Chunk = std::array<char, chunkBytes>;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// Closes its descriptor when it is destroyed.
class Descriptor
{
    Q_DISABLE_COPY(Descriptor)

public:
    Descriptor(const QString &path, int flags, mode_t mode = 0)
        : value(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode))
    {
    }
    ~Descriptor()
    {
        if (value >= 0) {
            ::close(value);
        }
    }

    const int value;
};

/// Reads a chunk at `offset`. Returns its size, less than a full chunk only at the file's end, or -1 on an error.
qint64 readChunk(int file, Chunk &chunk, qint64 offset)
{
    size_t filled = 0;
    while (filled < chunk.size()) {
        const ssize_t count = ::pread(file, chunk.data() + filled, chunk.size() - filled,
                                      off_t(offset + qint64(filled)));
        if (count == 0) {
            break;
        }
        if (count > 0) {
            filled += size_t(count);
        } else if (errno != EINTR) {
            return -1;
        }
    }
    return qint64(filled);
}

bool writeAll(int file, const char *bytes, qint64 size)
{
    while (size > 0) {
        const ssize_t count = ::write(file, bytes, size_t(size));
        if (count >= 0) {
            bytes += count;
            size -= count;
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace

QString files::sync(const QString &path)
{
    const Descriptor file(path, O_RDONLY);
    return file.value >= 0 && ::fsync(file.value) == 0 ? QString() : systemError();
}

QString files::makeFolder(const QString &path)
{
    if (QFileInfo(path).isDir()) {
        return {};
    }
    const QString parent = QFileInfo(path).path();
    if (parent != path) {
        QString reason = makeFolder(parent);
        if (!reason.isEmpty()) {
            return reason;
        }
    }
    return ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0 ? QString() : systemError();
}

QString files::rename(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0 ? QString()
                                                                                                    : systemError();
}

QString files::copy(int from, const QString &to)
{
    const Descriptor target(to, O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
    if (target.value < 0) {
        return systemError();
    }
    Chunk chunk;
    qint64 offset = 0;
    qint64 size = 0;
    while ((size = readChunk(from, chunk, offset)) > 0) {
        if (!writeAll(target.value, chunk.data(), size)) {
            return systemError();
        }
        offset += size;
    }
    return size == 0 && ::fsync(target.value) == 0 ? QString() : systemError();
}

QString files::copy(const QString &from, const QString &to)
{
    const Descriptor source(from, O_RDONLY);
    return source.value >= 0 ? copy(source.value, to) : systemError();
}

bool files::haveSameBytes(int one, const QString &other)
{
    const Descriptor second(other, O_RDONLY);
    if (second.value < 0) {
        return false;
    }
    Chunk chunk;
    Chunk otherChunk;
    qint64 offset = 0;
    qint64 size = 0;
    do {
        size = readChunk(one, chunk, offset);
        if (size < 0 || readChunk(second.value, otherChunk, offset) != size
            || std::memcmp(chunk.data(), otherChunk.data(), size_t(size)) != 0) {
            return false;
        }
        offset += size;
    } while (size > 0);
    return true;
}
