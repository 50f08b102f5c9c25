#pragma once

#include <QIcon>
#include <QList>
#include <QPointer>
#include <QStringList>
#include <QSystemTrayIcon>
#include <QTimer>

/// What the service asked of Qt where Qt gives nothing to look at: the linker leads these calls of the product's code
/// past here, and from here they go on to Qt.
struct Recordings
{
    struct Message
    {
        QString title;
        QString text;
        QSystemTrayIcon::MessageIcon icon;
        int durationMs;
    };
    struct Report
    {
        QString html;
        int fontPixelSize;
    };

    /// The service's tray icon, from its first showing on.
    QSystemTrayIcon *tray = nullptr;
    QList<bool> trayShown;
    /// What the tray icon showed each time it was set after its construction.
    QList<QIcon> icons;
    QList<Message> messages;
    /// Icons and messages in their order: "icon", "message".
    QStringList trayChanges;
    /// The answer that the service gets when it asks whether the tray can show messages.
    bool messagesSupported = true;
    QList<Report> reports;
    QList<QPointer<QTimer>> startedTimers;
    /// What the service is told of the screen; invalid: the truth.
    QSize availableSize;

    /// What happens to the tray icon and to timers, one line a step.
    void (*step)(const QString &text) = nullptr;

    QStringList messageTexts() const;

    static Recordings &instance();
};
