#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariant>

class QQmlEngine;

/// What the documents' tests need and cannot do in QML: a second pair of eyes on the store, the log, the accessibility
/// tree and the animations of an object.
class Native : public QObject
{
    Q_OBJECT

public:
    explicit Native(QQmlEngine *engine);
    ~Native() override;

    /// Collects the log from here on, until stopLog().
    Q_INVOKABLE void startLog();
    Q_INVOKABLE void stopLog();
    /// The traces, and the warnings and worse, since startLog() or the last take.
    Q_INVOKABLE QStringList takeTraces();
    Q_INVOKABLE QStringList takeWarnings();

    /// Runs a statement on a connection of its own, which sees only what is safely stored, and gives its rows.
    Q_INVOKABLE QVariantList rows(const QString &statement, const QVariantList &values = {});
    /// Keeps every other connection from writing ("read") or from reading and writing ("exclusive").
    Q_INVOKABLE bool lockStore(const QString &kind);
    Q_INVOKABLE void unlockStore();

    /// Addresses handed to the desktop's browser since the last take; none of them is opened.
    Q_INVOKABLE QStringList takeOpenedAddresses();
    /// The host of the SMS service that this build was configured with.
    Q_INVOKABLE QString smsHost() const;

    /// {role, name, description, focusable, checkable, checked, selected, actions} of an item in the accessibility tree;
    /// null when it is not in it.
    Q_INVOKABLE QVariant accessible(QObject *object) const;
    /// Does what an assistive tool does to press or toggle the item; false when the item has no such action.
    Q_INVOKABLE bool press(QObject *object, const QString &action = QStringLiteral("Press")) const;

    /// Presses a key in the item's window and holds it for three repetitions.
    Q_INVOKABLE void holdKey(QObject *itemOfWindow, int key) const;

    /// The animations that the object gives to its properties: [{kind, duration, easing, velocity}].
    Q_INVOKABLE QVariantList behaviors(QObject *object) const;
    /// The animations of a transition, in the same form.
    Q_INVOKABLE QVariantList transitionAnimations(QObject *transition) const;
    /// From here on no animation moves by itself, until releaseAnimations().
    Q_INVOKABLE void holdAnimations();
    Q_INVOKABLE void releaseAnimations();
    /// Lets so many milliseconds pass for the animations that are held.
    Q_INVOKABLE void passTime(int milliseconds);
    /// Name of the object's type as it is written in a document.
    Q_INVOKABLE QString typeName(QObject *object) const;
    /// Whether the item is that of which `ancestor` is a parent item, or itself.
    Q_INVOKABLE bool isBelow(QObject *item, QObject *ancestor) const;
    /// The item of the window that has the keyboard.
    Q_INVOKABLE QObject *focusItem(QObject *itemOfWindow) const;
    /// Saves a picture of the item's window.
    Q_INVOKABLE bool saveWindow(QObject *itemOfWindow, const QString &fileName) const;

private slots:
    void openAddress(const QUrl &address);

private:
    Q_DISABLE_COPY(Native)

    class HeldTime;

    bool openObserver();

    QQmlEngine *m_engine;
    QScopedPointer<HeldTime> m_heldTime;
    QStringList m_openedAddresses;
};
