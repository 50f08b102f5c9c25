#pragma once

#include <QString>

class QObject;
class QQmlEngine;
class QQuickItem;
class QQuickView;
class QQuickWindow;

#include <functional>
#include <vector>

/// A view on a document as the service makes one: with the documents' text factor. Not shown.
QQuickView *createView(const QString &document);

/// The program's own window that shows that document ("main", "ListPopup", ...).
QQuickView *findView(const QString &document);

/// Where the patient database of that engine lies.
QString databaseFile(const QQmlEngine &engine);

/// The first item below \a root, in the order of the documents, that is of that document and whose property has that
/// value (any, when the value is empty). Ends the process when there is none.
QQuickItem *findItem(QQuickItem *root, const char *type, const char *property = "", const QString &value = QString());

/// Whether there is an item of that document below \a root.
bool hasItem(QQuickItem *root, const char *type);

/// Does the work and returns once each window has painted a frame after it; ends the process after 60 s.
void paintedAfter(const std::vector<QQuickWindow *> &windows, const std::function<void()> &work);

/// Handles events until the condition holds; ends the process after 60 s.
void waitUntil(const std::function<bool()> &condition);

/// Handles events until no window has painted for a quarter of a second: animations are over.
void waitUntilAtRest();
