#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QScopedPointer>

class QQmlEngine;

/// What one operation of the store did.
struct StoreCall
{
    /// The arguments of each call of its callback, all made before the operation returned.
    QJsonArray answers;
    /// The message of what it threw; empty when it threw nothing.
    QString thrown;

    /// No callback and no error.
    bool isSilent() const { return answers.isEmpty() && thrown.isEmpty(); }
    /// The one argument of the one call; undefined when it was not so.
    QJsonValue answer() const;
};

/// A document that imports the store, and so has a store instance of its own.
class StoreDocument
{
public:
    explicit StoreDocument(QQmlEngine *engine);
    ~StoreDocument();

    /// Calls Bdd.operation(values..., callback).
    StoreCall perform(const QString &operation, const QJsonArray &values = {});
    /// Calls Bdd.operation(values...).
    StoreCall performWithoutCallback(const QString &operation, const QJsonArray &values = {});
    /// The value of some lines of script that see `Bdd` and `root`; an object with a text `thrown` when they throw.
    QJsonValue evaluate(const QString &code);

    /// What scripts reach as `root.neighbour` from now on.
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
