#pragma once

#include <QScopedPointer>
#include <QString>

/// The update framework's shared updater. On Linux updates come with the package, and a check is only traced.
class MacAutoUpdater
{
public:
    /// Takes the updater, points it to the feed at \a feedAddress, handed on as it is, and lets it download what the
    /// feed offers without asking.
    explicit MacAutoUpdater(const QString &feedAddress);
    ~MacAutoUpdater();

    /// Asks for a check that shows nothing unless an update is found. Its result is not examined.
    void checkForUpdates();

private:
    Q_DISABLE_COPY(MacAutoUpdater)

    class Private;
    QScopedPointer<Private> d;
};
