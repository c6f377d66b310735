#include "Benchmarks/Support/PdfFloor.h"

#include <poppler.h>

#include <cstring>

namespace bench {

std::size_t popplerTextSize(const std::string& bytes) {
    GBytes* const block = g_bytes_new_static(bytes.data(), bytes.size());
    PopplerDocument* const document = poppler_document_new_from_bytes(block, nullptr, nullptr);
    g_bytes_unref(block);
    if (document == nullptr) {
        return 0;
    }
    std::size_t size = 0;
    const int count = poppler_document_get_n_pages(document);
    for (int i = 0; i < count; i++) {
        PopplerPage* const page = poppler_document_get_page(document, i);
        char* const text = poppler_page_get_text(page);
        size += std::strlen(text);
        g_free(text);
        g_object_unref(page);
    }
    g_object_unref(document);
    return size;
}

}  // namespace bench
