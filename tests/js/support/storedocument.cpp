#include "storedocument.h"

#include <QJsonDocument>
#include <QQmlComponent>
#include <QtTest>

QJsonValue StoreCall::answer() const
{
    const QJsonArray arguments = answers.count() == 1 ? answers.at(0).toArray() : QJsonArray();
    return arguments.count() == 1 ? arguments.at(0) : QJsonValue(QJsonValue::Undefined);
}

StoreDocument::StoreDocument(QQmlEngine *engine)
{
    QQmlComponent component(engine, QUrl("qrc:/tests/StoreDocument.qml"));
    m_document.reset(component.create());
    if (!m_document)
        qFatal("%s", qPrintable(component.errorString()));
}

StoreDocument::~StoreDocument() = default;

StoreCall StoreDocument::perform(const QString &operation, const QJsonArray &values)
{
    return call(operation, values, true);
}

StoreCall StoreDocument::performWithoutCallback(const QString &operation, const QJsonArray &values)
{
    return call(operation, values, false);
}

StoreCall StoreDocument::call(const QString &operation, const QJsonArray &values, bool withCallback)
{
    QVariant result;
    QMetaObject::invokeMethod(m_document.data(), "perform", Q_RETURN_ARG(QVariant, result), Q_ARG(QVariant, operation),
                              Q_ARG(QVariant, QString(QJsonDocument(values).toJson())), Q_ARG(QVariant, withCallback));
    const QJsonObject call = QJsonDocument::fromJson(result.toString().toUtf8()).object();
    if (call["late"].toInt() != 0)
        QTest::qFail("A callback was called after the operation had returned", __FILE__, __LINE__);
    if (!call["returnedNothing"].toBool())
        QTest::qFail("An operation returned a value", __FILE__, __LINE__);
    return {call["answers"].toArray(), call["thrown"].toString()};
}

QJsonValue StoreDocument::evaluate(const QString &code)
{
    QVariant result;
    QMetaObject::invokeMethod(m_document.data(), "evaluate", Q_RETURN_ARG(QVariant, result), Q_ARG(QVariant, code));
    return QJsonDocument::fromJson('[' + result.toString().toUtf8() + ']').array().at(0);
}

void StoreDocument::setNeighbour(const StoreDocument &other)
{
    m_document->setProperty("neighbour", QVariant::fromValue(other.m_document.data()));
}

int StoreDocument::insert(const QJsonObject &data)
{
    // The storage module returns the id as text.
    return perform("insert", {data}).answer().toString().toInt();
}

int StoreDocument::insertNamed(const QString &name)
{
    return insert({{"name", name}});
}

QJsonObject StoreDocument::get(int id)
{
    return perform("get", {id}).answer().toObject();
}

QString listed(const QJsonValue &records, const QString &key)
{
    QStringList values;
    for (const QJsonValue &record : records.toArray())
        values << record.toObject()[key].toVariant().toString();
    return values.join(", ");
}
