#pragma once

#include "runningservice.h"

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// The visible effects of the service as lines, in order: windows shown and hidden, message boxes and dialogs (which
/// are closed at once), tray messages, icons, counters, and the actions of the main document.
class Effects : public QObject
{
    Q_OBJECT

public:
    explicit Effects(RunningService &running);
    ~Effects() override;

    /// The effects since the construction or the last call.
    QStringList take();

private slots:
    void closeModal();

private:
    void watch(DraggableQuickView *window, const QString &name);
    void takeChanges();
    /// Whether a move of the pointer drags that window; disarms it.
    static bool isArmed(DraggableQuickView *window);

    RunningService &running;
    QStringList lines;
    QTimer poll;
    QMap<QString, QVariant> settings;
};
