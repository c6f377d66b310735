// The file that a command works on.

#pragma once

#include <cstdint>
#include <string>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// A regular file, open for reading, and how many bytes it had then.
struct InputFile {
    platform::FileDescriptor descriptor;
    std::uint64_t size = 0;
};

/// Opens the regular file at `path`; a Fault in the system's words. Pipes and devices are refused
/// before they could wait.
platform::Result<InputFile> openFile(const std::string& path);

/// Returns the bytes of the regular file at `path`, or a Fault as above.
platform::Result<platform::Data> readFile(const std::string& path);

/// Returns the bytes of a document: as readFile, but none for a folder that is called as a document
/// is that is a folder.
platform::Result<platform::Data> readDocumentFile(const std::string& path);

}  // namespace pvdoc
