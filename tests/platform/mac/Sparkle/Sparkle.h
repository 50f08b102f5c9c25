#pragma once

// A stand-in for the update framework's class, with the four messages that the program sends to it. It records the
// messages and does nothing else.
#import <Foundation/Foundation.h>

@interface SUUpdater : NSObject
+ (SUUpdater *)sharedUpdater;
- (void)setFeedURL:(NSURL *)url;
- (void)setAutomaticallyDownloadsUpdates:(BOOL)automatically;
- (void)checkForUpdatesInBackground;
@end
