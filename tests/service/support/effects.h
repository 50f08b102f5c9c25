#pragma once

#include "runningservice.h"

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// Everything that others can see of the service, as lines, in the order in which it happens: windows that come and
/// go, boxes and dialogs (which are closed at once), messages, icons, counters, what the main document does.
class Effects : public QObject
{
    Q_OBJECT

public:
    explicit Effects(RunningService &running);
    ~Effects() override;

    /// What happened since the construction or the last call.
    QStringList take();

private slots:
    void closeModal();

private:
    void watch(DraggableQuickView *window, const QString &name);
    void takeChanges();
    /// Whether a move of the pointer moves that window; disarms it.
    static bool isArmed(DraggableQuickView *window);

    RunningService &running;
    QStringList lines;
    QTimer poll;
    QMap<QString, QVariant> settings;
};
