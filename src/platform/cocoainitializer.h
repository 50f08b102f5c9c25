#pragma once

#include <QScopedPointer>

/// Prepares Cocoa for a Qt program: loads the application services and holds an autorelease pool until it is destroyed.
/// One per process, created first. Does nothing on Linux.
class CocoaInitializer
{
public:
    CocoaInitializer();
    ~CocoaInitializer();

private:
    Q_DISABLE_COPY(CocoaInitializer)

    class Private;
    QScopedPointer<Private> d;
};
