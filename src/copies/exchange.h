#pragma once

#include "storefiles.h"

/// Puts other files in the place of the store's, so that after finish() there are all of the old ones or all of
/// the new ones, even when a process was killed at any moment.
///
/// The new files are filled into a folder beside the old ones. Giving that folder its second name decides; from then on
/// every finish() goes forward, by renames that can be repeated.
class Exchange
{
public:
    explicit Exchange(const StoreFiles &store);

    /// Makes the empty folder for the new files and returns its path; an empty text when that fails.
    QString begin();
    /// Decides for the new files and puts them in place. Returns the reason when that fails; as long as the files were
    /// not decided for, the store is as it was.
    QString commit();
    /// Finishes what was decided and throws away what was not. To be called before anybody opens the store.
    QString finish();

private:
    const StoreFiles m_store;
    const QString m_filled;
    const QString m_decided;
};
