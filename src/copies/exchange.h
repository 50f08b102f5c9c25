#pragma once

#include "storefiles.h"

/// Replaces the store's files all together: after finish() either all old or all new files are in place, even when a
/// process was killed at any moment.
///
/// The new files are written into a folder beside the old ones. Renaming that folder is the commit; every finish()
/// after it moves the files into place, by renames that can be repeated.
class Exchange
{
public:
    explicit Exchange(const StoreFiles &store);

    /// Makes the empty folder for the new files. Returns its path, or an empty text when that fails.
    QString begin();
    /// Puts the new files in place. Returns the reason when that fails: before the folder is renamed, the store is as
    /// it was; after it, the next finish() completes the exchange.
    QString commit();
    /// Completes a committed exchange and discards any other. Call it before the store is opened. Returns the reason
    /// when that fails.
    QString finish();

private:
    const StoreFiles m_store;
    const QString m_prepared;
    const QString m_committed;
};
