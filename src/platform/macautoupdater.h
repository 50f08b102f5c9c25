#pragma once

#include <QScopedPointer>
#include <QString>

/// The update framework's shared updater. On Linux updates come with the package, and a check is only logged.
class MacAutoUpdater
{
    Q_DISABLE_COPY(MacAutoUpdater)

public:
    /// Sets the updater's feed to `feedAddress`, unchanged, and switches automatic downloads on.
    explicit MacAutoUpdater(const QString &feedAddress);
    ~MacAutoUpdater();

    /// Starts a check in the background, which shows something only when it finds an update.
    void checkForUpdates();

private:
    class Private;
    QScopedPointer<Private> d;
};
