#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QScopedPointer>

class QQmlEngine;

/// The results of one operation of the store.
struct StoreCall
{
    /// The arguments of each call of its callback; all calls came before the operation returned.
    QJsonArray answers;
    /// The message of the error that it threw; empty when it threw none.
    QString thrown;

    /// True without a callback and without an error.
    bool isSilent() const { return answers.isEmpty() && thrown.isEmpty(); }
    /// The only argument of the only call; undefined otherwise.
    QJsonValue answer() const;
};

/// A document that imports the store and therefore has its own instance of it.
class StoreDocument
{
public:
    explicit StoreDocument(QQmlEngine *engine);
    ~StoreDocument();

    /// Calls Bdd.operation(values..., callback).
    StoreCall perform(const QString &operation, const QJsonArray &values = {});
    /// Calls Bdd.operation(values...).
    StoreCall performWithoutCallback(const QString &operation, const QJsonArray &values = {});
    /// The value of a piece of script with access to `Bdd` and `root`; an object with a string `thrown` when it throws.
    QJsonValue evaluate(const QString &code);

    /// Sets the value of `root.neighbour` for scripts.
    void setNeighbour(const StoreDocument &other);

    /// The id of the new patient as a number; 0 when it was not stored.
    int insert(const QJsonObject &data);
    int insertNamed(const QString &name);
    /// The record, or an empty object when there is none.
    QJsonObject get(int id);

private:
    Q_DISABLE_COPY(StoreDocument)

    StoreCall call(const QString &operation, const QJsonArray &values, bool withCallback);

    QScopedPointer<QObject> m_document;
};

/// The property \a key of every object in \a records, joined by ", ".
QString listed(const QJsonValue &records, const QString &key = "name");
