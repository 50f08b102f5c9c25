#include "cocoainitializer.h"

#import <AppKit/AppKit.h>

class CocoaInitializer::Private
{
public:
    NSAutoreleasePool *pool;
};

CocoaInitializer::CocoaInitializer()
    : d(new Private)
{
    NSApplicationLoad();
    d->pool = [[NSAutoreleasePool alloc] init];
}

CocoaInitializer::~CocoaInitializer()
{
    [d->pool release];
}
