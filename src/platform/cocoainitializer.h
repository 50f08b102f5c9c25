#pragma once

#include <QScopedPointer>

/// Prepares Cocoa for a Qt program: loads the application services and holds an autorelease pool until it is destroyed.
/// One per process, created first. Does nothing on Linux.
class CocoaInitializer
{
    Q_DISABLE_COPY(CocoaInitializer)

public:
    CocoaInitializer();
    ~CocoaInitializer();

private:
    class Private;
    QScopedPointer<Private> d;
};
