#include "logcapture.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>

namespace {

const QByteArray ownIdentifier = "Uuid=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x6QUuid\\0"
                                 "\\x11\\x11\\x11\\x11\\x22\\x22\\x33\\x33\\x44\\x44UUUUUU)\n";
const QByteArray siblingIdentifier =
    "Uuid=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x6QUuid\\0"
    "\\xaa\\xaa\\xaa\\xaa\\xbb\\xbb\\xcc\\xcc\\xdd\\xdd\\xee\\xee\\xee\\xee\\xee\\xee)\n";
const QString ownText = QStringLiteral("{11111111-2222-3333-4444-555555555555}");
const QString siblingText = QStringLiteral("{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}");
const QString fresh = QStringLiteral("fresh");

QByteArray withValues(const QByteArray &lines)
{
    return "[General]\n" + lines;
}

/// The line of that key in the program's settings file.
QByteArray line(const QByteArray &key)
{
    const QList<QByteArray> lines = SettingsFile::content(SettingsFile::own()).split('\n');
    for (const QByteArray &candidate : lines) {
        if (candidate.startsWith(key + '='))
            return candidate;
    }
    return QByteArray();
}

} // namespace

/// The settings after a start: identifier, launch at login, operating system, number of launches.
class ServiceFirstStart : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void identifier_is_its_own_the_sibling_s_or_a_new_one_data();
    void identifier_is_its_own_the_sibling_s_or_a_new_one();
    void fresh_identifiers_differ();
    void identifier_is_stored_as_a_uuid_and_not_as_text();
    void document_shows_that_launch_at_login_is_on();
    void document_shows_that_launch_at_login_is_off();
    void launch_at_login_is_not_forced_again();
    void sibling_is_only_read();
    void sibling_is_not_created();
    void second_start_changes_only_the_counter();
    void operating_system_is_written_at_every_start();
    void first_start_writes_these_keys_and_no_other();
    void empty_lock_left_by_a_killed_process_is_deleted();
    void settings_lie_under_the_product_and_the_maker();
    void launches_are_counted_data();
    void launches_are_counted();
    void file_of_garbage_counts_as_no_file_data();
    void file_of_garbage_counts_as_no_file();
};

void ServiceFirstStart::init()
{
    SettingsFile::forgetEverything();
}

void ServiceFirstStart::identifier_is_its_own_the_sibling_s_or_a_new_one_data()
{
    QTest::addColumn<QByteArray>("own");
    QTest::addColumn<QByteArray>("sibling");
    QTest::addColumn<QString>("identifier");
    QTest::addColumn<bool>("firstStart");

    const QByteArray none;
    const QByteArray broken = "Uuid=@Variant(\\0\\0)\n";
    const QByteArray invalid = "Uuid=@Invalid()\n";
    const QByteArray text = "Uuid=garbage\n";

    QTest::newRow("own absent, sibling absent") << none << none << fresh << true;
    QTest::newRow("own absent, sibling present") << none << siblingIdentifier << siblingText << true;
    QTest::newRow("own absent, sibling unreadable") << none << broken << fresh << true;
    QTest::newRow("own absent, sibling invalid") << none << invalid << fresh << true;
    QTest::newRow("own absent, sibling some text") << none << text << "garbage" << true;
    QTest::newRow("own present, sibling absent") << ownIdentifier << none << ownText << false;
    QTest::newRow("own present, sibling present") << ownIdentifier << siblingIdentifier << ownText << false;
    QTest::newRow("own present, sibling unreadable") << ownIdentifier << broken << ownText << false;
    QTest::newRow("own unreadable, sibling absent") << broken << none << fresh << true;
    QTest::newRow("own unreadable, sibling present") << broken << siblingIdentifier << siblingText << true;
    QTest::newRow("own invalid, sibling present") << invalid << siblingIdentifier << siblingText << true;
    QTest::newRow("own some text, sibling present") << text << siblingIdentifier << "garbage" << false;
}

void ServiceFirstStart::identifier_is_its_own_the_sibling_s_or_a_new_one()
{
    QFETCH(QByteArray, own);
    QFETCH(QByteArray, sibling);
    QFETCH(QString, identifier);
    QFETCH(bool, firstStart);
    if (!own.isNull())
        SettingsFile::replace(SettingsFile::own(), withValues(own));
    if (!sibling.isNull())
        SettingsFile::replace(SettingsFile::sibling(), withValues(sibling));

    const RunningService running;

    const QString stored = SettingsFile::value("Uuid").toString();
    if (identifier == fresh) {
        QVERIFY2(QRegularExpression("^\\{[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}\\}$").match(stored).hasMatch(),
                 qPrintable(stored));
        QCOMPARE(SettingsFile::value("Uuid").toUuid().version(), QUuid::Random);
    } else {
        QCOMPARE(stored, identifier);
    }
    QCOMPARE(QFileInfo::exists(SettingsFile::agentList()), firstStart);
}

void ServiceFirstStart::fresh_identifiers_differ()
{
    QStringList identifiers;
    for (int i = 0; i < 3; ++i) {
        SettingsFile::forgetEverything();
        const RunningService running;
        identifiers.append(SettingsFile::value("Uuid").toString());
    }
    QCOMPARE(identifiers.removeDuplicates(), 0);
}

void ServiceFirstStart::identifier_is_stored_as_a_uuid_and_not_as_text()
{
    {
        const RunningService running;
        // Quoted when one of its bytes is a comma or a semicolon.
        const QByteArray stored = line("Uuid").replace("=\"@", "=@");
        QVERIFY2(stored.startsWith("Uuid=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x6QUuid\\0"), stored);
    }
    SettingsFile::forgetEverything();
    SettingsFile::replace(SettingsFile::sibling(), withValues(siblingIdentifier));
    const RunningService running;
    QCOMPARE(line("Uuid") + '\n', siblingIdentifier);
}

void ServiceFirstStart::document_shows_that_launch_at_login_is_on()
{
    const RunningService running;
    QCOMPARE(running.launchAtLoginTick(), true);
}

void ServiceFirstStart::document_shows_that_launch_at_login_is_off()
{
    SettingsFile::replace(SettingsFile::own(), withValues(ownIdentifier));
    const RunningService running;
    QCOMPARE(running.launchAtLoginTick(), false);
}

void ServiceFirstStart::launch_at_login_is_not_forced_again()
{
    QByteArray off;
    {
        const RunningService first;
        QMetaObject::invokeMethod(first.service, "setAutorun", Q_ARG(bool, false));
        off = SettingsFile::content(SettingsFile::agentList());
        QVERIFY(off.contains("<key>Disabled</key>"));
    }
    const RunningService second;
    QCOMPARE(SettingsFile::content(SettingsFile::agentList()), off);
    QCOMPARE(second.launchAtLoginTick(), false);
}

void ServiceFirstStart::sibling_is_only_read()
{
    const QByteArray content = withValues(siblingIdentifier + "Zebra=1\nAnt = 2\n");
    SettingsFile::replace(SettingsFile::sibling(), content);
    {
        const RunningService running;
        QCOMPARE(SettingsFile::value("Uuid").toString(), siblingText);
    }
    QCOMPARE(SettingsFile::content(SettingsFile::sibling()), content);
}

void ServiceFirstStart::sibling_is_not_created()
{
    {
        const RunningService running;
    }
    QVERIFY(QFileInfo::exists(SettingsFile::own()));
    QVERIFY(!QFileInfo::exists(SettingsFile::sibling()));
}

void ServiceFirstStart::second_start_changes_only_the_counter()
{
    QByteArray identifier;
    QByteArray agent;
    {
        const RunningService first;
        identifier = line("Uuid");
        agent = SettingsFile::content(SettingsFile::agentList());
        QCOMPARE(line("LaunchCounter"), QByteArray("LaunchCounter=1"));
    }
    const RunningService second;
    QCOMPARE(line("Uuid"), identifier);
    QCOMPARE(SettingsFile::content(SettingsFile::agentList()), agent);
    QCOMPARE(line("LaunchCounter"), QByteArray("LaunchCounter=2"));
}

void ServiceFirstStart::operating_system_is_written_at_every_start()
{
    SettingsFile::replace(
        SettingsFile::own(),
        withValues(ownIdentifier + "OSType=Other\nOSVersion=8\nOSVersionReadable=OS X 10.6 Snow Leopard\n"));
    const RunningService running;
    QCOMPARE(line("OSType"), QByteArray("OSType=Mac"));
    // Not a Mac: the code for "none" of the versions.
    QCOMPARE(line("OSVersion"), QByteArray("OSVersion=65535"));
    QCOMPARE(line("OSVersionReadable"), QByteArray("OSVersionReadable=Unknown version"));
    QCOMPARE(SettingsFile::value("OSVersion").toInt(), 65535);
}

void ServiceFirstStart::first_start_writes_these_keys_and_no_other()
{
    const RunningService running;
    QStringList keys = SettingsFile::keys();
    keys.sort();
    QCOMPARE(keys, QStringList({"LaunchCounter", "OSType", "OSVersion", "OSVersionReadable", "Uuid"}));
}

void ServiceFirstStart::empty_lock_left_by_a_killed_process_is_deleted()
{
    SettingsFile::replace(SettingsFile::own() + ".lock", QByteArray(""));
    const RunningService running;
    QVERIFY(!QFileInfo::exists(SettingsFile::own() + ".lock"));
}

void ServiceFirstStart::settings_lie_under_the_product_and_the_maker()
{
    const RunningService running;
    const QString path = qEnvironmentVariable("XDG_CONFIG_HOME") + "/Vesk Tandry/Olmeric.conf";
    QVERIFY(SettingsFile::content(path).startsWith("[General]\nLaunchCounter=1\n"));
}

void ServiceFirstStart::launches_are_counted_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("absent") << QByteArray() << QByteArray("LaunchCounter=1");
    QTest::newRow("0") << QByteArray("LaunchCounter=0\n") << QByteArray("LaunchCounter=1");
    QTest::newRow("41") << QByteArray("LaunchCounter=41\n") << QByteArray("LaunchCounter=42");
    QTest::newRow("-5") << QByteArray("LaunchCounter=-5\n") << QByteArray("LaunchCounter=-4");
    QTest::newRow("text") << QByteArray("LaunchCounter=many\n") << QByteArray("LaunchCounter=1");
    QTest::newRow("empty") << QByteArray("LaunchCounter=\n") << QByteArray("LaunchCounter=1");
    QTest::newRow("unreadable") << QByteArray("LaunchCounter=@Variant(\\0)\n") << QByteArray("LaunchCounter=1");
}

void ServiceFirstStart::launches_are_counted()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    SettingsFile::replace(SettingsFile::own(), withValues(ownIdentifier + before));
    const RunningService running;
    QCOMPARE(line("LaunchCounter"), after);
}

void ServiceFirstStart::file_of_garbage_counts_as_no_file_data()
{
    QTest::addColumn<QByteArray>("garbage");

    QByteArray everyByte;
    for (int i = 0; i < 4096; ++i)
        everyByte.append(char(i * 7 + i / 256));
    QTest::newRow("every byte") << everyByte;
    QTest::newRow("a database") << QByteArray("SQLite format 3\0\x10\0\x01\x01\0@  \0\0\0\x02", 27);
    QTest::newRow("a page") << QByteArray("<html><body><p>404</p></body></html>\n");
    QTest::newRow("a broken section") << QByteArray("[General\nUuid\n=\n==\n[]\n[[[");
    QTest::newRow("zeros") << QByteArray(1000, '\0');
    QTest::newRow("nothing") << QByteArray("");
}

void ServiceFirstStart::file_of_garbage_counts_as_no_file()
{
    QFETCH(QByteArray, garbage);
    SettingsFile::replace(SettingsFile::own(), garbage);
    {
        const RunningService running;
        QCOMPARE(SettingsFile::value("Uuid").toUuid().version(), QUuid::Random);
        QCOMPARE(running.launchAtLoginTick(), true);
    }
    QCOMPARE(line("LaunchCounter"), QByteArray("LaunchCounter=1"));
    QCOMPARE(line("OSType"), QByteArray("OSType=Mac"));
}

SERVICE_TEST_MAIN(ServiceFirstStart)

#include "tst_ServiceFirstStart.moc"
