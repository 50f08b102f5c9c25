#include "widgetservice.h"

#include "buildsettings.h"
#include "macversion.h"
#include "settingskeys.h"

#include <QDebug>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSettings>
#include <QSysInfo>
#include <QTimer>
#include <QUrl>

#include <limits>

namespace {

constexpr int uploadIntervalMs = 24 * 60 * 60 * 1000;

// Nothing reads the replies: bound their memory and the life of their connections.
constexpr int replyBufferBytes = 64 * 1024;
constexpr int replyTimeoutMs = 60 * 1000;

const QByteArray boundary = QByteArrayLiteral("margin");
const QString trackingPath = QStringLiteral("/api/vesktandry/tracking/");

/// The fields, in the order that the statistics service expects.
QStringList fields()
{
    return {
        SettingsKeys::uuid,
        SettingsKeys::osType,
        SettingsKeys::osVersion,
        SettingsKeys::launchCounter,
        SettingsKeys::showListViewCounter,
        SettingsKeys::showContactViewCounter,
        SettingsKeys::showMainViewCounter,
        SettingsKeys::dontAskBeforeQuit,
        SettingsKeys::printerCounter,
        SettingsKeys::patientsCounter,
        SettingsKeys::patientsWaitingCounter,
        SettingsKeys::osVersionReadable,
    };
}

/// The value as the statistics service reads it: "true" and "false" become 1 and 0 in every field.
QString fieldText(const QVariant &value)
{
    QString text = value.toString();

    if (text == QLatin1String("true")) {
        return QStringLiteral("1");
    }
    if (text == QLatin1String("false")) {
        return QStringLiteral("0");
    }
    return text;
}

} // namespace

void WidgetService::createNetworkManager()
{
    networkManager = new QNetworkAccessManager(this);
    Q_ASSERT(networkManager);
}

void WidgetService::recordOperatingSystem()
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    // Deprecated, but the statistics service knows the systems by these codes.
    const int version = QSysInfo::macVersion();
    QT_WARNING_POP

    // "Mac" on Linux, too: the only type in the statistics so far.
    settings->setValue(SettingsKeys::osType, QStringLiteral("Mac"));
    settings->setValue(SettingsKeys::osVersion, version);
    settings->setValue(SettingsKeys::osVersionReadable, readableMacVersion(version));
}

void WidgetService::incrementCounter(const QString &key)
{
    const int count = settings->value(key).toInt();

    settings->setValue(key, count < std::numeric_limits<int>::max() ? count + 1 : count);
}

void WidgetService::startStatistics()
{
    statisticsTimer = new QTimer;
    Q_ASSERT(statisticsTimer);
    statisticsTimer->setInterval(uploadIntervalMs);
    connect(statisticsTimer, SIGNAL(timeout()), this, SLOT(sendDataToServer()));
    statisticsTimer->start();
    sendDataToServer();
}

void WidgetService::sendDataToServer()
{
    const QByteArray body = statisticsBody();
    QNetworkRequest request;

    request.setUrl(QUrl(QStringLiteral("https://") + QLatin1String(BuildSettings::statisticsHost) + trackingPath,
                        QUrl::TolerantMode));
    request.setRawHeader("Content-Type", "multipart/form-data; boundary=" + boundary);
    request.setRawHeader("Content-Length", QByteArray::number(body.size()));
    qDebug() << body;
    QNetworkReply *reply = networkManager->post(request, body);
    // Queued behind the start of the request, which Qt queues too: set earlier, the size would be lost.
    QMetaObject::invokeMethod(
        reply, [reply] { reply->setReadBufferSize(replyBufferBytes); }, Qt::QueuedConnection);
    QTimer::singleShot(replyTimeoutMs, reply, SLOT(abort()));
}

/// The multipart form, without the closing delimiter: the statistics service reads to the last boundary line.
QByteArray WidgetService::statisticsBody() const
{
    const QByteArray boundaryLine = "--" + boundary + "\r\n";
    const auto field = [&](const QString &name, const QString &text) {
        return "Content-Disposition: form-data; name=\"" + name.toUtf8() + "\"\r\n\r\n" + text.toUtf8() + "\r\n"
            + boundaryLine;
    };
    QByteArray body = boundaryLine + field(QStringLiteral("action"), trackingPath);

    const QStringList names = fields();
    for (const QString &name : names) {
        body += field(name, fieldText(settings->value(name)));
    }
    return body;
}
