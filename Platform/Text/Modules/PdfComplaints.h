// What the library complains about in one file.
//
// One thread at a time.

#pragma once

#include <new>
#include <string>

#include "Platform/Text/Modules/PdfModule.h"

namespace platform {

/// Passes the first complaint on, which tells most: damaged files draw one for each of their bytes.
/// Until the file is open, it may still be refused, which says enough.
class PdfComplaints {
public:
    explicit PdfComplaints(PdfLog log) : log_(log) {}

    /// Nothing is thrown: code in C lies between here and who would want to know.
    void take(const char* line) noexcept {
        if (hasSome_) {
            return;
        }
        hasSome_ = true;
        try {
            first_ = std::string("PDF: ") + line;
            if (isOpen_) {
                passOn();
            }
        } catch (const std::bad_alloc&) {
            first_.clear();
        }
    }

    void fileIsOpen() {
        isOpen_ = true;
        if (hasSome_) {
            passOn();
        }
    }

private:
    void passOn() const { log_(first_.data(), first_.size()); }

    PdfLog log_;
    std::string first_;
    bool hasSome_ = false;
    bool isOpen_ = false;
};

}  // namespace platform
