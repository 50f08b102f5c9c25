// Linked with the program's main(), this writes each step of the start and the end to standard error. It replaces three
// functions or classes of the platform, which the linker then leaves out. TANDRY_PROBE determines how the event loop
// ends.

#include "cocoainitializer.h"
#include "draggablequickview.h"
#include "macupdatechecker.h"
#include "objecttrace.h"
#include "prepareprocess.h"
#include "qtsingleapplication.h"
#include "widgetservice.h"

#include <QQmlEngine>
#include <QTimer>

#include <cstdio>

// The windows live until the process ends, and LeakSanitizer does not see pointers in the heap of their scripts. The
// tests that delete the windows check the same code for leaks.
extern "C" const char *__asan_default_options();
extern "C" const char *__asan_default_options()
{
    return "detect_leaks=0";
}

namespace {

const ObjectTrace objects;

void trace(const QString &step)
{
    fprintf(stderr, "step: %s\n", step.toUtf8().constData());
    fflush(stderr);
}

QString yes(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

void traceEnd(const QObject *object, const QString &name)
{
    QObject::connect(object, &QObject::destroyed, [name] { trace(name + " gone"); });
}

void endAsWanted(WidgetService *service)
{
    const QByteArray how = qgetenv("TANDRY_PROBE");
    if (how == "service quits")
        QMetaObject::invokeMethod(service, "quit");
    else if (how == "document quits")
        emit service->getView()->engine()->quit();
    else if (how == "exit 7")
        QCoreApplication::exit(7);
}

void traceRun()
{
    auto *service = ObjectTrace::first<WidgetService>();
    const auto *application = ObjectTrace::first<QtSingleApplication>();
    QWindow *widget = service->getView();
    trace("service, parent: " + yes(service->parent()));
    trace("activation window is the widget: " + yes(application->activationWindow() == widget));
    trace("run, widget visible: " + yes(widget->isVisible()));
    traceEnd(service, "service");
    QObject::connect(application, &QtSingleApplication::messageReceived,
                     [](const QString &text) { trace("message " + text); });
    QObject::connect(widget, &QWindow::visibleChanged, [](bool visible) { trace(visible ? "show" : "hide"); });
    endAsWanted(service);
}

void traceApplication()
{
    trace("application, windows: " + yes(qApp->inherits("QApplication")));
    traceEnd(qApp, "application");
    QTimer::singleShot(0, qApp, traceRun);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(traceApplication)

void prepareProcess()
{
    trace("prepare the process");
}

class CocoaInitializer::Private
{
};

CocoaInitializer::CocoaInitializer()
{
    trace("Cocoa");
}

CocoaInitializer::~CocoaInitializer()
{
    trace("Cocoa gone");
}

MacUpdateChecker::MacUpdateChecker(QObject *parent)
    : QObject(parent)
{
    trace("update checker, parent: " + yes(parent));
}

MacUpdateChecker::~MacUpdateChecker()
{
    trace("update checker gone");
}

void MacUpdateChecker::checkForUpdate() { }
