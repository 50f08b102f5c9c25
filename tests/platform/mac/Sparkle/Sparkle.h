#pragma once

// A stand-in of the update framework's one class, with the four messages that the program sends to it. Written for
// the tests; it records what it is sent and does nothing.
#import <Foundation/Foundation.h>

@interface SUUpdater : NSObject
+ (SUUpdater *)sharedUpdater;
- (void)setFeedURL:(NSURL *)url;
- (void)setAutomaticallyDownloadsUpdates:(BOOL)automatically;
- (void)checkForUpdatesInBackground;
@end
