// A minimal program with the guard: the tests start it as a real instance or a real lock holder.
//
//   guard_probe [--core] [--id ID] [--send TEXT] [--timeout MS] [--user UID] [--quiet] [--gate FIFO] [--gate-ask FIFO]
//   guard_probe --lock FILE read|write wait|try
//
// It prints one line for each event: "ready" (before a gate, which opens when its last writer closes it), "first",
// "message <UTF-8 in hexadecimal>", "activated", "second acknowledged", "second unacknowledged"; with --lock it prints
// "asking", then "locked" (until its standard input closes) or "refused". The message "quit" ends it normally.

#include "qtlockedfile.h"
#include "qtsingleapplication.h"
#include "qtsinglecoreapplication.h"

#include <QCommandLineParser>

#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void say(const QByteArray &line)
{
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

/// Blocks until `descriptor` reaches its end.
void waitForEnd(int descriptor)
{
    char byte;
    while (::read(descriptor, &byte, 1) > 0) { }
}

void waitAtGate(const QString &fifo)
{
    if (fifo.isEmpty())
        return;
    const int gate = ::open(QFile::encodeName(fifo).constData(), O_RDONLY | O_CLOEXEC);
    say("ready");
    waitForEnd(gate);
    ::close(gate);
}

void activateOnMessages(QtSingleApplication &application)
{
    QObject::connect(&application, &QtSingleApplication::activateWindow, [] { say("activated"); });
    application.setActivationWindow(nullptr, true);
}

void activateOnMessages(QtSingleCoreApplication &) { }

template<typename Application>
int runInstance(Application &application, const QCommandLineParser &options)
{
    waitAtGate(options.value("gate-ask"));
    if (application.isRunning()) {
        const bool acknowledged = application.sendMessage(options.value("send"), options.value("timeout").toInt());
        say(acknowledged ? "second acknowledged" : "second unacknowledged");
        return 0;
    }
    const bool quiet = options.isSet("quiet");
    if (quiet)
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QObject::connect(&application, &Application::messageReceived, [&application, quiet](const QString &message) {
        if (!quiet)
            say("message " + message.toUtf8().toHex());
        if (message == QLatin1String("quit"))
            application.quit();
    });
    activateOnMessages(application);
    say("first");
    return application.exec();
}

template<typename Application>
int start(int &argc, char **argv, const QCommandLineParser &options)
{
    if (options.isSet("id")) {
        Application application(options.value("id"), argc, argv);
        return runInstance(application, options);
    }
    Application application(argc, argv);
    return runInstance(application, options);
}

int holdLock(const QString &file, const QStringList &request)
{
    using QtLP_Private::QtLockedFile;
    QtLockedFile locked(file);
    locked.open(QIODevice::ReadWrite);
    say("asking");
    const bool got = locked.lock(request.value(0) == QLatin1String("read") ? QtLockedFile::LockRead
                                                                           : QtLockedFile::LockWrite,
                                 request.value(1) == QLatin1String("wait"));
    say(got ? "locked" : "refused");
    if (got)
        waitForEnd(STDIN_FILENO);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    // As the program does at its start.
    ::umask(077);

    QCommandLineParser options;
    options.addOptions({{"core", "no window system"},
                        {"id", "application id", "id"},
                        {"send", "the message of a later instance", "text", "activate"},
                        {"timeout", "how long a later instance waits", "ms", "5000"},
                        {"user", "become this user first", "uid"},
                        {"quiet", "do not print or log messages"},
                        {"gate", "wait on this FIFO before constructing the application", "fifo"},
                        {"gate-ask", "wait on this FIFO before calling isRunning()", "fifo"},
                        {"lock", "only lock this file", "file"}});
    options.addPositionalArgument("request", "lock mode and wait or try");
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    options.parse(arguments);

    if (options.isSet("user") && ::setuid(uid_t(options.value("user").toUInt())) != 0)
        return 1;
    if (options.isSet("lock"))
        return holdLock(options.value("lock"), options.positionalArguments());

    waitAtGate(options.value("gate"));
    return options.isSet("core") ? start<QtSingleCoreApplication>(argc, argv, options)
                                 : start<QtSingleApplication>(argc, argv, options);
}
