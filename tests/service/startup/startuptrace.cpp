// Linked with the program's own main(), this writes each step of the start and of the end on standard error; the
// linker leads the calls past here, and from here they go on. TANDRY_PROBE says how the event loop is to end.

#include "cocoainitializer.h"
#include "draggablequickview.h"
#include "macupdatechecker.h"
#include "prepareprocess.h"
#include "qtsingleapplication.h"
#include "widgetservice.h"

#include <QQmlEngine>
#include <QTimer>

#include <cstdio>

namespace {

WidgetService *service = nullptr;

void trace(const QString &step)
{
    fprintf(stderr, "step: %s\n", step.toUtf8().constData());
    fflush(stderr);
}

QString yes(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

void endAsWanted()
{
    const QByteArray how = qgetenv("TANDRY_PROBE");
    if (how == "service quits")
        QMetaObject::invokeMethod(service, "quit");
    else if (how == "document quits")
        emit service->getView()->engine()->quit();
    else if (how == "exit 7")
        QCoreApplication::exit(7);
}

}

extern "C" {

// The windows live until the process ends on purpose, and the leak checker does not see into the heap of their scripts,
// so it would call lost what the scripts hold. The tests that give the windows back look for leaks in the same code.
const char *__asan_default_options();
const char *__asan_default_options()
{
    return "detect_leaks=0";
}

#define WRAP(Result, symbol, ...) Result __real_##symbol(__VA_ARGS__); Result __wrap_##symbol(__VA_ARGS__);

WRAP(void, _Z14prepareProcessv, void)
void __wrap__Z14prepareProcessv()
{
    trace("prepare the process");
    __real__Z14prepareProcessv();
}

WRAP(void, _ZN16CocoaInitializerC1Ev, CocoaInitializer *)
void __wrap__ZN16CocoaInitializerC1Ev(CocoaInitializer *self)
{
    trace("Cocoa");
    __real__ZN16CocoaInitializerC1Ev(self);
}

WRAP(void, _ZN16CocoaInitializerD1Ev, CocoaInitializer *)
void __wrap__ZN16CocoaInitializerD1Ev(CocoaInitializer *self)
{
    __real__ZN16CocoaInitializerD1Ev(self);
    trace("Cocoa gone");
}

WRAP(void, _ZN19QtSingleApplicationC1ERiPPcb, QtSingleApplication *, int &, char **, bool)
void __wrap__ZN19QtSingleApplicationC1ERiPPcb(QtSingleApplication *self, int &argc, char **argv, bool gui)
{
    trace("application, windows: " + yes(gui));
    __real__ZN19QtSingleApplicationC1ERiPPcb(self, argc, argv, gui);
}

// The application's own destructor is made by the compiler within main's file; this is what it ends with.
WRAP(void, _ZN12QApplicationD2Ev, QApplication *)
void __wrap__ZN12QApplicationD2Ev(QApplication *self)
{
    __real__ZN12QApplicationD2Ev(self);
    trace("application gone");
}

WRAP(void, _ZN16MacUpdateCheckerC1EP7QObject, MacUpdateChecker *, QObject *)
void __wrap__ZN16MacUpdateCheckerC1EP7QObject(MacUpdateChecker *self, QObject *parent)
{
    trace("update checker, parent: " + yes(parent != nullptr));
    __real__ZN16MacUpdateCheckerC1EP7QObject(self, parent);
}

WRAP(void, _ZN16MacUpdateCheckerD1Ev, MacUpdateChecker *)
void __wrap__ZN16MacUpdateCheckerD1Ev(MacUpdateChecker *self)
{
    __real__ZN16MacUpdateCheckerD1Ev(self);
    trace("update checker gone");
}

WRAP(bool, _ZN19QtSingleApplication9isRunningEv, QtSingleApplication *)
bool __wrap__ZN19QtSingleApplication9isRunningEv(QtSingleApplication *self)
{
    const bool running = __real__ZN19QtSingleApplication9isRunningEv(self);
    trace("another instance: " + yes(running));
    return running;
}

WRAP(bool, _ZN19QtSingleApplication11sendMessageERK7QStringi, QtSingleApplication *, const QString &, int)
bool __wrap__ZN19QtSingleApplication11sendMessageERK7QStringi(QtSingleApplication *self, const QString &text, int ms)
{
    const bool sent = __real__ZN19QtSingleApplication11sendMessageERK7QStringi(self, text, ms);
    trace(QString("send \"%1\" within %2 ms: %3").arg(text).arg(ms).arg(yes(sent)));
    return sent;
}

WRAP(void, _ZN13WidgetServiceC1EP7QObject, WidgetService *, QObject *)
void __wrap__ZN13WidgetServiceC1EP7QObject(WidgetService *self, QObject *parent)
{
    trace("service, parent: " + yes(parent != nullptr));
    __real__ZN13WidgetServiceC1EP7QObject(self, parent);
    service = self;
}

WRAP(void, _ZN13WidgetServiceD1Ev, WidgetService *)
void __wrap__ZN13WidgetServiceD1Ev(WidgetService *self)
{
    __real__ZN13WidgetServiceD1Ev(self);
    trace("service gone");
}

WRAP(void, _ZN13WidgetService4showEv, WidgetService *)
void __wrap__ZN13WidgetService4showEv(WidgetService *self)
{
    trace("show");
    __real__ZN13WidgetService4showEv(self);
}

WRAP(void, _ZN19QtSingleApplication19setActivationWindowEP7QWindowb, QtSingleApplication *, QWindow *, bool)
void __wrap__ZN19QtSingleApplication19setActivationWindowEP7QWindowb(QtSingleApplication *self, QWindow *window,
                                                                      bool activate)
{
    trace(QString("activation window is the widget: %1, on message: %2")
              .arg(yes(service && window == service->getView()), yes(activate)));
    __real__ZN19QtSingleApplication19setActivationWindowEP7QWindowb(self, window, activate);
}

WRAP(QMetaObject::Connection, _ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE, const QObject *, const char *,
     const QObject *, const char *, Qt::ConnectionType)
QMetaObject::Connection __wrap__ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE(
    const QObject *sender, const char *signal, const QObject *receiver, const char *member, Qt::ConnectionType type)
{
    const auto name = [](const QObject *object) -> QString {
        return object == service ? "service" : object == QCoreApplication::instance() ? "application" : QString();
    };
    // The first character says whether it is a signal or a slot; a place in the source may follow the text.
    if (service && !name(sender).isEmpty() && !name(receiver).isEmpty())
        trace(QString("%1 %2 to %3 %4, automatic: %5").arg(name(sender), QLatin1String(signal + 1), name(receiver),
                                                           QLatin1String(member + 1), yes(type == Qt::AutoConnection)));
    return __real__ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE(sender, signal, receiver, member, type);
}

WRAP(int, _ZN12QApplication4execEv, void)
int __wrap__ZN12QApplication4execEv()
{
    trace("run, widget visible: " + yes(service && service->getView()->isVisible()));
    QTimer::singleShot(0, qApp, endAsWanted);
    const int status = __real__ZN12QApplication4execEv();
    trace(QString("run ended with %1").arg(status));
    return status;
}

}
