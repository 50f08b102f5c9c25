// Copies the patients at a start, before the windows are created; compared with a bare copy of the same two files.
#include "measurement.h"
#include "patientcopies.h"
#include "rawstore.h"
#include "windows.h"

#include <QDir>
#include <QFile>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    QQuickView *view = createView(QStringLiteral("qrc:/benchmarks/Store.qml"));
    QMetaObject::invokeMethod(view->rootObject(), "open");
    const StoreFiles store = StoreFiles::ofApplication();
    RawStore raw(*view->engine(), measurement.patients);

    const auto start = [&] {
        return elapsedMs([&] {
            PatientCopies copies(store);
            copies.begin();
        });
    };
    const auto bareCopy = [&] {
        QDir(store.dataFolder()).mkpath(QStringLiteral("bare"));
        return elapsedMs([&] {
            for (const QString &name : {StoreFiles::databaseName(), StoreFiles::recordName()}) {
                const QString target = store.dataFolder() + QLatin1String("/bare/") + name;
                QFile::remove(target);
                if (!QFile::copy(store.folder() + QLatin1Char('/') + name, target)) {
                    qFatal("The bare copy fails");
                }
            }
        });
    };
    measurement.compare(
        "copy at the start, changed",
        [&](int number) {
            raw.update(1, number);
            return start();
        },
        [&](int) { return bareCopy(); });
    measurement.compare(
        "copy at the start, unchanged", [&](int) { return start(); }, [&](int) { return bareCopy(); });
    delete view;
}
