#include "prepareprocess.h"
#include "testhome.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <sys/stat.h>

/// The environment and the file creation mask belong to a whole process, so most of it is asked of a small program.
class tst_PrepareProcess : public QObject
{
    Q_OBJECT

private slots:
    void the_mask_keeps_others_out();
    void files_and_folders_are_their_owners_alone();
    void patients_folder_has_its_name_whatever_the_executable_is_called();
    void temporary_folder_that_does_not_exist_is_not_the_current_one();
    void text_resolution_is_72_unless_the_user_chose_one_data();
    void text_resolution_is_72_unless_the_user_chose_one();
    void x_comes_before_wayland_unless_the_user_chose_data();
    void x_comes_before_wayland_unless_the_user_chose();
    void network_is_not_looked_at_every_10_s_unless_the_user_chose_so();
    void dialogs_keep_their_text_size();
    void a_chosen_resolution_leaves_the_font_alone();
    void programs_that_we_open_do_not_inherit_our_choices();
    void programs_that_we_open_inherit_the_users_choices();

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

void tst_PrepareProcess::the_mask_keeps_others_out()
{
    QCOMPARE(probe("prepare", {})["umask"].toInt(), 077);
}

void tst_PrepareProcess::files_and_folders_are_their_owners_alone()
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

void tst_PrepareProcess::patients_folder_has_its_name_whatever_the_executable_is_called()
{
    // "Vesk Tandry" in the sources for macOS.
    QCOMPARE(probe("prepare", {})["application"].toString(), QString("tandry"));
}

void tst_PrepareProcess::temporary_folder_that_does_not_exist_is_not_the_current_one()
{
    QCOMPARE(probe("prepare", {{"TMPDIR", "/nowhere"}})["temporary"].toString(), QString("/tmp"));
    QCOMPARE(probe("prepare", {{"TMPDIR", QDir::tempPath()}})["temporary"].toString(), QDir::tempPath());
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

void tst_PrepareProcess::x_comes_before_wayland_unless_the_user_chose_data()
{
    QTest::addColumn<Variables>("variables");
    QTest::addColumn<QString>("platform");
    QTest::newRow("not chosen") << Variables{} << "xcb;wayland";
    QTest::newRow("chosen") << Variables{{"QT_QPA_PLATFORM", "wayland"}} << "wayland";
    QTest::newRow("only the resolution chosen") << Variables{{"QT_FONT_DPI", "96"}} << "xcb;wayland";
}

void tst_PrepareProcess::x_comes_before_wayland_unless_the_user_chose()
{
    QFETCH(Variables, variables);
    QTEST(probe("prepare", variables)["QT_QPA_PLATFORM"].toString(), "platform");
}

void tst_PrepareProcess::network_is_not_looked_at_every_10_s_unless_the_user_chose_so()
{
    QCOMPARE(probe("prepare", {})["QT_BEARER_POLL_TIMEOUT"].toString(), QString("2147483647"));
    QCOMPARE(probe("prepare", {{"QT_BEARER_POLL_TIMEOUT", "5000"}})["QT_BEARER_POLL_TIMEOUT"].toString(),
             QString("5000"));
}

// 12 points is the font of a desktop that says nothing about fonts, as the offscreen platform does.

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

void tst_PrepareProcess::programs_that_we_open_do_not_inherit_our_choices()
{
    // Nothing is chosen, so this takes a display.
    const QJsonObject result = run("xvfb-run", {"-a", PLATFORM_PROBE, "window"}, {});
    QCOMPARE(result["platform"].toString(), QString("xcb"));
    QCOMPARE(result["dpi"].toDouble(), 72.0);
    QVERIFY(result["QT_FONT_DPI"].isNull());
    QVERIFY(result["QT_QPA_PLATFORM"].isNull());
}

void tst_PrepareProcess::programs_that_we_open_inherit_the_users_choices()
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
