#pragma once

#include <QScopedPointer>

/// Cocoa for a program whose windows are Qt's: loads the application services and holds an autorelease pool until
/// it is destroyed. One per process, made before everything else. On Linux there is nothing to hold.
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
