#pragma once

// The one function of AppKit that GNUstep lacks.
#import <Foundation/Foundation.h>

extern "C" BOOL NSApplicationLoad(void);
