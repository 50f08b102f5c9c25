#include "autorun.h"
#include "loginagent.h"
#include "testhome.h"

#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <sys/stat.h>

namespace {

const TestHome *home = nullptr;

QString entryPath()
{
    return home->config() + "/autostart/com.olmeric.vesktandry.desktop";
}

QByteArray entry()
{
    QFile file(entryPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The entry as the desktop's library reads it: the program of TryExec, then the command line, one argument on each
/// line.
QByteArrayList commandLine()
{
    QProcess process;
    process.start("/usr/bin/python3",
                  {"-c",
                   "import sys\n"
                   "from gi.repository import GLib\n"
                   "entry = GLib.KeyFile()\n"
                   "entry.load_from_file(sys.argv[1], GLib.KeyFileFlags.NONE)\n"
                   "line = entry.get_string('Desktop Entry', 'Exec').replace('%%', '%')\n"
                   "print(entry.get_string('Desktop Entry', 'TryExec'))\n"
                   "print('\\n'.join(GLib.shell_parse_argv(line)[1]))\n",
                   entryPath()});
    if (!process.waitForFinished() || process.exitCode() != 0)
        qWarning("python3: %s", process.readAllStandardError().constData());
    return process.readAllStandardOutput().trimmed().split('\n');
}

int mode(const QString &path)
{
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 0777) : -1;
}

} // namespace

/// The desktop's autostart entry: launch at login on systems where no launchd reads the property list.
class tst_AutostartEntry : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void switched_on_the_entry_starts_the_program();
    void switched_off_the_entry_stays_but_is_hidden();
    void a_query_writes_nothing();
    void the_entry_follows_a_manually_edited_list();
    void the_entry_holds_no_state_of_its_own();
    void the_entry_follows_a_list_that_could_not_be_written();
    void the_desktop_reads_every_path_unchanged_data();
    void the_desktop_reads_every_path_unchanged();
    void the_path_is_quoted_as_in_the_desktop_entry_format();
    void the_entry_is_accessible_to_its_owner_only();
    void nothing_else_stays_in_the_folder();
    void an_unchanged_entry_is_not_written_again();
    void a_broken_entry_is_replaced();
};

void tst_AutostartEntry::init()
{
    QDir(home->config() + "/autostart").removeRecursively();
    QDir(home->home() + "/Library").removeRecursively();
    QFile::remove(home->home() + "/Library");
}

void tst_AutostartEntry::switched_on_the_entry_starts_the_program()
{
    Autorun().setAutorun(true);
    QCOMPARE(entry(),
             QByteArray("[Desktop Entry]\n"
                        "Type=Application\n"
                        "Name=Vesk Tandry\n"
                        "TryExec="
                        + QCoreApplication::applicationFilePath().toUtf8()
                        + "\n"
                          "Exec=\""
                        + QCoreApplication::applicationFilePath().toUtf8()
                        + "\" startup\n"
                          "Terminal=false\n"
                          "Hidden=false\n"
                          "X-GNOME-Autostart-enabled=true\n"));
}

void tst_AutostartEntry::switched_off_the_entry_stays_but_is_hidden()
{
    Autorun autorun;
    autorun.setAutorun(true);
    autorun.setAutorun(false);
    QVERIFY(entry().contains("\nHidden=true\n"));
    QVERIFY(entry().contains("\nX-GNOME-Autostart-enabled=false\n"));
    const QByteArray program = QCoreApplication::applicationFilePath().toUtf8();
    QCOMPARE(commandLine(), (QByteArrayList{program, program, "startup"}));
    autorun.setAutorun(true);
    QVERIFY(entry().contains("\nHidden=false\n"));
}

void tst_AutostartEntry::a_query_writes_nothing()
{
    QVERIFY(!Autorun().isAutorun());
    QVERIFY(!QFileInfo::exists(entryPath()));
}

void tst_AutostartEntry::the_entry_follows_a_manually_edited_list()
{
    Autorun autorun;
    autorun.setAutorun(true);
    QSettings list(home->home() + "/Library/LaunchAgents/com.olmeric.vesktandry.plist", LoginAgent::listFormat());
    list.setValue("Disabled", true);
    list.setValue("Program", "/opt/tandry");
    list.sync();
    QVERIFY(!autorun.isAutorun());
    QVERIFY(entry().contains("\nHidden=true\n"));
    // A query from another program does not change the program that is started.
    QVERIFY(entry().contains("\nExec=\"/opt/tandry\" startup\n"));

    autorun.setAutorun(true);
    QVERIFY(QFile::remove(list.fileName()));
    QVERIFY(!autorun.isAutorun());
    QVERIFY(entry().contains("\nHidden=true\n"));
}

void tst_AutostartEntry::the_entry_holds_no_state_of_its_own()
{
    Autorun autorun;
    autorun.setAutorun(true);
    QVERIFY(QFile::remove(entryPath()));
    QVERIFY(autorun.isAutorun());
    autorun.setAutorun(false);
    QVERIFY(!autorun.isAutorun());
    QVERIFY(QFileInfo::exists(entryPath()));
}

void tst_AutostartEntry::the_entry_follows_a_list_that_could_not_be_written()
{
    QFile obstacle(home->home() + "/Library");
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    Autorun().setAutorun(true);
    QVERIFY(entry().contains("\nHidden=true\n"));
}

void tst_AutostartEntry::the_desktop_reads_every_path_unchanged_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("plain") << "plain";
    QTest::newRow("space") << "Vesk Tandry 1.1";
    QTest::newRow("quotes") << "the \"best\" 'one'";
    QTest::newRow("dollar and backquote") << "a$HOME`id`";
    QTest::newRow("backslash") << "a\\b\\\\c\\n";
    QTest::newRow("percent") << "100%u%%";
    QTest::newRow("accents") << QString::fromUtf8("Médecine générale");
    QTest::newRow("separators") << "a;b&c|d#e~f";
    QTest::newRow("tab") << "a\tb";
}

void tst_AutostartEntry::the_desktop_reads_every_path_unchanged()
{
    QFETCH(QString, folder);
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkdir(folder));
    const QString program = root.path() + '/' + folder + "/tandry";
    QVERIFY(QFile::copy(PLATFORM_PROBE, program));
    QCOMPARE(QProcess::execute(program, {"autorun", "on"}), 0);
    QCOMPARE(commandLine(), (QByteArrayList{program.toUtf8(), program.toUtf8(), "startup"}));
}

void tst_AutostartEntry::the_path_is_quoted_as_in_the_desktop_entry_format()
{
    // A lenient reader also accepts some of these without their escapes.
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkdir("a$b\tc\nd`e\"f\\g%h i"));
    const QString program = root.path() + "/a$b\tc\nd`e\"f\\g%h i/tandry";
    QVERIFY(QFile::copy(PLATFORM_PROBE, program));
    QCOMPARE(QProcess::execute(program, {"autorun", "on"}), 0);
    const QByteArray expected = R"(/a\\$b\tc\nd\\`e\\"f\\\\g%%h i/tandry" startup)";
    const QByteArray line = "\nExec=\"" + root.path().toUtf8() + expected + "\n";
    QVERIFY2(entry().contains(line), entry().constData());
}

void tst_AutostartEntry::the_entry_is_accessible_to_its_owner_only()
{
    const mode_t before = umask(077);
    Autorun().setAutorun(true);
    umask(before);
    QCOMPARE(mode(home->config() + "/autostart"), 0700);
    QCOMPARE(mode(entryPath()), 0600);
}

void tst_AutostartEntry::nothing_else_stays_in_the_folder()
{
    Autorun().setAutorun(true);
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(home->config() + "/autostart").entryList(everything), QStringList{"com.olmeric.vesktandry.desktop"});
}

void tst_AutostartEntry::an_unchanged_entry_is_not_written_again()
{
    const auto inode = [] {
        struct stat status = {};
        stat(QFile::encodeName(entryPath()).constData(), &status);
        return status.st_ino;
    };
    Autorun().setAutorun(true);
    const auto written = inode();
    Autorun().setAutorun(true);
    QCOMPARE(inode(), written);
}

void tst_AutostartEntry::a_broken_entry_is_replaced()
{
    QVERIFY(QDir().mkpath(home->config() + "/autostart"));
    QFile file(entryPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, '#'));
    file.close();
    Autorun().setAutorun(true);
    QVERIFY(entry().startsWith("[Desktop Entry]\n"));
    QVERIFY(!entry().contains('#'));
}

int main(int argc, char **argv)
{
    const TestHome testHome;
    home = &testHome;
    QCoreApplication application(argc, argv);
    tst_AutostartEntry test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_AutostartEntry.moc"
