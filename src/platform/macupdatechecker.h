#pragma once

#include <QObject>

QT_FORWARD_DECLARE_CLASS(QTimer)
class MacAutoUpdater;

/// Asks for an update check when it is made, and once a day from then on.
class MacUpdateChecker : public QObject
{
    Q_OBJECT

public:
    explicit MacUpdateChecker(QObject *parent = nullptr);
    ~MacUpdateChecker() override;

public slots:
    /// Asks the updater for a check in the background.
    void checkForUpdate();

private:
    Q_DISABLE_COPY(MacUpdateChecker)

    QTimer *updateTimer = nullptr;
    MacAutoUpdater *autoUpdater = nullptr;
};
