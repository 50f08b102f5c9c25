#include "logcapture.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QMetaMethod>
#include <QTimer>

/// The public interface of the service: its signals and slots, with their indexes.
class ServiceInterface : public QObject
{
    Q_OBJECT

private slots:
    void method_has_its_index_kind_signature_and_parameters_data();
    void method_has_its_index_kind_signature_and_parameters();
    void there_are_twenty_two_methods_and_nothing_else();
};

void ServiceInterface::method_has_its_index_kind_signature_and_parameters_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QString>("parameters");

    const auto row = [](int index, const char *kind, const char *signature, const char *parameters = "") {
        QTest::addRow("%02d %s", index, signature) << index << kind << QByteArray(signature) << parameters;
    };
    row(0, "signal", "quit()");
    row(1, "signal", "autorunChanged(QVariant)", "value");
    row(2, "slot", "trayActivated(QSystemTrayIcon::ActivationReason)", "reason");
    row(3, "slot", "openContact()");
    row(4, "slot", "closeContact()");
    row(5, "slot", "openList()");
    row(6, "slot", "openAbout()");
    row(7, "slot", "closeList()");
    row(8, "slot", "show()");
    row(9, "slot", "hide()");
    row(10, "slot", "openPatient(QString)", "iid");
    row(11, "slot", "refreshViews()");
    row(12, "slot", "removedPatients(QVariant)", "list");
    row(13, "slot", "autoRefresh()");
    row(14, "slot", "refreshIcon()");
    row(15, "slot", "firstRefresh()");
    row(16, "slot", "closeIntent()");
    row(17, "slot", "dontAskBeforeQuit(bool)", "value");
    row(18, "slot", "setAutorun(bool)", "value");
    row(19, "slot", "toggleView()");
    row(20, "slot", "requestPrint(QString,QVariant)", "title,list");
    row(21, "slot", "sendDataToServer()");
}

void ServiceInterface::method_has_its_index_kind_signature_and_parameters()
{
    QFETCH(int, index);
    QFETCH(QString, kind);
    QFETCH(QByteArray, signature);
    QFETCH(QString, parameters);

    const QMetaObject &meta = WidgetService::staticMetaObject;
    const QMetaMethod method = meta.method(meta.methodOffset() + index);

    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(method.methodType() == QMetaMethod::Signal     ? QString("signal")
                 : method.methodType() == QMetaMethod::Slot ? QString("slot")
                                                            : QString("method"),
             kind);
    QCOMPARE(method.parameterNames().join(',').constData(), parameters);
    QCOMPARE(method.access(), QMetaMethod::Public);
    QCOMPARE(method.typeName(), "void");
}

void ServiceInterface::there_are_twenty_two_methods_and_nothing_else()
{
    const QMetaObject &meta = WidgetService::staticMetaObject;

    QCOMPARE(meta.className(), "WidgetService");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 22);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 0);
    QCOMPARE(meta.constructorCount(), 0);
}

SERVICE_TEST_MAIN(ServiceInterface)

#include "tst_ServiceInterface.moc"
