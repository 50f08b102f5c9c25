// The guard with real processes: races, crashes, copies and users. TANDRY_RACES and TANDRY_CRASHES set higher numbers
// of rounds.

#include "support/guardnames.h"
#include "support/probe.h"
#include "support/rawpeer.h"
#include "testhome.h"

#include <QtTest>

#include <csignal>
#include <memory>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>

static int rounds(const char *variable, int usual)
{
    const int asked = qEnvironmentVariableIntValue(variable);
    return asked > 0 ? asked : usual;
}

/// A gate at which programs wait; it opens for all of them at the same moment.
class Gate
{
    Q_DISABLE_COPY(Gate)

public:
    Gate()
        : path(QDir::tempPath() + "/gate")
    {
        ::mkfifo(QFile::encodeName(path).constData(), 0600);
        writer = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
    }
    ~Gate() { QFile::remove(path); }
    void open() { ::close(writer); }

    const QString path;

private:
    int writer = -1;
};

class tst_SingleInstance : public QObject
{
    Q_OBJECT

private slots:
    void second_start_activates_the_first();
    void second_start_exits_with_0_without_an_answer();
    void one_of_twenty_simultaneous_starts_survives();
    void start_after_a_crash_takes_over_within_a_second();
    void start_after_an_ordinary_end_is_the_first();
    void programs_at_two_paths_run_side_by_side();
    void programs_of_two_users_run_side_by_side();
    void socket_is_accessible_to_its_user_only();

private:
    static QString probeSocket(const QString &program = Probe::defaultProgram())
    {
        return socketPathFor(program, "guardp");
    }
};

void tst_SingleInstance::second_start_activates_the_first()
{
    Probe first;
    QVERIFY(first.says("first"));
    for (int i = 0; i < 3; ++i) {
        Probe second;
        QVERIFY(second.says("second acknowledged"));
        QVERIFY(second.leaves());
        QVERIFY(first.says("message 6163746976617465"));
        QVERIFY(first.says("activated"));
    }
    QCOMPARE(first.state(), QProcess::Running);
}

void tst_SingleInstance::second_start_exits_with_0_without_an_answer()
{
    Probe first;
    QVERIFY(first.says("first"));
    QCOMPARE(::kill(pid_t(first.processId()), SIGSTOP), 0);
    Probe second({"--timeout", "200"});
    QVERIFY(second.says("second unacknowledged"));
    QVERIFY(second.leaves());
    QCOMPARE(::kill(pid_t(first.processId()), SIGCONT), 0);
    // The message had been sent and still counts.
    QVERIFY(first.says("activated"));
}

void tst_SingleInstance::one_of_twenty_simultaneous_starts_survives()
{
    constexpr int starts = 20;
    const int races = rounds("TANDRY_RACES", 20);
    int acknowledgedInAll = 0;
    for (int race = 0; race < races; ++race) {
        Gate gate;
        // In turn: races of the whole start, and races of isRunning() only.
        const QStringList arguments{race % 2 ? "--gate-ask" : "--gate", gate.path};
        std::vector<std::unique_ptr<Probe>> probes;
        for (int i = 0; i < starts; ++i)
            probes.push_back(std::make_unique<Probe>(arguments));
        for (const auto &probe : probes)
            QVERIFY(probe->says("ready"));
        gate.open();

        int survivors = 0;
        Probe *survivor = nullptr;
        int acknowledged = 0;
        for (const auto &probe : probes) {
            const QByteArray line = probe->nextLine(30000);
            if (line == "first") {
                ++survivors;
                survivor = probe.get();
                continue;
            }
            QVERIFY2(line == "second acknowledged" || line == "second unacknowledged", line.constData());
            QVERIFY(probe->leaves());
            acknowledged += line == "second acknowledged";
        }
        QCOMPARE(survivors, 1);
        QCOMPARE(survivor->state(), QProcess::Running);
        QVERIFY(survivor->saysTimes("message 6163746976617465", acknowledged));
        acknowledgedInAll += acknowledged;
        // Its socket file remains: every race but the first also finds a stale socket.
        survivor->killAtOnce();
    }
    qInfo("%d races of %d starts, %d messages acknowledged", races, starts, acknowledgedInAll);
}

void tst_SingleInstance::start_after_a_crash_takes_over_within_a_second()
{
    const int crashes = rounds("TANDRY_CRASHES", 20);
    qint64 longest = 0;
    for (int i = 0; i < crashes; ++i) {
        auto first = std::make_unique<Probe>(QStringList());
        QVERIFY(first->says("first"));
        first->killAtOnce();
        QVERIFY2(QFileInfo::exists(probeSocket()), "a killed instance leaves its socket behind");

        QElapsedTimer clock;
        clock.start();
        Probe next;
        QVERIFY(next.says("first"));
        RawPeer sender;
        QVERIFY(sender.connectTo(probeSocket()));
        QVERIFY(sender.send(lengthBytes(8) + "activate"));
        QCOMPARE(sender.receive(3), QByteArray("ack"));
        longest = qMax(longest, clock.elapsed());
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString("round %1 took %2 ms").arg(i).arg(clock.elapsed())));
    }
    qInfo("%d crashes, the longest restart took %lld ms", crashes, longest);
}

void tst_SingleInstance::start_after_an_ordinary_end_is_the_first()
{
    Probe first;
    QVERIFY(first.says("first"));
    Probe asking({"--send", "quit"});
    QVERIFY(asking.says("second acknowledged"));
    QVERIFY(first.leaves());
    QVERIFY(!QFileInfo::exists(probeSocket()));
    QVERIFY(QFileInfo::exists(probeSocket() + "-lockfile"));
    Probe next;
    QVERIFY(next.says("first"));
}

void tst_SingleInstance::programs_at_two_paths_run_side_by_side()
{
    const QDir temporary(QFileInfo(QDir::tempPath()).canonicalFilePath());
    QStringList copies;
    for (const char *folder : {"one", "two"}) {
        QVERIFY(temporary.mkpath(folder));
        copies << temporary.filePath(QLatin1String(folder) + "/guard_probe");
        QVERIFY(QFile::copy(Probe::defaultProgram(), copies.last()));
    }
    Probe one({}, copies.at(0));
    Probe two({}, copies.at(1));
    QVERIFY(one.says("first"));
    QVERIFY(two.says("first"));
    QVERIFY(probeSocket(copies.at(0)) != probeSocket(copies.at(1)));
    QVERIFY(QFileInfo::exists(probeSocket(copies.at(0))));
    QVERIFY(QFileInfo::exists(probeSocket(copies.at(1))));

    Probe second({}, copies.at(1));
    QVERIFY(second.says("second acknowledged"));
    QVERIFY(two.says("activated"));
    QVERIFY2(!one.canReadLine() && !one.waitForReadyRead(0), "the other copy received it, too");
}

/// Only root can run programs as another user.
static bool isSuperUser()
{
    return ::geteuid() == 0;
}

void tst_SingleInstance::programs_of_two_users_run_side_by_side()
{
    Probe ours({"--core"});
    QVERIFY(ours.says("first"));
    const QString common = QDir::tempPath();
    QVERIFY(QFileInfo::exists(probeSocket()));
    // Without a second user, the test can only check that the socket's name contains the user's id.
    QVERIFY(probeSocket() != socketPathFor(Probe::defaultProgram(), "guardp", 4242));
    QVERIFY(socketPathFor("/usr/bin/tandry", "tandry", 4242).endsWith("/qtsingleapp-tandry-6662-1092"));
    if (!isSuperUser())
        return;

    // As accessible as a system's temporary folder: open to all, with open parent folders.
    QCOMPARE(::chmod(QFile::encodeName(common).constData(), 01777), 0);
    QCOMPARE(::chmod(QFile::encodeName(QFileInfo(common).path()).constData(), 0755), 0);
    const QString program = common + "/guard_probe";
    QVERIFY(QFile::copy(Probe::defaultProgram(), program));
    QVERIFY(QFile::setPermissions(program, QFile::Permissions(0x7755)));
    const QString canonical = QFileInfo(program).canonicalFilePath();

    Probe root({"--core"}, program);
    Probe other({"--core", "--user", "4242"}, program);
    QVERIFY(root.says("first"));
    QVERIFY(other.says("first"));
    QVERIFY(QFileInfo::exists(socketPathFor(canonical, "guardp", 0)));
    QVERIFY(QFileInfo::exists(socketPathFor(canonical, "guardp", 4242)));
    QCOMPARE(QFileInfo(socketPathFor(canonical, "guardp", 4242)).ownerId(), 4242u);

    Probe second({"--core", "--user", "4242"}, program);
    QVERIFY(second.says("second acknowledged"));
    QVERIFY(other.says("message 6163746976617465"));
    QVERIFY2(!root.canReadLine() && !root.waitForReadyRead(0), "the other user's instance received it, too");
    ::chmod(QFile::encodeName(common).constData(), 0700);
}

/// The result of connecting as another user: 0, or errno.
static int connectAs(uid_t user, const QString &path)
{
    const pid_t child = ::fork();
    if (child == 0) {
        RawPeer stranger;
        const bool became = ::setuid(user) == 0;
        ::_exit(!became ? 255 : stranger.connectTo(path) ? 0 : errno);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void tst_SingleInstance::socket_is_accessible_to_its_user_only()
{
    Probe ours({"--core"});
    QVERIFY(ours.says("first"));
    struct stat facts;
    QCOMPARE(::stat(QFile::encodeName(probeSocket()).constData(), &facts), 0);
    QCOMPARE(uint(facts.st_mode & 0777), 0700u);
    QCOMPARE(uint(facts.st_uid), uint(::getuid()));
    if (!isSuperUser())
        return;

    const QString common = QDir::tempPath();
    QCOMPARE(::chmod(QFile::encodeName(common).constData(), 01777), 0);
    QCOMPARE(::chmod(QFile::encodeName(QFileInfo(common).path()).constData(), 0755), 0);
    QCOMPARE(connectAs(4242, probeSocket()), EACCES);
    // With an open mode the same user can connect: the mode was the only obstacle.
    QCOMPARE(::chmod(QFile::encodeName(probeSocket()).constData(), 0777), 0);
    QCOMPARE(connectAs(4242, probeSocket()), 0);
    ::chmod(QFile::encodeName(common).constData(), 0700);
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_SingleInstance test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_SingleInstance.moc"
