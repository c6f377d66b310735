// The shape of a plug-in's objects: a pointer to a table of functions, the first of which every
// interface has.
//
// An object begins with the pointer to its table. The codes are the library's own, not those of
// other systems with the same names.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"
#include "Platform/CoreFoundation/CFUUID.h"

CF_EXTERN_C_BEGIN

/// A code: not negative for success.
typedef SInt32 HRESULT;
typedef UInt32 ULONG;
typedef void* LPVOID;

/// An interface's identifier, passed by value.
typedef CFUUIDBytes REFIID;

#define STDMETHODCALLTYPE

#define SUCCEEDED(Status) ((HRESULT)(Status) >= 0)
#define FAILED(Status) ((HRESULT)(Status) < 0)

#define S_OK ((HRESULT)0x00000000)
#define S_FALSE ((HRESULT)0x00000001)
#define E_UNEXPECTED ((HRESULT)0x8000FFFF)
#define E_NOTIMPL ((HRESULT)0x80000001)
#define E_OUTOFMEMORY ((HRESULT)0x80000002)
#define E_INVALIDARG ((HRESULT)0x80000003)
#define E_NOINTERFACE ((HRESULT)0x80000004)
#define E_POINTER ((HRESULT)0x80000005)
#define E_FAIL ((HRESULT)0x80000008)

/// The interface that every object answers.
#define IUnknownUUID                                                                              \
    CFUUIDGetConstantUUIDWithBytes(kCFAllocatorDefault, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, \
                                   0x00, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)

/// The beginning of every table: a reserved pointer, NULL, and the three functions of IUnknown.
///
/// QueryInterface leaves the interface `iid` of the object, owned by the caller, at `ppv` and
/// answers S_OK, or leaves NULL and answers E_NOINTERFACE. AddRef and Release answer the new number
/// of owners.
#define IUNKNOWN_C_GUTS                                                                     \
    void* _reserved;                                                                        \
    HRESULT(STDMETHODCALLTYPE* QueryInterface)(void* thisPointer, REFIID iid, LPVOID* ppv); \
    ULONG(STDMETHODCALLTYPE* AddRef)(void* thisPointer);                                    \
    ULONG(STDMETHODCALLTYPE* Release)(void* thisPointer)

typedef struct IUnknownVTbl {
    IUNKNOWN_C_GUTS;
} IUnknownVTbl;

CF_EXTERN_C_END
