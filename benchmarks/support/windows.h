#pragma once

#include <QString>

class QObject;
class QQuickItem;
class QQuickView;
class QQuickWindow;

#include <functional>
#include <vector>

/// A hidden view of a document, created like the service's: with the documents' text factor.
QQuickView *createView(const QString &document);

/// The program's own window that shows that document ("main", "ListPopup", ...).
QQuickView *findView(const QString &document);

/// The first item below \a root, in document order, of that type and with that value of the property (any value when it
/// is empty). Ends the process when there is none.
QQuickItem *findItem(QQuickItem *root, const char *type, const char *property = "", const QString &value = QString());

/// Whether there is an item of that type below \a root.
bool hasItem(QQuickItem *root, const char *type);

/// Switches the list to the tab of all patients.
void showAllPatients(const QQuickView &list);

/// Presses the key of that letter in an idle window; returns the milliseconds until the window has painted the effect.
double pressKeyMs(QQuickView &view, char letter);

/// Runs the work and returns once each window has painted a frame after it; ends the process after 60 s.
void paintedAfter(const std::vector<QQuickWindow *> &windows, const std::function<void()> &work);

/// Processes events until the condition holds; ends the process after 60 s.
void waitUntil(const std::function<bool()> &condition);

/// Processes events until no window has painted for a quarter of a second: all animations are over.
void waitUntilAtRest();
