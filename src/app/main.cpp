#include "qtsingleapplication.h"
#include "widgetservice.h"

#include "cocoainitializer.h"
#include "draggablequickview.h"
#include "macupdatechecker.h"
#include "patientcopies.h"
#include "prepareprocess.h"

#include <QStringList>

namespace {
constexpr int handOverTimeoutMs = 5000;
}

int main(int argc, char *argv[])
{
    prepareProcess();

    CocoaInitializer cocoaInitializer;
    QtSingleApplication application(argc, argv, true);
    // Before the instance test, so that a start that only hands over also checks for updates.
    MacUpdateChecker updateChecker(nullptr);

    if (application.isRunning()) {
        application.sendMessage(QStringLiteral("activate"), handOverTimeoutMs);
        return 0;
    }

    const QStringList arguments = application.arguments();
    const bool startedAtLogin = arguments.size() > 1 && arguments.at(1) == QLatin1String("startup");

    // Before the documents open the store, which discards the patients of an older version.
    PatientCopies copies(StoreFiles::ofApplication());
    copies.begin();

    WidgetService service(nullptr);
    if (!startedAtLogin) {
        service.show();
    }
    application.setActivationWindow(service.getView(), true);
    QObject::connect(&service, SIGNAL(quit()), &application, SLOT(quit()));
    QObject::connect(&application, SIGNAL(activateWindow()), &service, SLOT(show()));

    return application.exec();
}
