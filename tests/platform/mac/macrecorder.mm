#include "macrecorder.h"

#import "nsapplicationload.h"

#import <AppKit/AppKit.h>
#import <Sparkle/Sparkle.h>
#include <objc/runtime.h>

namespace {

QStringList messages;
bool keeping = false;
int depth = 0; // above 0 during a recorded message

class Recorded
{
public:
    explicit Recorded(const QString &message)
    {
        if (depth++ == 0)
            MacRecorder::add(message);
    }
    ~Recorded() { --depth; }
};

QString text(NSString *string)
{
    return string ? QString::fromUtf8([string UTF8String]) : QStringLiteral("nil");
}

QString text(NSURL *url)
{
    return text([url absoluteString]);
}

/// Makes \a replacement the implementation of \a selector and returns the previous one. For class methods, pass the
/// metaclass.
template<typename Function>
Function *replace(Class target, SEL selector, Function *replacement)
{
    const Method method = class_getInstanceMethod(target, selector);
    const auto before = class_getMethodImplementation(target, selector);
    class_replaceMethod(target, selector, reinterpret_cast<IMP>(replacement), method_getTypeEncoding(method));
    return reinterpret_cast<Function *>(before);
}

using Plain = id(id, SEL);
using WithBytes = id(id, SEL, const char *);
using WithObject = id(id, SEL, id);
using WithZone = id(id, SEL, NSZone *);

WithZone *poolAlloc = nullptr;
Plain *poolInit = nullptr;
Plain *poolRelease = nullptr;
Plain *sharedApplication = nullptr;
WithBytes *makeString = nullptr;
WithObject *makeAddress = nullptr;

id recordedPoolAlloc(id self, SEL selector, NSZone *zone)
{
    const Recorded recorded(QStringLiteral("NSAutoreleasePool alloc"));
    return poolAlloc(self, selector, zone);
}

id recordedPoolInit(id self, SEL selector)
{
    const Recorded recorded(QStringLiteral("NSAutoreleasePool init"));
    return poolInit(self, selector);
}

id recordedPoolRelease(id self, SEL selector)
{
    MacRecorder::add(QStringLiteral("NSAutoreleasePool release"));
    return poolRelease(self, selector); // not nested: the objects that the pool releases are recorded, too
}

id recordedSharedApplication(id self, SEL selector)
{
    const Recorded recorded(QStringLiteral("NSApplication sharedApplication"));
    return sharedApplication(self, selector);
}

id recordedMakeString(id self, SEL selector, const char *bytes)
{
    const Recorded recorded(QStringLiteral("NSString stringWithUTF8String: ") + QString::fromUtf8(bytes));
    return makeString(self, selector, bytes);
}

id recordedMakeAddress(id self, SEL selector, id string)
{
    const Recorded recorded(QStringLiteral("NSURL URLWithString: ") + text(static_cast<NSString *>(string)));
    return makeAddress(self, selector, string);
}

void recordedActivate(id self, SEL, BOOL ignoringOthers)
{
    // Recorded only: there is no other program.
    const bool shared = self == NSApp;
    MacRecorder::add(QStringLiteral("activateIgnoringOtherApps: %1 to %2")
                         .arg(ignoringOthers == YES ? QStringLiteral("YES") : QStringLiteral("NO"),
                              shared ? QStringLiteral("the shared application") : QStringLiteral("another")));
}

SUUpdater *updater = nil;

}

extern "C" BOOL NSApplicationLoad(void)
{
    MacRecorder::add(QStringLiteral("NSApplicationLoad"));
    return YES;
}

@implementation SUUpdater

+ (SUUpdater *)sharedUpdater
{
    MacRecorder::add(QStringLiteral("SUUpdater sharedUpdater"));
    return updater;
}

- (id)retain
{
    MacRecorder::add(QStringLiteral("SUUpdater retain"));
    return [super retain];
}

- (oneway void)release
{
    MacRecorder::add(QStringLiteral("SUUpdater release"));
    [super release];
}

- (void)setFeedURL:(NSURL *)url
{
    MacRecorder::add(QStringLiteral("SUUpdater setFeedURL: ") + text(url));
}

- (void)setAutomaticallyDownloadsUpdates:(BOOL)automatically
{
    MacRecorder::add(QStringLiteral("SUUpdater setAutomaticallyDownloadsUpdates: ")
                     + (automatically == YES ? QStringLiteral("YES") : QStringLiteral("NO")));
}

- (void)checkForUpdatesInBackground
{
    MacRecorder::add(QStringLiteral("SUUpdater checkForUpdatesInBackground"));
}

@end

@interface Pooled : NSObject
@end

@implementation Pooled

- (void)dealloc
{
    MacRecorder::add(QStringLiteral("Pooled dealloc"));
    [super dealloc];
}

@end

void MacRecorder::install()
{
    [[NSAutoreleasePool alloc] init]; // the outermost one, until the process ends
    updater = [[SUUpdater alloc] init];
    [NSApplication sharedApplication];

    // The inherited alloc sends this message.
    poolAlloc = replace(object_getClass([NSAutoreleasePool class]), @selector(allocWithZone:), recordedPoolAlloc);
    poolInit = replace([NSAutoreleasePool class], @selector(init), recordedPoolInit);
    poolRelease = replace([NSAutoreleasePool class], @selector(release), recordedPoolRelease);
    sharedApplication = replace(object_getClass([NSApplication class]), @selector(sharedApplication),
                                recordedSharedApplication);
    replace([NSApplication class], @selector(activateIgnoringOtherApps:), recordedActivate);
    makeString = replace(object_getClass([NSString class]), @selector(stringWithUTF8String:), recordedMakeString);
    makeAddress = replace(object_getClass([NSURL class]), @selector(URLWithString:), recordedMakeAddress);
}

void MacRecorder::start()
{
    messages.clear();
    keeping = true;
}

void MacRecorder::add(const QString &line)
{
    if (keeping)
        messages.append(line);
}

QStringList MacRecorder::take()
{
    keeping = false;
    return messages;
}

unsigned MacRecorder::updaterOwners()
{
    return static_cast<unsigned>([updater retainCount]);
}

void MacRecorder::makePooledObject()
{
    [[[Pooled alloc] init] autorelease];
}
