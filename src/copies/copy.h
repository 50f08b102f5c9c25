#pragma once

#include <QDate>
#include <QString>

/// One copy: a folder that holds the store's files under their own names.
struct Copy
{
    enum Kind {
        Daily, ///< of a day on which the program ran
        BeforeUpgrade, ///< of what the store was about to throw away
        BeforeReturn ///< of what the user replaced by an older copy
    };

    QDate day;
    Kind kind = Daily;
    int number = 1; ///< counts the copies of one kind and day
    quint32 changes = 0; ///< SQLite's count of write transactions, which grows whatever the clock says
    QString folder;

    /// The folder's name: "2026-11-21", "2026-11-21-before-upgrade", "2026-11-21-before-upgrade-2".
    QString name() const;
    /// The copy with that name. Its day is invalid when the name is not a copy's.
    static Copy named(const QString &name);
};
