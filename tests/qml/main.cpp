#include "support/native.h"
#include "testhome.h"

#include <QApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

/// Gives the tests' engine what the program gives its own, and the tests' native helper. The store of the engine lies
/// in the test's own home, so every test file starts without a patient.
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
    // As the program does, so that a text is as wide here as it is for the user.
    if (!qEnvironmentVariableIsSet("QT_FONT_DPI"))
        qputenv("QT_FONT_DPI", "72");
    // Of the program's own kind: the controls look for their style by it.
    QApplication application(argc, argv);
    application.setApplicationName("documents");
    Setup setup;

    return quick_test_main_with_setup(argc, argv, "documents", nullptr, &setup);
}

#include "main.moc"
