// A C library with CoreFoundation's own names: what the plug-in's interface is spoken in.
//
// Conventions of all headers of this folder:
//  1. Objects are opaque. A Ref is a pointer to a structure that nobody outside defines, and no
//     header looks inside one, so that a program binds to any library with these names.
//  2. Who frees: what a function with Create or Copy in its name returns belongs to the caller, who
//     gives it back with CFRelease. What a Get function returns belongs to the object asked, or to
//     the library, and lives as long as that does; CFRetain makes it the caller's, too.
//  3. Failure is an answer: NULL, false, 0 or kCFNotFound, as each function says. A function that
//     makes an object also answers NULL when there is no memory for it; a function that changes one
//     ends the process then.
//  4. A broken precondition (NULL where an object is asked for, an object of another type, a
//  position
//     outside of what it indexes, a change to an object that cannot change) ends the process with a
//     line on the standard error.
//  5. Yes and no are a Boolean of one byte, 0 or 1. Positions and lengths of strings count UTF-16
//     units, those of data bytes.
//  6. Threads: objects that cannot change, retain, release and the plug-in functions serve any
//     thread at once. An object that can change serves one thread at a time.
//  7. The allocator of each Create function is ignored; pass kCFAllocatorDefault.
//
// CFPlugInCOM.h stands apart and is included by name.

#pragma once

#include "Platform/CoreFoundation/CFArray.h"
#include "Platform/CoreFoundation/CFBase.h"
#include "Platform/CoreFoundation/CFBundle.h"
#include "Platform/CoreFoundation/CFData.h"
#include "Platform/CoreFoundation/CFDate.h"
#include "Platform/CoreFoundation/CFDictionary.h"
#include "Platform/CoreFoundation/CFNumber.h"
#include "Platform/CoreFoundation/CFPlugIn.h"
#include "Platform/CoreFoundation/CFString.h"
#include "Platform/CoreFoundation/CFURL.h"
#include "Platform/CoreFoundation/CFUUID.h"
