#include "Platform/Text/TextAttachment.h"

#include "Platform/Foundation/FileWrapperSerialization.h"
#include "Platform/Foundation/KeyedArchiver.h"

namespace platform {
namespace {

constexpr char kFileWrapper[] = "NSFileWrapper";
constexpr char kFileWrapperData[] = "NSFileWrapperData";

/// The bytes of an archived file wrapper; nothing when the value is none.
std::optional<Data> serializedFile(const Value& value) {
    const auto object = value.object();
    const auto* const wrapper = dynamic_cast<const OpaqueObject*>(object.get());
    const Value bytes = wrapper != nullptr ? (*wrapper)[kFileWrapperData] : Value();
    return bytes.data() != nullptr ? std::optional(*bytes.data()) : std::nullopt;
}

}  // namespace

TextAttachment::TextAttachment(const FileWrapper* fileWrapper) {
    if (fileWrapper != nullptr) {
        file_ = serializedRepresentationOf(*fileWrapper);
    }
}

Result<std::shared_ptr<const TextAttachment>> TextAttachment::fromArchived(
    std::shared_ptr<const OpaqueObject> archived, BuildBudget&) {
    auto file = serializedFile((*archived)[kFileWrapper]);
    return std::shared_ptr<const TextAttachment>(
        new TextAttachment(std::move(archived), std::move(file)));
}

std::shared_ptr<const TextAttachment> TextAttachment::ofUnreadFile(
    std::shared_ptr<const FileWrapper> fileWrapper) {
    return std::shared_ptr<const TextAttachment>(new TextAttachment(std::move(fileWrapper)));
}

const std::optional<Data>& TextAttachment::file() const {
    if (unread_ != nullptr) {
        std::call_once(isTakenOver_, [this] { file_ = serializedRepresentationOf(*unread_); });
    }
    return file_;
}

std::shared_ptr<FileWrapper> TextAttachment::fileWrapper() const {
    if (!file()) {
        return nullptr;
    }
    auto wrapper = fileWrapperFromSerializedRepresentation(*file());
    return wrapper ? std::move(wrapper).value() : nullptr;
}

std::shared_ptr<const ArchivedClassNames> TextAttachment::ownClass() const {
    return classNamed({"NSTextAttachment", "NSObject"});
}

void TextAttachment::encodeFields(KeyedArchiver& coder) const {
    Value wrapper;
    if (file()) {
        wrapper = Value(OpaqueObject::make({"NSFileWrapper", "NSObject"},
                                           {{kFileWrapperData, *file(), FieldForm::Reference}}));
    }
    coder.encodeObject(wrapper, kFileWrapper);
    coder.encodeObject(Value(), "NSCell");
}

}  // namespace platform
