#include "certificate.h"
#include "comparelines.h"
#include "logcapture.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "statisticsserver.h"
#include "testmain.h"

namespace {

constexpr quint16 port = 47443; // the port of the statistics host in test builds

const QByteArray identifierLine = "Uuid=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x6QUuid\\0"
                                  "\\x11\\x11\\x11\\x11\\x22\\x22\\x33\\x33\\x44\\x44UUUUUU)\n";

QByteArray field(const char *name, const QByteArray &text)
{
    return "Content-Disposition: form-data; name=\"" + QByteArray(name) + "\"\r\n\r\n" + text + "\r\n--margin\r\n";
}

QByteArray bodyOf(const QByteArray &request)
{
    return request.mid(request.indexOf("\r\n\r\n") + 4);
}

/// The text of a field in a body; the field must occur exactly once.
QByteArray textOf(const QByteArray &body, const char *name)
{
    const QByteArray start = "name=\"" + QByteArray(name) + "\"\r\n\r\n";
    if (body.count(start) != 1)
        return "there is not exactly one field of that name";
    const int from = body.indexOf(start) + start.size();
    return body.mid(from, body.indexOf("\r\n--margin\r\n", from) - from);
}

} // namespace

/// The content of the daily upload, received by a server on the test's loopback interface with its own certificate.
class ServiceStatistics : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void first_upload_of_an_installation_byte_for_byte();
    void upload_of_a_used_installation_byte_for_byte();
    void value_is_sent_as_its_text_data();
    void value_is_sent_as_its_text();
    void true_and_false_become_a_number_in_every_field_data();
    void true_and_false_become_a_number_in_every_field();
    void value_with_a_boundary_line_is_not_escaped();
    void counter_of_the_main_window_is_never_set();
    void request_has_its_address_and_headers();
    void body_is_logged();
    void every_upload_reads_the_settings_again();

private:
    Certificate *own = nullptr;
};

void ServiceStatistics::initTestCase()
{
    OwnNetwork::claim(port);
    own = new Certificate("own");
    own->trust();
}

void ServiceStatistics::cleanupTestCase()
{
    delete own;
}

void ServiceStatistics::init()
{
    SettingsFile::forgetEverything();
    SettingsFile::replace(SettingsFile::own(), "[General]\n" + identifierLine);
}

void ServiceStatistics::first_upload_of_an_installation_byte_for_byte()
{
    // The identifier comes from the sibling product: the test knows it.
    SettingsFile::forgetEverything();
    SettingsFile::replace(SettingsFile::sibling(), "[General]\n" + identifierLine);
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    const RunningService running;

    const QList<QByteArray> requests = server.requests(1);

    QCOMPARE(requests.size(), 1);
    QCOMPARE(bodyOf(requests.first()),
             QByteArray(
                 "--margin\r\n"
                 "Content-Disposition: form-data; name=\"action\"\r\n\r\n/api/vesktandry/tracking/\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"Uuid\"\r\n\r\n"
                 "{11111111-2222-3333-4444-555555555555}\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"OSType\"\r\n\r\nMac\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"OSVersion\"\r\n\r\n65535\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"LaunchCounter\"\r\n\r\n1\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"ShowListViewCounter\"\r\n\r\n\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"ShowContactViewCounter\"\r\n\r\n\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"ShowMainViewCounter\"\r\n\r\n\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"DontAskBeforeQuit\"\r\n\r\n\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"PrinterCounter\"\r\n\r\n\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"PatientsCounter\"\r\n\r\n\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"PatientsWaitingCounter\"\r\n\r\n\r\n--margin\r\n"
                 "Content-Disposition: form-data; name=\"OSVersionReadable\"\r\n\r\nUnknown version\r\n--margin\r\n"));
}

void ServiceStatistics::upload_of_a_used_installation_byte_for_byte()
{
    SettingsFile::replace(
        SettingsFile::own(),
        "[General]\n" + identifierLine
            + "LaunchCounter=6\nShowListViewCounter=12\nShowContactViewCounter=3\nDontAskBeforeQuit=true\n"
              "PrinterCounter=4\nPatientsCounter=250\nPatientsWaitingCounter=17\nSomething=else\n");
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    const RunningService running;

    const QList<QByteArray> requests = server.requests(1);

    QCOMPARE(requests.size(), 1);
    QCOMPARE(bodyOf(requests.first()),
             "--margin\r\n" + field("action", "/api/vesktandry/tracking/")
                 + field("Uuid", "{11111111-2222-3333-4444-555555555555}") + field("OSType", "Mac")
                 + field("OSVersion", "65535") + field("LaunchCounter", "7") + field("ShowListViewCounter", "12")
                 + field("ShowContactViewCounter", "3") + field("ShowMainViewCounter", "")
                 + field("DontAskBeforeQuit", "1") + field("PrinterCounter", "4") + field("PatientsCounter", "250")
                 + field("PatientsWaitingCounter", "17") + field("OSVersionReadable", "Unknown version"));
}

void ServiceStatistics::value_is_sent_as_its_text_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("absent") << QVariant() << QByteArray("");
    QTest::newRow("true") << QVariant(true) << QByteArray("1");
    QTest::newRow("false") << QVariant(false) << QByteArray("0");
    QTest::newRow("text true") << QVariant("true") << QByteArray("1");
    QTest::newRow("text false") << QVariant("false") << QByteArray("0");
    QTest::newRow("text TRUE") << QVariant("TRUE") << QByteArray("TRUE");
    QTest::newRow("text False") << QVariant("False") << QByteArray("False");
    QTest::newRow("text true with a blank") << QVariant("true ") << QByteArray("true ");
    QTest::newRow("text") << QVariant("often") << QByteArray("often");
    QTest::newRow("accents") << QVariant("été €") << QByteArray("\xc3\xa9t\xc3\xa9 \xe2\x82\xac");
    QTest::newRow("integer") << QVariant(-12) << QByteArray("-12");
    QTest::newRow("0") << QVariant(0) << QByteArray("0");
}

void ServiceStatistics::value_is_sent_as_its_text()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, text);
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    RunningService running;
    if (value.isValid())
        SettingsFile::setValue("DontAskBeforeQuit", value);
    running.call("sendDataToServer");
    // There are two connections: that of the start may arrive second.
    const QList<QByteArray> requests = server.requests(2);
    QCOMPARE(requests.size(), 2);
    QList<QByteArray> texts;
    for (const QByteArray &request : requests)
        texts.append(textOf(bodyOf(request), "DontAskBeforeQuit"));
    QVERIFY(texts.removeOne(""));
    QCOMPARE(texts, QList<QByteArray>({text}));
}

void ServiceStatistics::true_and_false_become_a_number_in_every_field_data()
{
    QTest::addColumn<QByteArray>("key");
    for (const char *name : {"Uuid", "OSType", "OSVersion", "LaunchCounter", "ShowListViewCounter",
                             "ShowContactViewCounter", "ShowMainViewCounter", "DontAskBeforeQuit", "PrinterCounter",
                             "PatientsCounter", "PatientsWaitingCounter", "OSVersionReadable"})
        QTest::newRow(name) << QByteArray(name);
}

void ServiceStatistics::true_and_false_become_a_number_in_every_field()
{
    QFETCH(QByteArray, key);
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    RunningService running;
    QCOMPARE(server.requests(1).size(), 1);
    SettingsFile::setValue(key, "true");
    running.call("sendDataToServer");
    const QList<QByteArray> requests = server.requests(2);
    QCOMPARE(requests.size(), 2);
    QCOMPARE(textOf(bodyOf(requests.last()), key), QByteArray("1"));
}

void ServiceStatistics::value_with_a_boundary_line_is_not_escaped()
{
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    RunningService running;
    QCOMPARE(server.requests(1).size(), 1);
    SettingsFile::setValue("PrinterCounter", "a\r\n--margin\r\nb\"");
    running.call("sendDataToServer");
    QVERIFY(bodyOf(server.requests(2).value(1))
                .contains("name=\"PrinterCounter\"\r\n\r\na\r\n--margin\r\nb\"\r\n--margin\r\n"));
}

void ServiceStatistics::counter_of_the_main_window_is_never_set()
{
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    RunningService running;
    QCOMPARE(server.requests(1).size(), 1);
    for (const char *slot : {"show", "hide", "toggleView", "openList", "openContact", "refreshViews"})
        running.call(slot);
    running.call("sendDataToServer");
    const QByteArray body = bodyOf(server.requests(2).value(1));
    QCOMPARE(textOf(body, "ShowMainViewCounter"), QByteArray(""));
    QCOMPARE(textOf(body, "ShowListViewCounter"), QByteArray("1"));
    QCOMPARE(textOf(body, "ShowContactViewCounter"), QByteArray("1"));
    QCOMPARE(textOf(body, "PatientsCounter"), QByteArray("0"));
}

void ServiceStatistics::request_has_its_address_and_headers()
{
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    const RunningService running;
    const QByteArray request = server.requests(1).value(0);
    const QByteArray body = bodyOf(request);
    const QStringList header = QString::fromUtf8(request.left(request.indexOf("\r\n\r\n"))).split("\r\n");

    QCOMPARE(header.first(), QString("POST /api/vesktandry/tracking/ HTTP/1.1"));
    QVERIFY(header.contains("Host: 127.0.0.1:47443"));
    COMPARE_LINES(header.filter("Content-Type:", Qt::CaseInsensitive),
                  {"Content-Type: multipart/form-data; boundary=margin"});
    COMPARE_LINES(header.filter("Content-Length:", Qt::CaseInsensitive), {"Content-Length: 995"});
    QCOMPARE(body.size(), 995);
    QVERIFY(body.endsWith("\r\n\r\nUnknown version\r\n--margin\r\n"));
    QVERIFY(!body.contains("--margin--"));
}

void ServiceStatistics::body_is_logged()
{
    LogCapture capture;
    const RunningService running;
    const QStringList logged = LogCapture::lines().filter("margin");
    QCOMPARE(logged.size(), 1);
    QVERIFY(
        logged.first().startsWith("\"--margin\\r\\nContent-Disposition: form-data; name=\\\"action\\\"\\r\\n\\r\\n"));
    QVERIFY(logged.first().endsWith("name=\\\"OSVersionReadable\\\"\\r\\n\\r\\nUnknown version\\r\\n--margin\\r\\n\""));
}

void ServiceStatistics::every_upload_reads_the_settings_again()
{
    StatisticsServer server(StatisticsServer::AnswersOk, *own, port);
    RunningService running;
    for (int count = 1; count <= 3; ++count) {
        QCOMPARE(server.requests(count).size(), count);
        running.call("openList");
        running.call("sendDataToServer");
    }
    QStringList sent;
    for (const QByteArray &request : server.requests(4))
        sent.append(textOf(bodyOf(request), "ShowListViewCounter"));
    COMPARE_LINES(sent, {"", "1", "2", "3"});
}

SERVICE_TEST_MAIN(ServiceStatistics)

#include "tst_ServiceStatistics.moc"
