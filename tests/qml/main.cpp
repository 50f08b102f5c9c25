#include "support/native.h"
#include "testhome.h"

#include <QApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

/// Sets up the tests' engine like the program's, and adds the native helper. The engine's store is in the test's home:
/// every test file starts without patients.
class Setup : public QObject
{
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->rootContext()->setContextProperty("point_factor", 1.3);
        engine->rootContext()->setContextProperty("Native", new Native(engine));
    }
};

int main(int argc, char **argv)
{
    TestHome home;
    // The program's resolution: texts are as wide as they are for the user.
    if (!qEnvironmentVariableIsSet("QT_FONT_DPI"))
        qputenv("QT_FONT_DPI", "72");
    // A QApplication like the program's: the controls choose their style by it.
    QApplication application(argc, argv);
    application.setApplicationName("documents");
    Setup setup;

    return quick_test_main_with_setup(argc, argv, "documents", nullptr, &setup);
}

#include "main.moc"
