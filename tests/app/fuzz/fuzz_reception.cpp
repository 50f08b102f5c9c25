// Feeds raw bytes in pieces to MessageReader, which reads messages from the guard's socket. The first byte determines
// how the rest is split. The longest input is far below the memory limit of the run: a buffer sized by the announced
// length exceeds the limit.

#include "messagereader.h"

#include <QIODevice>

#include <algorithm>
#include <cstdlib>

namespace {

class PiecewiseDevice : public QIODevice
{
public:
    PiecewiseDevice(const char *bytes, qint64 size, int pieceSize)
        : next(bytes)
        , arriving(size)
        , piece(pieceSize)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return available; }

    bool waitForReadyRead(int) override
    {
        const qint64 count = std::min<qint64>(piece, arriving);
        arriving -= count;
        available += count;
        return count > 0;
    }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        if (available == 0 && arriving == 0)
            return -1;
        const qint64 count = std::min(size, available);
        std::copy_n(next, count, data);
        next += count;
        available -= count;
        return count;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    const char *next;
    qint64 arriving;
    qint64 available = 0;
    int piece;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    // Without four bytes of length the reader waits for ever: see docs/decisions/guard-waits.md.
    if (size < 5)
        return 0;

    const auto *bytes = reinterpret_cast<const char *>(data) + 1;
    const auto sent = qint64(size) - 1;
    PiecewiseDevice device(bytes, sent, data[0] + 1);
    MessageReader reader(device);
    const bool taken = reader.receive();

    const quint32 length = quint32(data[1]) << 24 | quint32(data[2]) << 16 | quint32(data[3]) << 8 | data[4];
    const qint64 expected = std::min<qint64>(length, sent - 4);
    const bool honoured = length <= MessageReader::longestMessageBytes;
    if (!honoured && taken)
        std::abort();
    if (taken && reader.message() != QString::fromUtf8(bytes + 4, int(expected)))
        std::abort();
    return 0;
}
