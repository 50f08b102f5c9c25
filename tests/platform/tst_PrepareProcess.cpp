#include "prepareprocess.h"
#include "testhome.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <sys/stat.h>

/// The environment and the file creation mask belong to the whole process: most tests run a small program.
class tst_PrepareProcess : public QObject
{
    Q_OBJECT

private slots:
    void the_file_creation_mask_excludes_other_users();
    void files_and_folders_are_accessible_to_their_owner_only();
    void the_patients_folder_does_not_depend_on_the_name_of_the_executable();
    void a_missing_temporary_folder_does_not_become_the_current_one();
    void text_resolution_is_72_unless_the_user_chose_one_data();
    void text_resolution_is_72_unless_the_user_chose_one();
    void x11_comes_before_wayland_unless_the_user_chose_data();
    void x11_comes_before_wayland_unless_the_user_chose();
    void qt_does_not_poll_the_network_every_10_s_unless_the_user_chose();
    void dialogs_keep_their_text_size();
    void a_chosen_resolution_leaves_the_font_alone();
    void child_processes_do_not_inherit_the_choices_of_the_program();
    void child_processes_inherit_the_choices_of_the_user();

private:
    using Variables = QMap<QString, QString>;
    static QJsonObject probe(const QString &task, const Variables &variables);
    static QJsonObject run(const QString &program, const QStringList &arguments, const Variables &variables);
};

QJsonObject tst_PrepareProcess::probe(const QString &task, const Variables &variables)
{
    return run(PLATFORM_PROBE, {task}, variables);
}

QJsonObject tst_PrepareProcess::run(const QString &program, const QStringList &arguments, const Variables &variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("QT_FONT_DPI");
    environment.remove("QT_QPA_PLATFORM");
    environment.remove("QT_BEARER_POLL_TIMEOUT");
    for (auto it = variables.cbegin(); it != variables.cend(); ++it)
        environment.insert(it.key(), it.value());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qWarning("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
    return QJsonDocument::fromJson(process.readAllStandardOutput()).object();
}

void tst_PrepareProcess::the_file_creation_mask_excludes_other_users()
{
    QCOMPARE(probe("prepare", {})["umask"].toInt(), 077);
}

void tst_PrepareProcess::files_and_folders_are_accessible_to_their_owner_only()
{
    const mode_t before = umask(022);
    prepareProcess();
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("folder"));
    QFile file(folder.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    umask(before);
    struct stat status;
    QCOMPARE(stat(QFile::encodeName(folder.filePath("folder")).constData(), &status), 0);
    QCOMPARE(static_cast<int>(status.st_mode & 0777), 0700);
    QCOMPARE(stat(QFile::encodeName(file.fileName()).constData(), &status), 0);
    QCOMPARE(static_cast<int>(status.st_mode & 0777), 0600);
}

void tst_PrepareProcess::the_patients_folder_does_not_depend_on_the_name_of_the_executable()
{
    // The sources for macOS use "Vesk Tandry".
    QCOMPARE(probe("prepare", {})["application"].toString(), QString("tandry"));
}

void tst_PrepareProcess::a_missing_temporary_folder_does_not_become_the_current_one()
{
    QCOMPARE(probe("prepare", {{"TMPDIR", "/nowhere"}})["temporary"].toString(), QString("/tmp"));
    QCOMPARE(probe("prepare", {{"TMPDIR", "."}})["temporary"].toString(), QString("/tmp"));
    const QTemporaryDir chosen;
    QCOMPARE(probe("prepare", {{"TMPDIR", chosen.path()}})["temporary"].toString(), chosen.path());
}

void tst_PrepareProcess::text_resolution_is_72_unless_the_user_chose_one_data()
{
    QTest::addColumn<Variables>("variables");
    QTest::addColumn<QString>("resolution");
    QTest::newRow("not chosen") << Variables{} << "72";
    QTest::newRow("chosen") << Variables{{"QT_FONT_DPI", "120"}} << "120";
    QTest::newRow("only the window system chosen") << Variables{{"QT_QPA_PLATFORM", "minimal"}} << "72";
}

void tst_PrepareProcess::text_resolution_is_72_unless_the_user_chose_one()
{
    QFETCH(Variables, variables);
    QTEST(probe("prepare", variables)["QT_FONT_DPI"].toString(), "resolution");
}

void tst_PrepareProcess::x11_comes_before_wayland_unless_the_user_chose_data()
{
    QTest::addColumn<Variables>("variables");
    QTest::addColumn<QString>("platform");
    QTest::newRow("not chosen") << Variables{} << "xcb;wayland";
    QTest::newRow("chosen") << Variables{{"QT_QPA_PLATFORM", "wayland"}} << "wayland";
    QTest::newRow("only the resolution chosen") << Variables{{"QT_FONT_DPI", "96"}} << "xcb;wayland";
}

void tst_PrepareProcess::x11_comes_before_wayland_unless_the_user_chose()
{
    QFETCH(Variables, variables);
    QTEST(probe("prepare", variables)["QT_QPA_PLATFORM"].toString(), "platform");
}

void tst_PrepareProcess::qt_does_not_poll_the_network_every_10_s_unless_the_user_chose()
{
    QCOMPARE(probe("prepare", {})["QT_BEARER_POLL_TIMEOUT"].toString(), QString("2147483647"));
    QCOMPARE(probe("prepare", {{"QT_BEARER_POLL_TIMEOUT", "5000"}})["QT_BEARER_POLL_TIMEOUT"].toString(),
             QString("5000"));
}

// 12 points is the default font size of a desktop without font settings, like the offscreen platform.

void tst_PrepareProcess::dialogs_keep_their_text_size()
{
    const QJsonObject result = probe("window", {{"QT_QPA_PLATFORM", "offscreen"}});
    QCOMPARE(result["dpi"].toDouble(), 72.0);
    QCOMPARE(result["fontPointSize"].toDouble(), 16.0);
}

void tst_PrepareProcess::a_chosen_resolution_leaves_the_font_alone()
{
    const QJsonObject result = probe("window", {{"QT_QPA_PLATFORM", "offscreen"}, {"QT_FONT_DPI", "110"}});
    QCOMPARE(result["dpi"].toDouble(), 110.0);
    QCOMPARE(result["fontPointSize"].toDouble(), 12.0);
}

void tst_PrepareProcess::child_processes_do_not_inherit_the_choices_of_the_program()
{
    // With no platform chosen, this needs a display.
    const QJsonObject result = run("xvfb-run", {"-a", PLATFORM_PROBE, "window"}, {});
    QCOMPARE(result["platform"].toString(), QString("xcb"));
    QCOMPARE(result["dpi"].toDouble(), 72.0);
    QVERIFY(result["QT_FONT_DPI"].isNull());
    QVERIFY(result["QT_QPA_PLATFORM"].isNull());
}

void tst_PrepareProcess::child_processes_inherit_the_choices_of_the_user()
{
    const QJsonObject result = probe("window", {{"QT_QPA_PLATFORM", "offscreen"}, {"QT_FONT_DPI", "110"}});
    QCOMPARE(result["QT_FONT_DPI"].toString(), QString("110"));
    QCOMPARE(result["QT_QPA_PLATFORM"].toString(), QString("offscreen"));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_PrepareProcess test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_PrepareProcess.moc"
