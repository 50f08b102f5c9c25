#include "widgetservice.h"

#include "draggablequickview.h"
#include "settingskeys.h"

#include <QDebug>
#include <QPainter>
#include <QQmlEngine>
#include <QQuickItem>
#include <QSettings>
#include <QTimer>
#include <QWidget>

namespace {

constexpr int refreshIntervalMs = 60 * 60 * 1000;
constexpr int messageDurationMs = 50000;
constexpr int largestBadgeNumber = 99;

// The badge fills the lower right of the tray icon. Its text may outgrow it: users know the badge this way.
constexpr int iconSize = 128;
constexpr int badgeSize = 90;
constexpr int badgePosition = 38;
constexpr int badgePointSize = 70;
constexpr int badgeFontWeight = 10;
// 72 dots per inch, where a point is a pixel, so that the number's size does not follow the user's text size.
constexpr int badgeDotsPerMetre = 2835;
// The background's colour is in src/images/source/counter-big.svg.
constexpr Qt::GlobalColor badgeTextColour = Qt::white;

QIcon plainIcon()
{
    return QIcon(QStringLiteral(":/images/tray.png"));
}

} // namespace

void WidgetService::createTrayIcon()
{
    const QIcon icon = plainIcon();

    trayIcon = new QSystemTrayIcon(icon);
    Q_ASSERT(trayIcon);

    // Never shown. The About box takes its icon from it.
    dialogParent = new QWidget(nullptr, Qt::WindowFlags());
    Q_ASSERT(dialogParent);
    dialogParent->setWindowIcon(icon);

    trayIcon->show();
    connect(trayIcon, SIGNAL(activated(QSystemTrayIcon::ActivationReason)), this,
            SLOT(trayActivated(QSystemTrayIcon::ActivationReason)));
    connect(trayIcon, SIGNAL(messageClicked()), this, SLOT(openList()));
}

void WidgetService::startRefreshTimer()
{
    lastRefreshDate = QDate::currentDate();
    refreshTimer = new QTimer(this);
    Q_ASSERT(refreshTimer);
    refreshTimer->setInterval(refreshIntervalMs);
    connect(refreshTimer, SIGNAL(timeout()), this, SLOT(autoRefresh()));
    refreshTimer->start();
}

void WidgetService::trayActivated(QSystemTrayIcon::ActivationReason reason)
{
    if (reason != QSystemTrayIcon::Trigger && reason != QSystemTrayIcon::DoubleClick) {
        return;
    }
    listView->hide();
    contactView->hide();
    toggleView();
}

void WidgetService::firstRefresh()
{
    compileMessage();
    refreshIcon();
}

void WidgetService::autoRefresh()
{
    compileMessage();
    // The day of the month is enough: ticks are an hour apart.
    if (lastRefreshDate.day() != QDate::currentDate().day()) {
        refreshViews();
        collectGarbage();
    }
}

/// Frees about 100 KiB of script objects per refresh. Left alone, the engines of a widget that only sits in the tray
/// would keep months of them.
void WidgetService::collectGarbage()
{
    for (const DraggableQuickView *each : {view, contactView, listView}) {
        each->engine()->collectGarbage();
    }
}

void WidgetService::refreshViews()
{
    lastRefreshDate = QDate::currentDate();
    QMetaObject::invokeMethod(view->rootObject(), "refresh");
    QMetaObject::invokeMethod(listView->rootObject(), "refresh");
    refreshIcon();
}

/// A count of the main document; 0 and not converted when the document lacks it or did not load.
int WidgetService::patientCount(const char *property, bool &converted) const
{
    const QQuickItem *document = view->rootObject();

    return (document ? document->property(property) : QVariant()).toInt(&converted);
}

/// Announces the waiting patients. An unchanged count is skipped once, then announced again: the hourly tick repeats
/// the message every two hours.
void WidgetService::compileMessage()
{
    bool converted = false;
    const int count = patientCount("number", converted);

    if (!converted || count < 1 || count == lastNotifiedCount) {
        lastNotifiedCount = 0;
        return;
    }
    lastNotifiedCount = count;
    if (!trayTakesMessages()) {
        return;
    }
    const QString text = count < 2 ? tr("Vous avez %n patient en attente", "Waiting patients", count)
                                   : tr("Vous avez %n patients en attente", "Waiting patients", count);
    showTrayMessage(tr("Tandry"), text, QSystemTrayIcon::Information, messageDurationMs);
}

bool WidgetService::trayTakesMessages() const
{
    return QSystemTrayIcon::supportsMessages();
}

void WidgetService::showTrayMessage(const QString &title, const QString &text, QSystemTrayIcon::MessageIcon icon,
                                    int durationMs)
{
    trayIcon->showMessage(title, text, icon, durationMs);
}

void WidgetService::refreshIcon()
{
    qDebug() << "Refreshing icon.";

    QIcon icon = plainIcon();
    // One flag for both conversions: the second decides. Without a total the document has not counted yet.
    bool converted = false;
    const int number = patientCount("number", converted);
    const int total = patientCount("total", converted);

    settings->setValue(SettingsKeys::patientsWaitingCounter, number);
    settings->setValue(SettingsKeys::patientsCounter, total);

    if (converted && number >= 1) {
        qDebug() << "icon" << number;
        icon = badgedIcon(icon, number);
    } else {
        // The full stop, which the line above lacks, is part of the text in the logs of every installed version.
        qDebug() << "icon 0.";
    }
    trayIcon->setIcon(icon);
}

QFont WidgetService::badgeFont()
{
    return QFont(QStringLiteral("Arial"), badgePointSize, badgeFontWeight, false);
}

QIcon WidgetService::badgedIcon(const QIcon &icon, int count) const
{
    QString text = QString::number(qMin(count, largestBadgeNumber));
    if (count > largestBadgeNumber) {
        text += QLatin1Char('+');
    }

    QPixmap picture = icon.pixmap(icon.actualSize(QSize(iconSize, iconSize)));
    QImage badge = QImage(QStringLiteral(":/images/counter-big.png"))
                       .scaled(badgeSize, badgeSize, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    badge.setDotsPerMeterX(badgeDotsPerMetre);
    badge.setDotsPerMeterY(badgeDotsPerMetre);

    QPainter badgePainter(&badge);
    badgePainter.setFont(badgeFont());
    badgePainter.setPen(badgeTextColour);
    badgePainter.drawText(badge.rect(), Qt::AlignCenter, text);
    badgePainter.end();

    QPainter picturePainter(&picture);
    picturePainter.drawImage(badgePosition, badgePosition, badge);
    picturePainter.end();
    return QIcon(picture);
}
