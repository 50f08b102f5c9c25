// Copies the patients at a start, before the windows are created; compared with a bare copy of the same two files.
#include "figure.h"
#include "patientcopies.h"
#include "rawstore.h"
#include "testhome.h"
#include "windows.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

int main(int argc, char *argv[])
{
    const TestHome home;
    const Figure figure(argc, argv);
    const QApplication application(argc, argv);
    QQuickView *view = createView(QStringLiteral("qrc:/benchmarks/Store.qml"));
    QMetaObject::invokeMethod(view->rootObject(), "open");
    const StoreFiles store = StoreFiles::ofApplication();
    RawStore raw(databaseFile(*view->engine()));
    raw.fill(figure.patients);

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
    figure.compare(
        "copy at the start, changed",
        [&](int number) {
            raw.update(1, number);
            return start();
        },
        [&](int) { return bareCopy(); });
    figure.compare(
        "copy at the start, unchanged", [&](int) { return start(); }, [&](int) { return bareCopy(); });
    delete view;
}
