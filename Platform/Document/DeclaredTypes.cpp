#include "Platform/Document/DeclaredTypes.h"

#include "Platform/Foundation/Bundle.h"

namespace platform {

std::vector<DeclaredType> declaredTypes() {
    std::vector<DeclaredType> types;
    const Value declared =
        Bundle::mainBundle()->objectForInfoDictionaryKey("CFBundleDocumentTypes");
    const Array none;
    for (const Value& kind : declared.array() != nullptr ? *declared.array() : none) {
        const Dictionary* const entry = kind.dictionary();
        if (entry == nullptr) {
            continue;
        }
        const bool isEditor = (*entry)["CFBundleTypeRole"] == Value(u"Editor");
        const bool isViewer = (*entry)["CFBundleTypeRole"] == Value(u"Viewer");
        const Value names = (*entry)["LSItemContentTypes"];
        for (const Value& name : names.array() != nullptr ? *names.array() : none) {
            if (const auto type = name.utf8()) {
                types.push_back({*type, isEditor || isViewer, isEditor});
            }
        }
    }
    return types;
}

}  // namespace platform
