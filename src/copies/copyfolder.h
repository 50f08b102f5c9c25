#pragma once

#include "copy.h"
#include "storereader.h"

#include <QVector>

/// The folder that holds the copies. A name in it that begins with a dot is work that a killed process left; all others
/// are whole copies.
class CopyFolder
{
public:
    explicit CopyFolder(const StoreFiles &store);

    /// All copies, the newest first.
    QVector<Copy> copies() const;
    /// Finishes or takes back what a killed process left.
    void recover();
    /// Copies the store unless the last copy holds the same bytes, then deletes superfluous copies. Today's copy is
    /// replaced only when `isStart`. Returns the reason when the store is not copied, an empty text when it is or need
    /// not be.
    QString copyDay(const QDate &today, bool isStart);
    /// Copies the store before it is replaced, even when it is damaged or large, unless a copy of that `kind` holds
    /// the same bytes. Returns the reason when that fails.
    QString copyBefore(Copy::Kind kind, const QDate &today);

private:
    QString make(const Copy &copy);
    QString publish(const QString &filled, const QString &name);
    void deleteSuperfluous(const QDate &today);
    bool mayReplace(const Copy &existing, const QVector<Copy> &all) const;
    QString path(const QString &name) const;

    const StoreFiles m_store;
    StoreReader m_reader;
};
