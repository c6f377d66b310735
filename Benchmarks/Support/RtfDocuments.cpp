#include "Benchmarks/Support/RtfDocuments.h"

#include <string>

namespace bench {

platform::Data rtfDocument(const RtfShape& shape, std::size_t size) {
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1251\\uc1\\deff0{\\fonttbl{\\f0\\fswiss Helvetica;}"
        "{\\f1\\froman Times;}{\\f2\\fcharset128 Mincho;}}{\\colortbl;\\red0\\green0\\blue0;}\n";
    while (rtf.size() < size) {
        rtf += shape.piece;
    }
    return platform::Data::adopt(rtf + "}");
}

}  // namespace bench
