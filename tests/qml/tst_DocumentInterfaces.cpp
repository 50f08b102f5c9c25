#include "testhome.h"

#include <QApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

#include <memory>

/// The public interface of each document, by name and type. The service connects and calls by these signatures; a
/// missing name only causes a warning at run time.
class DocumentInterfaces : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void document_has_its_signal_data();
    void document_has_its_signal();
    void document_has_its_function_data();
    void document_has_its_function();
    void document_has_its_property_data();
    void document_has_its_property();

private:
    std::unique_ptr<QObject> load(const QString &document);

    std::unique_ptr<QQmlEngine> m_engine;
};

void DocumentInterfaces::init()
{
    m_engine = std::make_unique<QQmlEngine>();
    m_engine->rootContext()->setContextProperty("point_factor", 1.3);
}

void DocumentInterfaces::cleanup()
{
    m_engine.reset();
}

std::unique_ptr<QObject> DocumentInterfaces::load(const QString &document)
{
    QQmlComponent component(m_engine.get(), QUrl("qrc:/qml/" + document + ".qml"));
    std::unique_ptr<QObject> root(component.create());
    if (!root)
        qWarning("%s", qPrintable(component.errorString()));
    return root;
}

namespace {

struct Signatures
{
    const char *document;
    QList<QByteArray> signatures;
};

void addSignatures(const QList<Signatures> &table)
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QByteArray>("signature");
    for (const Signatures &row : table) {
        for (const QByteArray &signature : row.signatures)
            QTest::addRow("%s %s", row.document, signature.constData()) << QString(row.document) << signature;
    }
}

} // namespace

void DocumentInterfaces::document_has_its_signal_data()
{
    addSignatures({
        {"main",
         {"openContact()", "openList()", "close()", "hide()", "openAbout()", "enableDragging()", "needRefresh()",
          "ready()", "autorun(bool)"}},
        {"ContactPopup", {"closeContact()", "enableDragging()"}},
        {"ListPopup",
         {"closeList()", "openPatient(QString)", "enableDragging()", "needRefresh()", "removedPatients(QVariant)",
          "requestPrint(QString,QVariant)"}},
        {"Autocomplete", {"changed()", "clicked()"}},
        {"PatientsItem", {"clicked()"}},
        {"PatientsResults", {"selected(QString,QString,bool)"}},
        {"Container", {"enableDragging()", "openContact()", "openList()", "close()", "hide()", "about()"}},
        {"Detail", {"canceled()", "needRefresh()"}},
        {"NameStatus", {"reset()"}},
        {"Question", {"saveIt()"}},
        {"StepButton", {"clicked()"}},
        {"ActionButton", {"clicked()"}},
        {"SMSSend", {"clicked()"}},
        {"PatientTableRow", {"clicked()", "openPatient(QString)"}},
        {"TabPopup", {"clicked()"}},
        {"PopupContainer", {"close()", "enableDragging()"}},
        {"ButtonSMS", {"clicked()"}},
    });
}

void DocumentInterfaces::document_has_its_signal()
{
    QFETCH(QString, document);
    QFETCH(QByteArray, signature);

    const auto root = load(document);
    QVERIFY(root);
    QVERIFY(root->metaObject()->indexOfSignal(signature) >= 0);
}

void DocumentInterfaces::document_has_its_function_data()
{
    addSignatures({
        {"main", {"refresh()", "openPatient(QVariant)", "removedPatients(QVariant)", "setAutorun(QVariant)"}},
        {"ListPopup", {"refresh()"}},
        {"Autocomplete", {"focus()", "reset()"}},
        {"Container", {"openContextMenu()"}},
        {"NameStatus", {"focus()"}},
        {"Detail",
         {"load(QVariant,QVariant)", "displayModel()", "reset()", "save(QVariant)", "buildData(QVariant)", "remove()",
          "cancel()", "getToday()", "formatDate(QVariant)"}},
    });
}

void DocumentInterfaces::document_has_its_function()
{
    QFETCH(QString, document);
    QFETCH(QByteArray, signature);

    const auto root = load(document);
    QVERIFY(root);
    QVERIFY(root->metaObject()->indexOfMethod(signature) >= 0);
    QVERIFY(root->metaObject()->indexOfSlot(signature) >= 0);
}

void DocumentInterfaces::document_has_its_property_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QByteArray>("type");

    // The type "" stands for objects of QML types.
    const struct
    {
        const char *document;
        const char *type;
        QList<QByteArray> properties;
    } table[] = {
        {"main", "int", {"number", "total", "internalHeight"}},
        {"ListPopup", "int", {"number"}},
        {"ListPopup", "QVariant", {"printModel"}},
        {"Autocomplete", "QString", {"placeholder", "text"}},
        {"Autocomplete", "bool", {"active", "hasResults"}},
        {"Autocomplete", "", {"model"}},
        {"PatientsItem", "bool", {"genderMale", "alwaysBold"}},
        {"PatientsItem", "int", {"number"}},
        {"PatientsItem", "QUrl", {"image"}},
        {"PatientsItem", "QString", {"text"}},
        {"PatientsResults", "QVariant", {"model"}},
        {"Container", "QString", {"title", "internalState"}},
        {"Container", "int", {"internalContentHeight", "internalContentInternalHeight", "internalHeight"}},
        {"Container", "bool", {"launchOnStart"}},
        {"Container", "", {"header"}},
        {"Detail", "QVariant", {"model", "nameStatus"}},
        {"Detail", "QString", {"currentId", "externalName", "notification_date"}},
        {"Detail", "bool", {"externalGenderMale", "loaded", "stepPassed", "step2Passed"}},
        {"Detail", "int", {"internalHeight"}},
        {"NameStatus", "QString", {"name"}},
        {"NameStatus", "bool", {"genderMale"}},
        {"Question", "QString", {"text", "date"}},
        {"Question", "bool", {"changed", "checked", "displayed"}},
        {"Question", "int", {"internalHeight"}},
        {"Question", "", {"yes", "no", "exclusiveGroup"}},
        {"StepButton", "bool", {"displayed"}},
        {"StepButton", "QString", {"text"}},
        {"ActionButton", "QString", {"text"}},
        {"ActionButton", "QUrl", {"image"}},
        {"ActionButton",
         "QColor",
         {"backgroundColor", "hoveredBackgroundColor", "disabledBackgroundColor", "textColor"}},
        {"ActionButton", "bool", {"textBold", "disabled"}},
        {"SMSSend", "bool", {"displayed"}},
        {"SMSSend", "int", {"internalHeight"}},
        {"PatientTableRow", "QString", {"iid", "iname", "icreated", "iphone"}},
        {"PatientTableRow", "int", {"itest", "irdv1", "iconfirmation", "irdv2", "irdv3"}},
        {"PatientTableRow", "QVariant", {"itest_date", "idate1", "iconfirmation_date", "idate2", "idate3"}},
        {"PatientTableRow", "bool", {"ichecked", "exchecked", "pair", "red"}},
        {"PatientTableRow", "QColor", {"rowColor", "pairRowColor", "rowColorHovered", "pairRowColorHovered"}},
        {"TabPopup", "QString", {"title"}},
        {"TabPopup", "bool", {"checked", "hovered"}},
        {"TabPopup", "QColor", {"normalColor", "hoveredColor", "checkedColor", "textColor"}},
        {"TabPopup", "", {"exclusiveGroup", "prepend"}},
        {"PopupContainer", "QString", {"title"}},
        {"PopupContainer", "bool", {"noFooterBorder"}},
        {"PopupContainer", "", {"content", "header"}},
    };
    for (const auto &row : table) {
        for (const QByteArray &property : row.properties) {
            QTest::addRow("%s.%s", row.document, property.constData())
                << QString(row.document) << property << QByteArray(row.type);
        }
    }
}

void DocumentInterfaces::document_has_its_property()
{
    QFETCH(QString, document);
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, type);

    const auto root = load(document);
    QVERIFY(root);
    const int index = root->metaObject()->indexOfProperty(property);
    QVERIFY(index >= 0);
    if (!type.isEmpty())
        QCOMPARE(QByteArray(root->metaObject()->property(index).typeName()), type);
}

int main(int argc, char **argv)
{
    TestHome home;
    QApplication application(argc, argv);
    application.setApplicationName("documents");
    DocumentInterfaces test;

    return QTest::qExec(&test, argc, argv);
}

#include "tst_DocumentInterfaces.moc"
