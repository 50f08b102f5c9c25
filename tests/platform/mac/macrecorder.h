#pragma once

#include <QStringList>

/// Listens to the messages that the macOS sources send: to the application object, to autorelease pools, to strings
/// and addresses being made, and to the update framework. Messages that those send among themselves are left out.
namespace MacRecorder {

/// Puts the listeners in place; once, before anything else. Makes the shared application object, so it needs a
/// display.
void install();

/// From now on messages are kept, those of before are forgotten.
void start();

/// Adds a line of somebody else's to the messages, to see the order of both.
void add(const QString &line);

/// The messages since start(), and stops keeping them.
QStringList take();

/// How many owners the shared updater has.
unsigned updaterOwners();

/// Makes an object that the innermost autorelease pool owns, and that adds "Pooled dealloc" when it goes.
void makePooledObject();

} // namespace MacRecorder
