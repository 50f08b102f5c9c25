#pragma once

#include <QObject>

QT_FORWARD_DECLARE_CLASS(QTimer)
class MacAutoUpdater;

/// Checks for updates when constructed and then once a day.
class MacUpdateChecker : public QObject
{
    Q_OBJECT

public:
    explicit MacUpdateChecker(QObject *parent = nullptr);
    ~MacUpdateChecker() override;

public slots:
    /// Starts a check in the background.
    void checkForUpdate();

private:
    Q_DISABLE_COPY(MacUpdateChecker)

    QTimer *updateTimer = nullptr;
    MacAutoUpdater *autoUpdater = nullptr;
};
