#include "comparelines.h"
#include "testmain.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>

namespace {

const QStringList beginning{
    "prepare the process",
    "Cocoa",
    "application, windows: yes",
    "update checker, parent: no",
};

const QStringList ending{
    "update checker gone",
    "application gone",
    "Cocoa gone",
};

/// The program with a trace of its steps. It runs to its end by default; the destructor ends it.
class Program : public QProcess
{
public:
    Program(const QStringList &arguments, const char *end)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TANDRY_PROBE", end);
        setProcessEnvironment(environment);
        start(STARTUP_PROBE, arguments);
        if (!waitForStarted())
            qFatal("%s does not start", STARTUP_PROBE);
    }
    ~Program() override
    {
        if (state() == QProcess::NotRunning)
            return;
        ::kill(pid_t(processId()), SIGCONT);
        kill();
        waitForFinished();
    }

    /// The steps up to now.
    QStringList steps()
    {
        waitForReadyRead(1);
        output += QString::fromUtf8(readAllStandardError());
        QStringList found;
        for (const QString &line : output.left(output.lastIndexOf('\n')).split('\n')) {
            if (line.startsWith("step: "))
                found.append(line.mid(6));
        }
        return found;
    }

    QStringList stepsAtEnd()
    {
        if (!waitForFinished(20000))
            return {"The program does not end"};
        return steps();
    }

private:
    QString output;
};

} // namespace

/// The program's main(): the objects it creates, their order, and how it ends.
class StartUp : public QObject
{
    Q_OBJECT

private slots:
    void first_instance_creates_and_destroys_in_order();
    void argument_decides_whether_the_widget_shows_data();
    void argument_decides_whether_the_widget_shows();
    void exit_status_is_that_of_the_event_loop();
    void document_can_quit_the_program();
    void later_instance_sends_its_message_and_exits_data();
    void later_instance_sends_its_message_and_exits();
    void failed_message_to_the_first_instance_is_not_reported();
};

void StartUp::first_instance_creates_and_destroys_in_order()
{
    Program program({}, "service quits");
    COMPARE_LINES(program.stepsAtEnd(),
                  beginning
                      + QStringList{"service, parent: no", "activation window is the widget: yes",
                                    "run, widget visible: yes", "service gone"}
                      + ending);
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

void StartUp::argument_decides_whether_the_widget_shows_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("shows");

    QTest::newRow("none") << QStringList() << true;
    QTest::newRow("startup") << QStringList{"startup"} << false;
    QTest::newRow("startup and more") << QStringList{"startup", "now"} << false;
    QTest::newRow("Startup") << QStringList{"Startup"} << true;
    QTest::newRow("STARTUP") << QStringList{"STARTUP"} << true;
    QTest::newRow("startup2") << QStringList{"startup2"} << true;
    QTest::newRow("startu") << QStringList{"startu"} << true;
    QTest::newRow("blank behind") << QStringList{"startup "} << true;
    QTest::newRow("dashes before") << QStringList{"--startup"} << true;
    QTest::newRow("second of two") << QStringList{"now", "startup"} << true;
    QTest::newRow("empty") << QStringList{""} << true;
}

void StartUp::argument_decides_whether_the_widget_shows()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, shows);
    Program program(arguments, "service quits");
    const QStringList steps = program.stepsAtEnd();
    QVERIFY(steps.contains(shows ? "run, widget visible: yes" : "run, widget visible: no"));
    QCOMPARE(program.exitCode(), 0);
}

void StartUp::exit_status_is_that_of_the_event_loop()
{
    Program program({}, "exit 7");
    QCOMPARE(program.stepsAtEnd().last(), QString("Cocoa gone"));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 7);
}

void StartUp::document_can_quit_the_program()
{
    Program program({"startup"}, "document quits");
    QCOMPARE(program.stepsAtEnd().last(), QString("Cocoa gone"));
    QCOMPARE(program.exitCode(), 0);
}

void StartUp::later_instance_sends_its_message_and_exits_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("plain") << QStringList();
    QTest::newRow("startup") << QStringList{"startup"};
}

void StartUp::later_instance_sends_its_message_and_exits()
{
    QFETCH(QStringList, arguments);
    Program first({"startup"}, "never");
    QTRY_VERIFY_WITH_TIMEOUT(first.steps().contains("run, widget visible: no"), 20000);

    Program later(arguments, "never");

    COMPARE_LINES(later.stepsAtEnd(), beginning + ending);
    QCOMPARE(later.exitStatus(), QProcess::NormalExit);
    QCOMPARE(later.exitCode(), 0);
    QTRY_COMPARE(first.steps().mid(first.steps().size() - 2), (QStringList{"message activate", "show"}));
}

void StartUp::failed_message_to_the_first_instance_is_not_reported()
{
    Program first({"startup"}, "never");
    QTRY_VERIFY_WITH_TIMEOUT(first.steps().contains("run, widget visible: no"), 20000);
    QCOMPARE(::kill(pid_t(first.processId()), SIGSTOP), 0);

    QElapsedTimer waited;
    waited.start();
    Program later({}, "never");

    COMPARE_LINES(later.stepsAtEnd(), beginning + ending);
    QVERIFY2(waited.elapsed() >= 5000, qPrintable(QString::number(waited.elapsed())));
    QCOMPARE(later.exitStatus(), QProcess::NormalExit);
    QCOMPARE(later.exitCode(), 0);
}

SERVICE_TEST_MAIN(StartUp)

#include "tst_StartUp.moc"
