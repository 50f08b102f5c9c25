#include "messagereader.h"

#include <QIODevice>
#include <QtTest>

namespace {

/// A connection on which the test decides what arrives during each wait; an empty piece is a wait that times out.
class ScriptedDevice : public QIODevice
{
public:
    explicit ScriptedDevice(const QByteArrayList &script)
        : pieces(script)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return arrived.size(); }

    bool waitForReadyRead(int milliseconds) override
    {
        waits << milliseconds;
        if (pieces.isEmpty())
            return false;
        const QByteArray piece = pieces.takeFirst();
        arrived += piece;
        return !piece.isEmpty();
    }

    QList<int> waits;
    bool failing = false;
    qint64 mostAskedBeyondArrived = 0;

protected:
    qint64 readData(char *data, qint64 size) override
    {
        mostAskedBeyondArrived = qMax(mostAskedBeyondArrived, size - arrived.size());
        if (arrived.isEmpty() && failing)
            return -1;
        const int count = int(qMin<qint64>(size, arrived.size()));
        std::copy_n(arrived.constData(), count, data);
        arrived.remove(0, count);
        return count;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArrayList pieces;
    QByteArray arrived;
};

QByteArray bytes(const char *hexadecimal)
{
    return QByteArray::fromHex(hexadecimal);
}

} // namespace

class tst_MessageReader : public QObject
{
    Q_OBJECT

private slots:
    void message_is_received_data();
    void message_is_received();
    void waits_half_a_minute_at_a_time_for_the_length();
    void waits_for_the_length_without_limit();
    void waits_two_seconds_for_each_piece();
    void message_of_a_silent_sender_is_what_it_sent();
    void does_not_wait_once_everything_has_arrived();
    void bytes_after_the_message_stay_unread();
    void failed_read_fails();
    void failed_read_after_a_piece_fails();
    void length_beyond_a_string_fails_data();
    void length_beyond_a_string_fails();
    void longest_length_is_accepted();
    void reads_at_most_one_byte_more_than_has_arrived();
};

void tst_MessageReader::message_is_received_data()
{
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<QString>("text");
    QTest::newRow("at once") << QByteArrayList{bytes("00000008") + "activate"} << "activate";
    QTest::newRow("length first") << QByteArrayList{bytes("00000008"), "activate"} << "activate";
    QTest::newRow("byte by byte") << QByteArrayList{bytes("00"), bytes("00"), bytes("00"), bytes("02"), "a", "b"}
                                  << "ab";
    QTest::newRow("across the length") << QByteArrayList{bytes("0000"), bytes("000361"), "bc"} << "abc";
    QTest::newRow("empty") << QByteArrayList{bytes("00000000")} << "";
    QTest::newRow("not Latin") << QByteArrayList{bytes("00000006e697a5e69cac")} << QString::fromUtf8("日本");
    QTest::newRow("split inside a letter")
        << QByteArrayList{bytes("00000002c3"), bytes("a9")} << QString::fromUtf8("é");
    QTest::newRow("not UTF-8") << QByteArrayList{bytes("0000000361ff62")} << QString("a") + QChar(0xfffd) + "b";
    QTest::newRow("zero byte inside") << QByteArrayList{bytes("00000003610062")} << QString("a") + QChar(0) + "b";
    QTest::newRow("256 long") << QByteArrayList{bytes("00000100") + QByteArray(256, 'x')} << QString(256, 'x');
}

void tst_MessageReader::message_is_received()
{
    QFETCH(QByteArrayList, pieces);
    QFETCH(QString, text);
    ScriptedDevice device(pieces);
    MessageReader reader(device);
    QVERIFY(reader.receive());
    QCOMPARE(reader.message(), text);
}

void tst_MessageReader::waits_half_a_minute_at_a_time_for_the_length()
{
    ScriptedDevice device({bytes("00"), bytes("0000"), bytes("00")});
    QVERIFY(MessageReader(device).receive());
    QCOMPARE(device.waits, (QList<int>{30000, 30000, 30000}));
}

void tst_MessageReader::waits_for_the_length_without_limit()
{
    QByteArrayList script{bytes("00")};
    for (int i = 0; i < 1000; ++i)
        script << QByteArray();
    script << bytes("00000161");
    ScriptedDevice device(script);
    MessageReader reader(device);
    QVERIFY(reader.receive());
    QCOMPARE(reader.message(), QString("a"));
    QCOMPARE(device.waits.size(), 1002);
}

void tst_MessageReader::waits_two_seconds_for_each_piece()
{
    ScriptedDevice device({bytes("00000003"), "a", "b", "c"});
    QVERIFY(MessageReader(device).receive());
    QCOMPARE(device.waits, (QList<int>{30000, 2000, 2000, 2000}));
}

void tst_MessageReader::message_of_a_silent_sender_is_what_it_sent()
{
    ScriptedDevice device({bytes("0000000a"), "abc", QByteArray(), "too late"});
    MessageReader reader(device);
    QVERIFY(reader.receive());
    QCOMPARE(reader.message(), QString("abc"));
    QCOMPARE(device.waits, (QList<int>{30000, 2000, 2000}));
}

void tst_MessageReader::does_not_wait_once_everything_has_arrived()
{
    ScriptedDevice device({bytes("0000000161")});
    QVERIFY(MessageReader(device).receive());
    QCOMPARE(device.waits, (QList<int>{30000}));
}

void tst_MessageReader::bytes_after_the_message_stay_unread()
{
    ScriptedDevice device({bytes("00000002") + "abcd"});
    MessageReader reader(device);
    QVERIFY(reader.receive());
    QCOMPARE(reader.message(), QString("ab"));
    QCOMPARE(device.bytesAvailable(), qint64(2));
}

void tst_MessageReader::failed_read_fails()
{
    ScriptedDevice device({bytes("00000001")});
    device.failing = true;
    QVERIFY(!MessageReader(device).receive());
}

void tst_MessageReader::failed_read_after_a_piece_fails()
{
    // On a broken connection, a wait can succeed with nothing to read.
    class BrokenDevice : public ScriptedDevice
    {
    public:
        using ScriptedDevice::ScriptedDevice;
        bool waitForReadyRead(int milliseconds) override
        {
            ScriptedDevice::waitForReadyRead(milliseconds);
            return true;
        }
    };
    BrokenDevice device({bytes("0000000361")});
    device.failing = true;
    QVERIFY(!MessageReader(device).receive());
}

void tst_MessageReader::length_beyond_a_string_fails_data()
{
    QTest::addColumn<QByteArray>("length");
    QTest::newRow("one byte too many") << bytes("3fffffc1");
    QTest::newRow("2^30") << bytes("40000000");
    QTest::newRow("2^31 - 1") << bytes("7fffffff");
    QTest::newRow("2^31") << bytes("80000000");
    QTest::newRow("2^31 + 1") << bytes("80000001");
    QTest::newRow("2^32 - 2") << bytes("fffffffe");
    QTest::newRow("2^32 - 1") << bytes("ffffffff");
}

void tst_MessageReader::length_beyond_a_string_fails()
{
    QFETCH(QByteArray, length);
    ScriptedDevice device({length + "activate"});
    MessageReader reader(device);
    QVERIFY(!reader.receive());
    QCOMPARE(device.waits, (QList<int>{30000}));
    QCOMPARE(device.bytesAvailable(), qint64(8));
    QVERIFY(reader.message().isEmpty());
}

void tst_MessageReader::longest_length_is_accepted()
{
    ScriptedDevice device({bytes("3fffffc0") + "abc"});
    MessageReader reader(device);
    QVERIFY(reader.receive());
    QCOMPARE(reader.message(), QString("abc"));
}

void tst_MessageReader::reads_at_most_one_byte_more_than_has_arrived()
{
    ScriptedDevice device({bytes("3fffffc0"), "a", QByteArray(100000, 'b'), "c"});
    MessageReader reader(device);
    QVERIFY(reader.receive());
    QCOMPARE(reader.message().size(), 100002);
    QVERIFY(device.mostAskedBeyondArrived <= 1);
}

QTEST_APPLESS_MAIN(tst_MessageReader)

#include "tst_MessageReader.moc"
