#pragma once

#include <QStringList>

/// Records the messages that the macOS sources send to the application object, to autorelease pools, to the update
/// framework and to create strings and URLs. Leaves out the messages that these objects send to each other.
namespace MacRecorder {

/// Installs the recorder; call it once, before anything else. Creates the shared application object, which needs a
/// display.
void install();

/// Starts recording and forgets earlier messages.
void start();

/// Adds a line from elsewhere to the messages, to show the order of both.
void add(const QString &line);

/// Stops recording and returns the messages since start().
QStringList take();

/// The retain count of the shared updater.
unsigned updaterOwners();

/// Creates an object that the innermost autorelease pool owns and that adds "Pooled dealloc" when it is deallocated.
void makePooledObject();

} // namespace MacRecorder
