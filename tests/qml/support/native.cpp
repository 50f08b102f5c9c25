#include "native.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QEasingCurve>
#include <QKeyEvent>
#include <QMetaEnum>
#include <QQmlEngine>
#include <QQmlListReference>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QToolTip>
#include <QVariantAnimation>

namespace {

QStringList traces;
QStringList warnings;
bool logging = false;
QtMessageHandler previousHandler = nullptr;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        traces.append(text);
    else
        warnings.append(text);
    if (previousHandler)
        previousHandler(type, context, text);
}

QString easingName(const QVariant &easing)
{
    const QMetaEnum types = QMetaEnum::fromType<QEasingCurve::Type>();
    return QString::fromLatin1(types.valueToKey(easing.value<QEasingCurve>().type()));
}

QVariantMap animationLook(const QObject *animation)
{
    return {
        {"kind", animation->inherits("QQuickSmoothedAnimation") ? "smoothed" : "number"},
        {"duration", animation->property("duration")},
        {"easing", easingName(animation->property("easing"))},
        {"velocity", animation->property("velocity")},
    };
}

} // namespace

/// An animation clock that advances only in `pass`: even a busy machine shows every moment of an animation.
class Native::HeldTime : public QAnimationDriver
{
public:
    HeldTime()
    {
        install();
        // Without a running animation, the driver would return to the real clock.
        m_endless.setEndValue(1.0);
        m_endless.setLoopCount(-1);
        m_endless.start();
        QCoreApplication::processEvents();
    }
    ~HeldTime() override
    {
        m_endless.stop();
        uninstall();
    }

    qint64 elapsed() const override { return m_now; }
    void pass(int milliseconds)
    {
        m_now += milliseconds;
        advanceAnimation();
    }

private:
    qint64 m_now = 0;
    QVariantAnimation m_endless;
};

Native::Native(QQmlEngine *engine)
    : QObject(engine)
    , m_engine(engine)
{
    QDesktopServices::setUrlHandler("http", this, "openAddress");
    QDesktopServices::setUrlHandler("https", this, "openAddress");
}

Native::~Native()
{
    stopLog();
    QDesktopServices::unsetUrlHandler("http");
    QDesktopServices::unsetUrlHandler("https");
}

void Native::startLog()
{
    traces.clear();
    warnings.clear();
    if (!logging)
        previousHandler = qInstallMessageHandler(collect);
    logging = true;
}

void Native::stopLog()
{
    if (logging)
        qInstallMessageHandler(previousHandler);
    logging = false;
}

QStringList Native::takeTraces()
{
    QStringList taken;
    taken.swap(traces);
    return taken;
}

QStringList Native::takeWarnings()
{
    QStringList taken;
    taken.swap(warnings);
    return taken;
}

QString Native::smsHost() const
{
    return QStringLiteral(TANDRY_TEST_SMS_HOST);
}

bool Native::openObserver()
{
    if (!QSqlDatabase::contains("observer")) {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "observer");
        database.setDatabaseName(m_engine->offlineStorageDatabaseFilePath("Tandry") + ".sqlite");
    }
    return QSqlDatabase::database("observer").isOpen();
}

QVariantList Native::rows(const QString &statement, const QVariantList &values)
{
    QVariantList found;

    if (!openObserver())
        qFatal("The store cannot be observed");
    QSqlQuery query(QSqlDatabase::database("observer"));
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
    while (query.next()) {
        const QSqlRecord record = query.record();
        QVariantMap row;
        for (int i = 0; i < record.count(); ++i)
            row.insert(record.fieldName(i), record.value(i));
        found.append(row);
    }
    return found;
}

bool Native::lockStore(const QString &kind)
{
    if (!openObserver())
        return false;
    QSqlQuery query(QSqlDatabase::database("observer"));
    if (kind == "exclusive")
        return query.exec("BEGIN EXCLUSIVE");
    // A read inside an open transaction holds a shared lock, which keeps others from committing.
    return query.exec("BEGIN") && query.exec("SELECT COUNT(*) FROM Patients") && query.next();
}

void Native::unlockStore()
{
    if (!QSqlDatabase::contains("observer"))
        return;
    QSqlQuery(QSqlDatabase::database("observer")).exec("ROLLBACK");
}

QStringList Native::takeOpenedAddresses()
{
    QStringList taken;
    taken.swap(m_openedAddresses);
    return taken;
}

bool Native::saveWindow(QObject *itemOfWindow, const QString &fileName) const
{
    const auto *item = qobject_cast<QQuickItem *>(itemOfWindow);
    // Grabs the screen: the software renderer returns an empty picture of a window without changes.
    return item && item->window() && item->window()->screen()->grabWindow(item->window()->winId()).save(fileName);
}

void Native::openAddress(const QUrl &address)
{
    m_openedAddresses.append(address.toString());
}

QVariant Native::accessible(QObject *object) const
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(object);
    if (!interface || !interface->isValid())
        return QVariant();

    const QMetaEnum roles = QMetaEnum::fromType<QAccessible::Role>();
    QStringList actions;
    if (interface->actionInterface())
        actions = interface->actionInterface()->actionNames();
    return QVariantMap{
        {"role", QString::fromLatin1(roles.valueToKey(interface->role()))},
        {"name", interface->text(QAccessible::Name)},
        {"description", interface->text(QAccessible::Description)},
        {"focusable", bool(interface->state().focusable)},
        {"checkable", bool(interface->state().checkable)},
        {"checked", bool(interface->state().checked)},
        {"selectable", bool(interface->state().selectable)},
        {"selected", bool(interface->state().selected)},
        {"actions", actions},
    };
}

bool Native::press(QObject *object, const QString &action) const
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(object);
    QAccessibleActionInterface *actions = interface ? interface->actionInterface() : nullptr;
    if (!actions || !actions->actionNames().contains(action))
        return false;
    actions->doAction(action);
    return true;
}

void Native::holdKey(QObject *itemOfWindow, int key) const
{
    QQuickWindow *window = qobject_cast<QQuickItem *>(itemOfWindow)->window();
    for (int repetition = 0; repetition <= 3; ++repetition) {
        for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), repetition > 0);
            QCoreApplication::sendEvent(window, &event);
            QCoreApplication::processEvents();
        }
    }
}

QVariantList Native::behaviors(QObject *object) const
{
    QVariantList found;

    for (QObject *child : object->children()) {
        if (!child->inherits("QQuickBehavior"))
            continue;
        // The animation is created when it first runs.
        qmlExecuteDeferred(child);
        found.append(animationLook(child->property("animation").value<QObject *>()));
    }
    return found;
}

QVariantList Native::transitionAnimations(QObject *transition) const
{
    QVariantList found;

    qmlExecuteDeferred(transition);
    const QQmlListReference animations(transition, "animations");
    for (int i = 0; i < animations.count(); ++i)
        found.append(animationLook(animations.at(i)));
    return found;
}

void Native::holdAnimations()
{
    m_heldTime.reset(new HeldTime);
}

void Native::releaseAnimations()
{
    m_heldTime.reset();
}

void Native::passTime(int milliseconds)
{
    // A newly started animation advances from the next step on.
    QCoreApplication::processEvents();
    m_heldTime->pass(0);
    QCoreApplication::processEvents();
    m_heldTime->pass(milliseconds);
}

QString Native::shownToolTip() const
{
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

QString Native::typeName(QObject *object) const
{
    return QString::fromLatin1(object->metaObject()->className()).section("_QML", 0, 0).replace("QQuick", QString());
}

bool Native::isBelow(QObject *item, QObject *ancestor) const
{
    const auto *below = qobject_cast<QQuickItem *>(item);
    while (below && below != ancestor)
        below = below->parentItem();
    return below != nullptr;
}

QObject *Native::focusItem(QObject *itemOfWindow) const
{
    const auto *item = qobject_cast<QQuickItem *>(itemOfWindow);
    return item && item->window() ? item->window()->activeFocusItem() : nullptr;
}
