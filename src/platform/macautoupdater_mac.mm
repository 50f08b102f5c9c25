#include "macautoupdater.h"

#import <AppKit/AppKit.h>
#import <Sparkle/Sparkle.h>

class MacAutoUpdater::Private
{
public:
    SUUpdater *updater;
};

MacAutoUpdater::MacAutoUpdater(const QString &feedAddress)
    : d(new Private)
{
    d->updater = [[SUUpdater sharedUpdater] retain];
    NSString *address = [NSString stringWithUTF8String:feedAddress.toUtf8().constData()];
    NSURL *url = [NSURL URLWithString:address];
    [d->updater setFeedURL:url];
    [d->updater setAutomaticallyDownloadsUpdates:YES];
}

MacAutoUpdater::~MacAutoUpdater()
{
    [d->updater release];
}

void MacAutoUpdater::checkForUpdates()
{
    [d->updater checkForUpdatesInBackground];
}
