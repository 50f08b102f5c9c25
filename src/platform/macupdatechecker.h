#pragma once

#include <QObject>

class MacAutoUpdater;
class QTimer;

/// Checks for updates when constructed and then once a day.
class MacUpdateChecker : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(MacUpdateChecker)

public:
    explicit MacUpdateChecker(QObject *parent = nullptr);
    ~MacUpdateChecker() override;

public slots:
    /// Starts a check in the background.
    void checkForUpdate();

private:
    QTimer *updateTimer = nullptr;
    MacAutoUpdater *autoUpdater = nullptr;
};
