#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QScopedPointer>
#include <QStringList>

/// A document that imports one of the list scripts; the tests call its functions by name.
class ListDocument
{
public:
    ListDocument(QQmlEngine *engine, const QString &name)
    {
        QQmlComponent component(engine, QUrl("qrc:/tests/" + name));
        m_document.reset(component.create());
        if (!m_document)
            qFatal("%s", qPrintable(component.errorString()));
    }

    QObject *object() const { return m_document.data(); }

    QVariant call(const char *function) const
    {
        QVariant result;
        QMetaObject::invokeMethod(object(), function, Q_RETURN_ARG(QVariant, result));
        return result;
    }

    QVariant call(const char *function, const QVariant &value) const
    {
        QVariant result;
        QMetaObject::invokeMethod(object(), function, Q_RETURN_ARG(QVariant, result), Q_ARG(QVariant, value));
        return result;
    }

    QVariant call(const char *function, const QVariant &first, const QVariant &second) const
    {
        QVariant result;
        QMetaObject::invokeMethod(object(), function, Q_RETURN_ARG(QVariant, result), Q_ARG(QVariant, first),
                                  Q_ARG(QVariant, second));
        return result;
    }

    /// The model's row at that index.
    QJsonObject row(int index) const
    {
        return QJsonDocument::fromJson(call("row", index).toString().toUtf8()).object();
    }

private:
    Q_DISABLE_COPY(ListDocument)

    QScopedPointer<QObject> m_document;
};
