#include "autorun.h"
#include "testhome.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const TestHome *home = nullptr;

QString agentsFolder()
{
    return home->home() + "/Library/LaunchAgents";
}

QString listPath()
{
    return agentsFolder() + "/com.olmeric.vesktandry.plist";
}

QByteArray python(const QString &script, const QStringList &arguments)
{
    QProcess process;
    process.start("/usr/bin/python3", QStringList{"-c", script} + arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qWarning("python3: %s", process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

/// The list as an independent reader sees it: the type and value of each key, in the file's order.
QJsonArray independentlyRead()
{
    return QJsonDocument::fromJson(
               python(
                   "import json, plistlib, sys\n"
                   "items = plistlib.load(open(sys.argv[1], 'rb'), fmt=plistlib.FMT_XML).items()\n"
                   "print(json.dumps([[key, type(value).__name__, value if isinstance(value, (bool, list)) else str(value)]\n"
                   "                  for key, value in items]))\n",
                   {listPath()}))
        .array();
}

QJsonArray independentlyRead(const QString &key)
{
    for (const QJsonValue &item : independentlyRead()) {
        if (item.toArray().at(0) == key)
            return item.toArray();
    }
    return {};
}

/// Writes a list with an independent writer; \a values is Python code.
void independentlyWrite(const QString &values)
{
    QVERIFY(QDir().mkpath(agentsFolder()));
    python("import datetime, plistlib, sys\n"
           "plistlib.dump(eval(sys.argv[2]), open(sys.argv[1], 'wb'))\n",
           {listPath(), values});
}

QByteArray fileContent()
{
    QFile file(listPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QByteArray &content)
{
    QVERIFY(QDir().mkpath(agentsFolder()));
    QFile file(listPath());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(content), static_cast<qint64>(content.size()));
}

int mode(const QString &path)
{
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 0777) : -1;
}

} // namespace

class tst_Autorun : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void without_a_list_it_is_off();
    void switching_on_is_read_back();
    void switching_off_keeps_the_list_disabled();
    void each_key_has_its_type_and_value();
    void startup_is_the_only_argument_of_the_program();
    void each_change_writes_the_program_again();
    void a_list_of_another_writer_is_read_data();
    void a_list_of_another_writer_is_read();
    void a_list_without_the_key_disabled_is_off();
    void a_broken_list_is_off_data();
    void a_broken_list_is_off();
    void a_broken_list_is_repaired_by_switching();
    void an_unreadable_list_is_off();
    void a_manual_edit_counts_at_the_next_query();
    void a_manual_edit_of_the_same_size_and_time_counts_too();
    void a_removed_list_counts_at_the_next_query();
    void unknown_keys_survive_a_change();
    void a_manual_edit_between_two_changes_survives();
    void two_controllers_see_each_other();
    void the_list_is_accessible_to_its_owner_only();
    void nothing_else_stays_in_the_folder();
    void a_failed_write_leaves_launch_at_login_off();
};

void tst_Autorun::init()
{
    QDir(home->home() + "/Library").removeRecursively();
    QVERIFY(!QFileInfo::exists(listPath()));
}

void tst_Autorun::without_a_list_it_is_off()
{
    QVERIFY(!Autorun().isAutorun());
    QVERIFY2(!QFileInfo::exists(listPath()), "a query must not write");
}

void tst_Autorun::switching_on_is_read_back()
{
    Autorun autorun;
    autorun.setAutorun(true);
    QVERIFY(autorun.isAutorun());
    QVERIFY(QFileInfo::exists(listPath()));
    QVERIFY(Autorun().isAutorun());
}

void tst_Autorun::switching_off_keeps_the_list_disabled()
{
    Autorun autorun;
    autorun.setAutorun(true);
    autorun.setAutorun(false);
    QVERIFY(!autorun.isAutorun());
    QCOMPARE(independentlyRead("Disabled"), (QJsonArray{"Disabled", "bool", true}));
    QCOMPARE(independentlyRead().size(), 5);
}

void tst_Autorun::each_key_has_its_type_and_value()
{
    Autorun().setAutorun(true);
    const QString program = QCoreApplication::applicationFilePath();
    const QJsonArray expected{
        QJsonArray{"Disabled", "bool", false}, QJsonArray{"Label", "str", "com.olmeric.vesktandry"},
        QJsonArray{"Program", "str", program}, QJsonArray{"ProgramArguments", "list", QJsonArray{program, "startup"}},
        QJsonArray{"RunAtLoad", "bool", true},
    };
    QCOMPARE(independentlyRead(), expected);
}

void tst_Autorun::startup_is_the_only_argument_of_the_program()
{
    Autorun().setAutorun(true);
    const QJsonArray arguments = independentlyRead("ProgramArguments").at(2).toArray();
    QCOMPARE(arguments.size(), 2);
    QCOMPARE(arguments.at(1).toString(), QString("startup"));
}

void tst_Autorun::each_change_writes_the_program_again()
{
    independentlyWrite("{'Label': 'old', 'Program': '/gone/tandry', 'Disabled': False, 'RunAtLoad': False,"
                       " 'ProgramArguments': ['/gone/tandry']}");
    Autorun().setAutorun(false);
    const QString program = QCoreApplication::applicationFilePath();
    QCOMPARE(independentlyRead("Label").at(2).toString(), QString("com.olmeric.vesktandry"));
    QCOMPARE(independentlyRead("Program").at(2).toString(), program);
    QCOMPARE(independentlyRead("ProgramArguments").at(2).toArray(), (QJsonArray{program, "startup"}));
    QCOMPARE(independentlyRead("RunAtLoad").at(2), QJsonValue(true));
}

void tst_Autorun::a_list_of_another_writer_is_read_data()
{
    QTest::addColumn<QString>("values");
    QTest::addColumn<bool>("on");
    QTest::newRow("enabled") << "{'Disabled': False}" << true;
    QTest::newRow("disabled") << "{'Disabled': True}" << false;
    QTest::newRow("among others") << "{'Label': 'x', 'Disabled': False, 'KeepAlive': {'Crashed': True}}" << true;
    QTest::newRow("number 0") << "{'Disabled': 0}" << true;
    QTest::newRow("number 1") << "{'Disabled': 1}" << false;
    QTest::newRow("text false") << "{'Disabled': 'false'}" << true;
    QTest::newRow("text true") << "{'Disabled': 'true'}" << false;
    QTest::newRow("empty text") << "{'Disabled': ''}" << true;
    QTest::newRow("other case") << "{'disabled': False}" << false;
    QTest::newRow("only inside another key") << "{'KeepAlive': {'Disabled': False}}" << false;
    QTest::newRow("empty list") << "{}" << false;
}

void tst_Autorun::a_list_of_another_writer_is_read()
{
    QFETCH(QString, values);
    independentlyWrite(values);
    QTEST(Autorun().isAutorun(), "on");
}

void tst_Autorun::a_list_without_the_key_disabled_is_off()
{
    Autorun autorun;
    autorun.setAutorun(true);
    independentlyWrite("{'Label': 'com.olmeric.vesktandry', 'Program': '/usr/bin/tandry',"
                       " 'ProgramArguments': ['/usr/bin/tandry', 'startup'], 'RunAtLoad': True}");
    QVERIFY(!autorun.isAutorun());
}

void tst_Autorun::a_broken_list_is_off_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("Disabled=false\n");
    QTest::newRow("zeros") << QByteArray(300, '\0');
    QTest::newRow("cut off") << QByteArray("<plist version=\"1.0\"><dict><key>Disabled</key><false/>");
    QTest::newRow("cut off after the dictionary")
        << QByteArray("<plist version=\"1.0\"><dict><key>Disabled</key><false/></dict>");
    QTest::newRow("not a dictionary") << QByteArray("<plist version=\"1.0\"><array><false/></array></plist>");
    QTest::newRow("other document") << QByteArray("<html><dict><key>Disabled</key><false/></dict></html>");
}

void tst_Autorun::a_broken_list_is_off()
{
    QFETCH(QByteArray, content);
    writeFile(content);
    QVERIFY(!Autorun().isAutorun());
}

void tst_Autorun::a_broken_list_is_repaired_by_switching()
{
    Autorun autorun;
    autorun.setAutorun(true);
    writeFile("<plist><dict><key>Disabled</key>");
    QVERIFY(!autorun.isAutorun());
    autorun.setAutorun(true);
    QVERIFY(autorun.isAutorun());
    QCOMPARE(independentlyRead().size(), 5);
}

void tst_Autorun::an_unreadable_list_is_off()
{
    Autorun autorun;
    autorun.setAutorun(true);
    QVERIFY(QFile::setPermissions(listPath(), QFile::Permissions()));
    // root can read every file: query as another user.
    const bool superuser = geteuid() == 0;
    if (superuser)
        QCOMPARE(seteuid(65534), 0);
    const bool readable = QFile(listPath()).open(QIODevice::ReadOnly);
    const bool on = autorun.isAutorun();
    if (superuser)
        QCOMPARE(seteuid(0), 0);
    QVERIFY(!readable);
    QVERIFY(!on);
}

void tst_Autorun::a_manual_edit_counts_at_the_next_query()
{
    Autorun autorun;
    autorun.setAutorun(true);
    QVERIFY(autorun.isAutorun());
    independentlyWrite("{'Disabled': True}");
    QVERIFY(!autorun.isAutorun());
    independentlyWrite("{'Disabled': False}");
    QVERIFY(autorun.isAutorun());
}

void tst_Autorun::a_manual_edit_of_the_same_size_and_time_counts_too()
{
    // The same call sets both times: under a moved clock the time that is read differs from the one that was set.
    const auto timeAfterSettingIt = [] {
        QFile file(listPath());
        const QDateTime noon(QDate(2014, 5, 12), QTime(12, 0));
        if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(noon, QFile::FileModificationTime))
            return QDateTime();
        file.close();
        return QFileInfo(listPath()).lastModified();
    };
    Autorun autorun;
    autorun.setAutorun(true);
    const QDateTime time = timeAfterSettingIt();
    QVERIFY(time.isValid());
    QVERIFY(autorun.isAutorun());
    const QByteArray before = fileContent();

    QByteArray after = before;
    after.replace("<key>Disabled</key>\n\t\t<false/>", "<key>Disabled</key>\n\t\t<true />");
    QVERIFY(after != before);
    QCOMPARE(after.size(), before.size());
    writeFile(after);
    QCOMPARE(timeAfterSettingIt(), time);
    QVERIFY(!autorun.isAutorun());
}

void tst_Autorun::a_removed_list_counts_at_the_next_query()
{
    Autorun autorun;
    autorun.setAutorun(true);
    QVERIFY(QFile::remove(listPath()));
    QVERIFY(!autorun.isAutorun());
    QVERIFY(!QFileInfo::exists(listPath()));
    autorun.setAutorun(true);
    QVERIFY(autorun.isAutorun());
    QCOMPARE(independentlyRead().size(), 5);
}

void tst_Autorun::unknown_keys_survive_a_change()
{
    independentlyWrite("{'Disabled': True, 'ThrottleInterval': 30, 'LimitLoadToSessionType': ['Aqua', 'Background'],"
                       " 'EnvironmentVariables': {'LANG': 'fr_FR.UTF-8', 'A/B': 'é & <x>'}, 'Ratio': 0.123456789,"
                       " 'Since': datetime.datetime(2014, 5, 31, 10, 0, 1), 'Blob': b'\\x00\\xff!', 'Nice': -5,"
                       " 'Big': 18446744073709551615, 'Empty': '', 'Days': [{'Weekday': 1}, {'Weekday': 2}]}");
    Autorun().setAutorun(true);
    const QByteArray wrong = python(
        "import datetime, plistlib, sys\n"
        "values = plistlib.load(open(sys.argv[1], 'rb'))\n"
        "for key in ('Label', 'Program', 'ProgramArguments', 'RunAtLoad', 'Disabled'): del values[key]\n"
        "expected = {'ThrottleInterval': 30, 'LimitLoadToSessionType': ['Aqua', 'Background'],\n"
        "  'EnvironmentVariables': {'LANG': 'fr_FR.UTF-8', 'A/B': 'é & <x>'}, 'Ratio': 0.123456789,\n"
        "  'Since': datetime.datetime(2014, 5, 31, 10, 0, 1), 'Blob': b'\\x00\\xff!', 'Nice': -5,\n"
        "  'Big': 18446744073709551615, 'Empty': '', 'Days': [{'Weekday': 1}, {'Weekday': 2}]}\n"
        "print('same' if values == expected else values)\n",
        {listPath()});
    QCOMPARE(wrong.trimmed(), QByteArray("same"));
}

void tst_Autorun::a_manual_edit_between_two_changes_survives()
{
    Autorun autorun;
    autorun.setAutorun(true);
    independentlyWrite("{'Disabled': False, 'Nice': 7}");
    autorun.setAutorun(false);
    QCOMPARE(independentlyRead("Nice").at(2).toString(), QString("7"));
    QCOMPARE(independentlyRead("Disabled").at(2), QJsonValue(true));
}

void tst_Autorun::two_controllers_see_each_other()
{
    Autorun first;
    Autorun second;
    first.setAutorun(true);
    QVERIFY(second.isAutorun());
    second.setAutorun(false);
    QVERIFY(!first.isAutorun());
}

void tst_Autorun::the_list_is_accessible_to_its_owner_only()
{
    const mode_t before = umask(077);
    Autorun().setAutorun(true);
    umask(before);
    QCOMPARE(mode(home->home() + "/Library"), 0700);
    QCOMPARE(mode(agentsFolder()), 0700);
    QCOMPARE(mode(listPath()), 0600);
}

void tst_Autorun::nothing_else_stays_in_the_folder()
{
    {
        Autorun autorun;
        autorun.setAutorun(true);
        autorun.setAutorun(false);
    }
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(agentsFolder()).entryList(everything), QStringList{"com.olmeric.vesktandry.plist"});
}

void tst_Autorun::a_failed_write_leaves_launch_at_login_off()
{
    // A file in place of the folder.
    QFile obstacle(home->home() + "/Library");
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    {
        Autorun autorun;
        autorun.setAutorun(true);
        QVERIFY(!autorun.isAutorun());
    }
    QVERIFY(obstacle.remove());
}

int main(int argc, char **argv)
{
    const TestHome testHome;
    home = &testHome;
    QCoreApplication application(argc, argv);
    tst_Autorun test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Autorun.moc"
