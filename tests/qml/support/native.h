#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariant>

class QQmlEngine;

/// Functions for document tests that QML lacks: independent access to the store, the log, the accessibility tree and
/// the animations of an object.
class Native : public QObject
{
    Q_OBJECT

public:
    explicit Native(QQmlEngine *engine);
    ~Native() override;

    /// Collects the log until stopLog().
    Q_INVOKABLE void startLog();
    Q_INVOKABLE void stopLog();
    /// The debug messages, and the warnings and errors, since startLog() or the last call.
    Q_INVOKABLE QStringList takeTraces();
    Q_INVOKABLE QStringList takeWarnings();

    /// Runs a statement on a separate connection, which sees only committed data, and returns its rows.
    Q_INVOKABLE QVariantList rows(const QString &statement, const QVariantList &values = {});
    /// Keeps every other connection from writing ("read") or from reading and writing ("exclusive").
    Q_INVOKABLE bool lockStore(const QString &kind);
    Q_INVOKABLE void unlockStore();

    /// The addresses passed to the desktop's browser since the last call; none of them is opened.
    Q_INVOKABLE QStringList takeOpenedAddresses();
    /// The configured host of the SMS service.
    Q_INVOKABLE QString smsHost() const;

    /// {role, name, description, focusable, checkable, checked, selectable, selected, actions} of an item in the
    /// accessibility tree; null when the item is not in the tree.
    Q_INVOKABLE QVariant accessible(QObject *object) const;
    /// Presses or toggles the item through the accessibility interface; false when the item has no such action.
    Q_INVOKABLE bool press(QObject *object, const QString &action = QStringLiteral("Press")) const;

    /// The text of the tooltip that is shown; "" when there is none.
    Q_INVOKABLE QString shownToolTip() const;

    /// Holds a key in the item's window for three repetitions.
    Q_INVOKABLE void holdKey(QObject *itemOfWindow, int key) const;

    /// The animations of the object's properties: [{kind, duration, easing, velocity}].
    Q_INVOKABLE QVariantList behaviors(QObject *object) const;
    /// The animations of a transition, in the same form.
    Q_INVOKABLE QVariantList transitionAnimations(QObject *transition) const;
    /// Stops all animations until releaseAnimations().
    Q_INVOKABLE void holdAnimations();
    Q_INVOKABLE void releaseAnimations();
    /// Advances the held animations by that many milliseconds.
    Q_INVOKABLE void passTime(int milliseconds);
    /// The QML type name of the object.
    Q_INVOKABLE QString typeName(QObject *object) const;
    /// Whether the item is `ancestor` or one of its descendants.
    Q_INVOKABLE bool isBelow(QObject *item, QObject *ancestor) const;
    /// The window's item that has the focus.
    Q_INVOKABLE QObject *focusItem(QObject *itemOfWindow) const;
    /// Saves a screenshot of the item's window.
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
