#include "widgetservice.h"

#include "buildsettings.h"

#include <QDebug>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSettings>
#include <QTimer>
#include <QUrl>

namespace {

// What a reply may hold in memory, and how long it may keep its connection.
constexpr int largestReplyBytes = 64 * 1024;
constexpr int longestReplyMs = 60 * 1000;

const QByteArray boundary = QByteArrayLiteral("margin");
const QString trackingPath = QStringLiteral("/api/vesktandry/tracking/");

/// The fields in the order in which the service expects them. Nobody counts ShowMainViewCounter: it is always empty.
QStringList fields()
{
    return {
        QStringLiteral("Uuid"),
        QStringLiteral("OSType"),
        QStringLiteral("OSVersion"),
        QStringLiteral("LaunchCounter"),
        QStringLiteral("ShowListViewCounter"),
        QStringLiteral("ShowContactViewCounter"),
        QStringLiteral("ShowMainViewCounter"),
        QStringLiteral("DontAskBeforeQuit"),
        QStringLiteral("PrinterCounter"),
        QStringLiteral("PatientsCounter"),
        QStringLiteral("PatientsWaitingCounter"),
        QStringLiteral("OSVersionReadable"),
    };
}

/// The value as the service reads it: truth values as 1 and 0, whatever the field.
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
    // Queued behind the start of the request, which Qt queues, too: set earlier, the size would be lost.
    QMetaObject::invokeMethod(
        reply, [reply] { reply->setReadBufferSize(largestReplyBytes); }, Qt::QueuedConnection);
    QTimer::singleShot(longestReplyMs, reply, SLOT(abort()));
}

/// The form, without a closing delimiter: the service reads it so.
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
