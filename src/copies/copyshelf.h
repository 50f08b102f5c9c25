#pragma once

#include "storereader.h"

#include <QDate>
#include <QVector>

/// One copy: a folder that holds the store's files under their own names.
struct Copy
{
    enum Kind {
        Daily, ///< of a day on which the program ran
        BeforeUpgrade, ///< of what the store was about to throw away
        BeforeReturn ///< of what somebody replaced by an older copy
    };

    QDate day;
    Kind kind = Daily;
    int number = 1; ///< counts the copies of one kind and day
    quint32 changes = 0; ///< SQLite's count of writes: grows whatever the clock says
    QString folder;

    /// The folder's name: "2026-11-21", "2026-11-21-before-upgrade", "2026-11-21-before-upgrade-2".
    QString name() const;
};

/// The folder of the copies. A name in it that begins with a dot is work that a killed process left; all others are
/// whole copies.
class CopyShelf
{
public:
    explicit CopyShelf(const StoreFiles &store);

    /// All copies, the newest first.
    QVector<Copy> copies() const;
    /// Finishes or takes back what a killed process left.
    void tidy();
    /// Copies the store unless the last copy holds the same. \a isStart: a copy of this day may be replaced. Returns an
    /// empty text when the store's bytes are in a copy or a copy of today had to stay, else the reason.
    QString copyDay(const QDate &today, bool isStart);
    /// Copies the store, be it damaged or large, as a \a kind that nothing replaces, unless a copy of that kind holds the
    /// same already.
    QString keep(Copy::Kind kind, const QDate &today);

    /// Those of \a copies (newest first) that may go on the day \a today. Kept are the last seven days, the last copy of
    /// each of the last five weeks and twelve months that have one, and what was kept for a reason for twelve months.
    /// The newest copy does not count until there is a newer one, nor does one of a day to come, nor one whose day does not
    /// fit the order in which the copies were made: so a clock that is wrong for a while costs none of them.
    static QVector<Copy> superfluous(const QVector<Copy> &copies, const QDate &today);

private:
    QString make(const Copy &copy);
    QString publish(const QString &filled, const QString &name);
    void rotate(const QDate &today);
    bool mayReplace(const Copy &existing, const QVector<Copy> &all) const;
    QString path(const QString &name) const;

    const StoreFiles m_store;
    StoreReader m_reader;
};
