#include "effects.h"

#include "logcapture.h"
#include "settingsfile.h"

#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPrintDialog>

namespace {

// Values that no database of a test holds: a document that counts again overwrites them.
constexpr int chosenNumber = 77;
constexpr int chosenTotal = 99;

QMap<QString, QVariant> allSettings()
{
    QMap<QString, QVariant> values;
    for (const QString &key : SettingsFile::keys())
        values.insert(key, SettingsFile::value(key));
    return values;
}

} // namespace

Effects::Effects(RunningService &service)
    : running(service)
{
    watch(running.main, "main");
    watch(running.contact, "contact");
    watch(running.list, "list");
    connect(running.service, &WidgetService::quit, this, [this] { lines.append("quit"); });
    connect(running.service, &WidgetService::autorunChanged, this,
            [this](const QVariant &value) { lines.append("autorunChanged " + value.toString()); });
    connect(running.main->rootObject(), &QQuickItem::stateChanged, this,
            [this](const QString &state) { lines.append("main document is \"" + state + "\""); });
    connect(&poll, &QTimer::timeout, this, &Effects::closeModal);
    poll.start(5);

    running.main->rootObject()->setProperty("number", chosenNumber);
    running.main->rootObject()->setProperty("total", chosenTotal);
    running.list->rootObject()->setProperty("number", chosenNumber);
    settings = allSettings();
    LogCapture::lines().clear();
    running.service->messages.clear();
}

Effects::~Effects() = default;

void Effects::watch(DraggableQuickView *window, const QString &name)
{
    connect(window, &QWindow::visibleChanged, this,
            [this, name](bool visible) { lines.append(name + (visible ? " shown" : " hidden")); });
}

void Effects::closeModal()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
        return;
    if (const auto *box = qobject_cast<QMessageBox *>(modal))
        lines.append("box: " + box->text().section(QLatin1Char('-'), 0, 0));
    else if (qobject_cast<QPrintDialog *>(modal))
        lines.append("print dialog: " + modal->windowTitle());
    else
        lines.append(QString("dialog of class ") + modal->metaObject()->className());
    static_cast<QDialog *>(modal)->reject();
}

QStringList Effects::take()
{
    takeChanges();
    QStringList taken;
    taken.swap(lines);
    return taken;
}

void Effects::takeChanges()
{
    const QStringList texts = running.service->messageTexts();
    for (const QString &text : texts)
        lines.append("message: " + text);
    running.service->messages.clear();

    if (running.main->rootObject()->property("number").toInt() != chosenNumber)
        lines.append("main document counted");
    if (running.list->rootObject()->property("number").toInt() != chosenNumber)
        lines.append("list document counted");
    for (const QString &line : LogCapture::lines()) {
        if (line == QLatin1String("Refreshing icon."))
            lines.append("icon refreshed");
    }
    LogCapture::lines().clear();

    const QMap<QString, QVariant> now = allSettings();
    for (auto it = now.begin(); it != now.end(); ++it) {
        if (settings.value(it.key()) != it.value())
            lines.append(it.key() + " is " + it.value().toString());
    }
    settings = now;

    if (isArmed(running.main))
        lines.append("main can be dragged");
    if (isArmed(running.contact))
        lines.append("contact can be dragged");
    if (isArmed(running.list))
        lines.append("list can be dragged");
}

bool Effects::isArmed(DraggableQuickView *window)
{
    const QPoint before = window->position();
    QMouseEvent move(QEvent::MouseMove, QPointF(7, 5), QPointF(before + QPoint(7, 5)), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(window, &move);
    const bool moved = window->position() != before;
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(7, 5), QPointF(before + QPoint(7, 5)), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &release);
    window->setPosition(before);
    return moved;
}
