#pragma once

// The only AppKit function that GNUstep lacks.
#import <Foundation/Foundation.h>

extern "C" BOOL NSApplicationLoad(void);
