#pragma once

#include "widgetservice.h"

#include <QFont>
#include <QList>
#include <QSize>

#include <functional>

/// The service with public members, and with a screen and a tray that the test sets and observes.
class ObservedService : public WidgetService
{
public:
    struct Message
    {
        QString title;
        QString text;
        QSystemTrayIcon::MessageIcon icon;
        int durationMs;
    };

    ObservedService()
        : WidgetService(nullptr)
    {
    }

    using WidgetService::badgeFont;
    using WidgetService::dialogParent;
    using WidgetService::m_autorun;
    using WidgetService::networkManager;
    using WidgetService::refreshTimer;
    using WidgetService::settings;
    using WidgetService::statisticsTimer;
    using WidgetService::trayIcon;

    /// When invalid, the real size counts.
    static inline QSize chosenSize;
    bool takesMessages = WidgetService::trayTakesMessages();
    QList<Message> messages;
    /// The reports that were laid out for printing.
    QStringList reports;
    /// Called before a counter is incremented.
    std::function<void()> onCount;

    QStringList messageTexts() const
    {
        QStringList texts;
        for (const Message &message : messages)
            texts.append(message.text);
        return texts;
    }

protected:
    QSize availableSize(const QWindow &window) const override
    {
        return chosenSize.isValid() ? chosenSize : WidgetService::availableSize(window);
    }
    bool trayTakesMessages() const override { return takesMessages; }
    void showTrayMessage(const QString &title, const QString &text, QSystemTrayIcon::MessageIcon icon,
                         int durationMs) override
    {
        messages.append({title, text, icon, durationMs});
        qInfo("message: %s", qPrintable(text));
        WidgetService::showTrayMessage(title, text, icon, durationMs);
    }
    QString report(const QString &title, const QVariantList &rows) override
    {
        reports.append(WidgetService::report(title, rows));
        return reports.last();
    }
    void incrementCounter(const QString &key) override
    {
        if (onCount)
            onCount();
        WidgetService::incrementCounter(key);
    }
};
