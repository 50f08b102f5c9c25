#include "constructionsteps.h"

#include "autorun.h"
#include "draggablequickview.h"
#include "recordings.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QQmlContext>
#include <QSettings>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QWidget>

QStringList &constructionSteps()
{
    static QStringList steps;
    Recordings::instance().step = [](const QString &text) { steps.append(text); };
    return steps;
}

namespace {

void step(const QString &text)
{
    constructionSteps().append(text);
}

void stepAtEnd(QObject *object, const QString &text)
{
    QObject::connect(object, &QObject::destroyed, [text] { step(text); });
}

}

extern "C" {

// What stands for the calls; the first argument of a method is its object.
#define WRAP(Result, symbol, ...) Result __real_##symbol(__VA_ARGS__); Result __wrap_##symbol(__VA_ARGS__);

WRAP(void, _ZN21QNetworkAccessManagerC1EP7QObject, QNetworkAccessManager *, QObject *)
void __wrap__ZN21QNetworkAccessManagerC1EP7QObject(QNetworkAccessManager *self, QObject *parent)
{
    __real__ZN21QNetworkAccessManagerC1EP7QObject(self, parent);
    step(parent ? "network access manager, owned" : "network access manager");
    stepAtEnd(self, "network access manager gone");
}

WRAP(void, _ZN7AutorunC1Ev, Autorun *)
void __wrap__ZN7AutorunC1Ev(Autorun *self)
{
    step("autorun");
    __real__ZN7AutorunC1Ev(self);
}

WRAP(void, _ZN7AutorunD1Ev, Autorun *)
void __wrap__ZN7AutorunD1Ev(Autorun *self)
{
    step("autorun gone");
    __real__ZN7AutorunD1Ev(self);
}

WRAP(void, _ZN7Autorun10setAutorunEb, Autorun *, bool)
void __wrap__ZN7Autorun10setAutorunEb(Autorun *self, bool on)
{
    step(on ? "launch at login on" : "launch at login off");
    __real__ZN7Autorun10setAutorunEb(self, on);
}

WRAP(void, _ZN9QSettingsC1ERK7QStringS2_P7QObject, QSettings *, const QString &, const QString &, QObject *)
void __wrap__ZN9QSettingsC1ERK7QStringS2_P7QObject(QSettings *self, const QString &organization,
                                                   const QString &application, QObject *parent)
{
    step(QString("settings %1, %2").arg(organization, application));
    __real__ZN9QSettingsC1ERK7QStringS2_P7QObject(self, organization, application, parent);
    stepAtEnd(self, QString("settings %1 gone").arg(organization));
}

WRAP(void, _ZN9QSettings8setValueERK7QStringRK8QVariant, QSettings *, const QString &, const QVariant &)
void __wrap__ZN9QSettings8setValueERK7QStringRK8QVariant(QSettings *self, const QString &key, const QVariant &value)
{
    if (!self->organizationName().isEmpty()) // the property list is a file of no organization
        step("write " + key);
    __real__ZN9QSettings8setValueERK7QStringRK8QVariant(self, key, value);
}

WRAP(void, _ZN15QSystemTrayIconC1ERK5QIconP7QObject, QSystemTrayIcon *, const QIcon &, QObject *)
void __wrap__ZN15QSystemTrayIconC1ERK5QIconP7QObject(QSystemTrayIcon *self, const QIcon &icon, QObject *parent)
{
    step(parent ? "tray icon, owned" : "tray icon");
    __real__ZN15QSystemTrayIconC1ERK5QIconP7QObject(self, icon, parent);
}

WRAP(void, _ZN7QWidgetC1EPS_6QFlagsIN2Qt10WindowTypeEE, QWidget *, QWidget *, Qt::WindowFlags)
void __wrap__ZN7QWidgetC1EPS_6QFlagsIN2Qt10WindowTypeEE(QWidget *self, QWidget *parent, Qt::WindowFlags flags)
{
    step(QString("widget with parent %1 and flags %2").arg(parent != nullptr).arg(int(flags)));
    __real__ZN7QWidgetC1EPS_6QFlagsIN2Qt10WindowTypeEE(self, parent, flags);
}

WRAP(void, _ZN12QQuickWindow21setDefaultAlphaBufferEb, bool)
void __wrap__ZN12QQuickWindow21setDefaultAlphaBufferEb(bool on)
{
    step(QString("default alpha buffer %1").arg(on));
    __real__ZN12QQuickWindow21setDefaultAlphaBufferEb(on);
}

WRAP(void, _ZN18DraggableQuickViewC1Eb, DraggableQuickView *, bool)
void __wrap__ZN18DraggableQuickViewC1Eb(DraggableQuickView *self, bool onTop)
{
    step(onTop ? "view on top" : "view");
    __real__ZN18DraggableQuickViewC1Eb(self, onTop);
}

WRAP(void, _ZN11QQmlContext18setContextPropertyERK7QStringRK8QVariant, QQmlContext *, const QString &,
     const QVariant &)
void __wrap__ZN11QQmlContext18setContextPropertyERK7QStringRK8QVariant(QQmlContext *self, const QString &name,
                                                                       const QVariant &value)
{
    step(QString("%1 is the %2 %3").arg(name, value.typeName(), value.toString()));
    __real__ZN11QQmlContext18setContextPropertyERK7QStringRK8QVariant(self, name, value);
}

WRAP(void, _ZN10QQuickView9setSourceERK4QUrl, QQuickView *, const QUrl &)
void __wrap__ZN10QQuickView9setSourceERK4QUrl(QQuickView *self, const QUrl &url)
{
    step("load " + url.toString());
    __real__ZN10QQuickView9setSourceERK4QUrl(self, url);
}

WRAP(void, _ZN12QQuickWindow8setColorERK6QColor, QQuickWindow *, const QColor &)
void __wrap__ZN12QQuickWindow8setColorERK6QColor(QQuickWindow *self, const QColor &color)
{
    step("colour " + color.name(QColor::HexArgb));
    __real__ZN12QQuickWindow8setColorERK6QColor(self, color);
}

WRAP(bool, _ZNK7Autorun9isAutorunEv, const Autorun *)
bool __wrap__ZNK7Autorun9isAutorunEv(const Autorun *self)
{
    step("launch at login?");
    return __real__ZNK7Autorun9isAutorunEv(self);
}

WRAP(QNetworkReply *, _ZN21QNetworkAccessManager4postERK15QNetworkRequestRK10QByteArray, QNetworkAccessManager *,
     const QNetworkRequest &, const QByteArray &)
QNetworkReply *__wrap__ZN21QNetworkAccessManager4postERK15QNetworkRequestRK10QByteArray(
    QNetworkAccessManager *self, const QNetworkRequest &request, const QByteArray &body)
{
    step(QString("post to %1 with %2").arg(request.url().toString(), request.rawHeaderList().join(", ").constData()));
    return __real__ZN21QNetworkAccessManager4postERK15QNetworkRequestRK10QByteArray(self, request, body);
}

}
