// The identifiers that the plug-in of the tests and its tests agree on.

#pragma once

#define TEST_PLUGIN_TYPE "5E1F6B9A-2C4D-4E8F-9A0B-1C2D3E4F5A6B"
#define TEST_PLUGIN_FACTORY "A7C3D1E5-8B6F-4A2C-B0D9-E8F7A6B5C4D3"

// The interface that the instances answer beside IUnknown.
#define TEST_PLUGIN_INTERFACE                                                                     \
    CFUUIDGetConstantUUIDWithBytes(kCFAllocatorDefault, 0x0F, 0x1E, 0x2D, 0x3C, 0x4B, 0x5A, 0x69, \
                                   0x78, 0x87, 0x96, 0xA5, 0xB4, 0xC3, 0xD2, 0xE1, 0xF0)

#define TEST_PLUGIN_FACTORY_UUID                                                                  \
    CFUUIDGetConstantUUIDWithBytes(kCFAllocatorDefault, 0xA7, 0xC3, 0xD1, 0xE5, 0x8B, 0x6F, 0x4A, \
                                   0x2C, 0xB0, 0xD9, 0xE8, 0xF7, 0xA6, 0xB5, 0xC4, 0xD3)

#define TEST_PLUGIN_TYPE_UUID                                                                     \
    CFUUIDGetConstantUUIDWithBytes(kCFAllocatorDefault, 0x5E, 0x1F, 0x6B, 0x9A, 0x2C, 0x4D, 0x4E, \
                                   0x8F, 0x9A, 0x0B, 0x1C, 0x2D, 0x3E, 0x4F, 0x5A, 0x6B)
