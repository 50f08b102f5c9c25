#include "recordings.h"

#include <QScreen>
#include <QTextDocument>
#include <QTimer>

Recordings &Recordings::instance()
{
    static Recordings recordings;
    return recordings;
}

QStringList Recordings::messageTexts() const
{
    QStringList texts;
    for (const Message &message : messages)
        texts.append(message.text);
    return texts;
}

namespace {

void step(const QString &text)
{
    if (Recordings::instance().step)
        Recordings::instance().step(text);
}

}

// `ld --wrap=symbol`: a call of `symbol` arrives at `__wrap_symbol`, and `__real_symbol` is the thing itself.
extern "C" {

void __real__ZN15QSystemTrayIcon10setVisibleEb(QSystemTrayIcon *self, bool visible);
void __wrap__ZN15QSystemTrayIcon10setVisibleEb(QSystemTrayIcon *self, bool visible);
void __wrap__ZN15QSystemTrayIcon10setVisibleEb(QSystemTrayIcon *self, bool visible)
{
    Recordings::instance().tray = self;
    Recordings::instance().trayShown.append(visible);
    step(visible ? QStringLiteral("tray icon shown") : QStringLiteral("tray icon hidden"));
    __real__ZN15QSystemTrayIcon10setVisibleEb(self, visible);
}

void __real__ZN15QSystemTrayIcon7setIconERK5QIcon(QSystemTrayIcon *self, const QIcon &icon);
void __wrap__ZN15QSystemTrayIcon7setIconERK5QIcon(QSystemTrayIcon *self, const QIcon &icon);
void __wrap__ZN15QSystemTrayIcon7setIconERK5QIcon(QSystemTrayIcon *self, const QIcon &icon)
{
    Recordings::instance().icons.append(icon);
    Recordings::instance().trayChanges.append("icon");
    __real__ZN15QSystemTrayIcon7setIconERK5QIcon(self, icon);
}

void __real__ZN15QSystemTrayIcon11showMessageERK7QStringS2_NS_11MessageIconEi(
    QSystemTrayIcon *self, const QString &title, const QString &text, QSystemTrayIcon::MessageIcon icon, int ms);
void __wrap__ZN15QSystemTrayIcon11showMessageERK7QStringS2_NS_11MessageIconEi(
    QSystemTrayIcon *self, const QString &title, const QString &text, QSystemTrayIcon::MessageIcon icon, int ms);
void __wrap__ZN15QSystemTrayIcon11showMessageERK7QStringS2_NS_11MessageIconEi(
    QSystemTrayIcon *self, const QString &title, const QString &text, QSystemTrayIcon::MessageIcon icon, int ms)
{
    Recordings::instance().messages.append({title, text, icon, ms});
    Recordings::instance().trayChanges.append("message");
    __real__ZN15QSystemTrayIcon11showMessageERK7QStringS2_NS_11MessageIconEi(self, title, text, icon, ms);
}

bool __wrap__ZN15QSystemTrayIcon16supportsMessagesEv();
bool __wrap__ZN15QSystemTrayIcon16supportsMessagesEv()
{
    return Recordings::instance().messagesSupported;
}

void __real__ZN13QTextDocument7setHtmlERK7QString(QTextDocument *self, const QString &html);
void __wrap__ZN13QTextDocument7setHtmlERK7QString(QTextDocument *self, const QString &html);
void __wrap__ZN13QTextDocument7setHtmlERK7QString(QTextDocument *self, const QString &html)
{
    Recordings::instance().reports.append({html, self->defaultFont().pixelSize()});
    __real__ZN13QTextDocument7setHtmlERK7QString(self, html);
}

void __real__ZN6QTimer5startEv(QTimer *self);
void __wrap__ZN6QTimer5startEv(QTimer *self);
void __wrap__ZN6QTimer5startEv(QTimer *self)
{
    Recordings::instance().startedTimers.append(self);
    step(QStringLiteral("timer of %1 ms started").arg(self->interval()));
    __real__ZN6QTimer5startEv(self);
}

QSize __real__ZNK7QScreen13availableSizeEv(const QScreen *self);
QSize __wrap__ZNK7QScreen13availableSizeEv(const QScreen *self);
QSize __wrap__ZNK7QScreen13availableSizeEv(const QScreen *self)
{
    const QSize wanted = Recordings::instance().availableSize;
    return wanted.isValid() ? wanted : __real__ZNK7QScreen13availableSizeEv(self);
}

}
