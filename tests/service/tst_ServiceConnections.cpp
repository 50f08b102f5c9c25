#include "comparelines.h"
#include "effects.h"
#include "logcapture.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QQmlExpression>

namespace {

enum Before { Hidden, Shown, Editing };

}

/// The effects of each signal of a document, and the absence of any other.
class ServiceConnections : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void signal_of_a_document_has_its_effect_data();
    void signal_of_a_document_has_its_effect();
    void check_mark_of_the_document_follows_the_service_data();
    void check_mark_of_the_document_follows_the_service();
    void check_mark_of_the_document_switches_launch_at_login_once();
    void connections_are_made_without_a_warning();
};

void ServiceConnections::init()
{
    SettingsFile::forgetEverything();
}

void ServiceConnections::signal_of_a_document_has_its_effect_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("emission");
    QTest::addColumn<QStringList>("effects");

    int number = 0;
    const auto row = [&](Before before, const char *document, const char *emission, const QStringList &effects) {
        QTest::addRow("%02d %s of %s", ++number, emission, document) << int(before) << document << emission << effects;
    };
    const QStringList refreshed{"main document counted", "list document counted", "icon refreshed",
                                "PatientsCounter is 0", "PatientsWaitingCounter is 0"};

    row(Shown, "main.qml", "hide()", {"main hidden"});
    row(Shown, "main.qml", "close()", {"box: Fermeture de Tandry"});
    row(Hidden, "main.qml", "openContact()", {"contact shown", "ShowContactViewCounter is 1"});
    row(Hidden, "main.qml", "openList()", {"list shown", "ShowListViewCounter is 1"});
    row(Hidden, "main.qml", "openAbout()", {"box: <h3>Vesk Tandry</h3><p>Version " TANDRY_VERSION " "});
    row(Shown, "ContactPopup.qml", "closeContact()", {"contact hidden"});
    row(Shown, "ListPopup.qml", "closeList()", {"list hidden"});
    row(Shown, "main.qml", "enableDragging()", {"main can be dragged"});
    row(Shown, "ContactPopup.qml", "enableDragging()", {"contact can be dragged"});
    row(Shown, "ListPopup.qml", "enableDragging()", {"list can be dragged"});
    row(Hidden, "ListPopup.qml", "openPatient('7')", {"main shown", "main document is \"open\""});
    row(Hidden, "main.qml", "needRefresh()", refreshed);
    row(Hidden, "ListPopup.qml", "needRefresh()", refreshed);
    row(Editing, "ListPopup.qml", "removedPatients(['12', '7'])", {"main document is \"close\""});
    row(Hidden, "ListPopup.qml", "requestPrint('Liste', [{name: 'DUPONT'}])", {"print dialog: Liste"});
    row(Hidden, "main.qml", "ready()",
        {"message: Vous avez 77 patients en attente", "icon refreshed", "PatientsCounter is 99",
         "PatientsWaitingCounter is 77"});
    row(Hidden, "main.qml", "autorun(false)", {"autorunChanged false"});

    // What the list holds before its first load, and a list of others.
    row(Hidden, "ListPopup.qml", "requestPrint('Liste', ({}))", {});
    row(Hidden, "ListPopup.qml", "requestPrint('Liste', [])", {"print dialog: Liste"});
    row(Editing, "ListPopup.qml", "removedPatients(['12', '77'])", {});
    row(Hidden, "main.qml", "autorun(true)", {});
}

void ServiceConnections::signal_of_a_document_has_its_effect()
{
    QFETCH(int, before);
    QFETCH(QString, document);
    QFETCH(QString, emission);
    QFETCH(QStringList, effects);
    LogCapture log;
    RunningService running;
    if (before == Shown) {
        for (DraggableQuickView *window : {running.main, running.contact, running.list})
            window->show();
    } else if (before == Editing) {
        QMetaObject::invokeMethod(running.main->rootObject(), "openPatient", Q_ARG(QVariant, "7"));
        QCOMPARE(running.main->rootObject()->state(), QString("open"));
    }
    Effects observed(running);

    // Emitted by a script in the document: the values arrive as scripts send them.
    const DraggableQuickView *window = windowOf(document.toUtf8());
    QQmlExpression expression(window->rootContext(), window->rootObject(), emission);
    expression.evaluate();
    QVERIFY2(!expression.hasError(), qPrintable(expression.error().toString()));

    COMPARE_LINES(observed.take(), effects);
}

void ServiceConnections::check_mark_of_the_document_follows_the_service_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void ServiceConnections::check_mark_of_the_document_follows_the_service()
{
    QFETCH(bool, on);
    RunningService running;
    QMetaObject::invokeMethod(running.service, "setAutorun", Q_ARG(bool, !on));
    QCOMPARE(running.launchAtLoginTick(), !on);

    QMetaObject::invokeMethod(running.service, "setAutorun", Q_ARG(bool, on));

    QCOMPARE(running.launchAtLoginTick(), on);
}

void ServiceConnections::check_mark_of_the_document_switches_launch_at_login_once()
{
    LogCapture log;
    RunningService running;
    Effects observed(running);
    for (const bool on : {false, true, true, false}) {
        QMetaObject::invokeMethod(running.main->rootObject(), "setAutorun", Q_ARG(QVariant, on));
        QCOMPARE(running.launchAtLoginTick(), on);
    }
    COMPARE_LINES(observed.take(), {"autorunChanged false", "autorunChanged true", "autorunChanged false"});
}

void ServiceConnections::connections_are_made_without_a_warning()
{
    LogCapture log;
    const RunningService running;
    // Logged by Qt, which has no tray to watch without a display.
    COMPARE_LINES(LogCapture::warnings(),
                  {"warning: QObject::connect: No such signal "
                   "QPlatformNativeInterface::systemTrayWindowChanged(QScreen*)"});
}

SERVICE_TEST_MAIN(ServiceConnections)

#include "tst_ServiceConnections.moc"
