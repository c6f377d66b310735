// A file inside a text: the value of the attribute "NSAttachment".
//
// The text has U+FFFC at its place. Immutable; any thread at once.

#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/PreservedObject.h"
#include "Platform/Foundation/Result.h"

namespace platform {

/// The name of the attribute.
inline constexpr char kAttachmentAttributeName[] = "NSAttachment";

/// The character that stands for an attachment in a text.
inline constexpr char16_t kAttachmentCharacter = 0xFFFC;

/// A file or folder that a text shows at one place.
class TextAttachment final : public PreservedObject {
public:
    /// Makes an attachment of the tree `fileWrapper` as it is now; null makes one without a file.
    ///
    /// Selector: initWithFileWrapper:
    explicit TextAttachment(const FileWrapper* fileWrapper);

    /// Returns an attachment of a tree that is taken over when its file is first asked for; nobody
    /// else may use it from now on.
    [[nodiscard]] static std::shared_ptr<const TextAttachment> ofUnreadFile(
        std::shared_ptr<const FileWrapper> fileWrapper);

    /// Returns the attachment that `archived` is; also one without a file, or with one in no known
    /// form. Costs nothing of the budget.
    static Result<std::shared_ptr<const TextAttachment>> fromArchived(
        std::shared_ptr<const OpaqueObject> archived, BuildBudget& budget);

    /// Returns the attached file, a copy of its own that shares the bytes; null when there is none
    /// that can be read.
    ///
    /// Selector: fileWrapper
    [[nodiscard]] std::shared_ptr<FileWrapper> fileWrapper() const;

private:
    TextAttachment(std::shared_ptr<const OpaqueObject> archived, std::optional<Data> file)
        : PreservedObject(std::move(archived)), file_(std::move(file)) {}

    explicit TextAttachment(std::shared_ptr<const FileWrapper> unread)
        : unread_(std::move(unread)) {}

    [[nodiscard]] std::shared_ptr<const ArchivedClassNames> ownClass() const override;
    void encodeFields(KeyedArchiver& coder) const override;
    [[nodiscard]] const std::optional<Data>& file() const;

    /// The tree of wrappers, serialized; when there is an unread one, once that was taken over.
    mutable std::optional<Data> file_;
    std::shared_ptr<const FileWrapper> unread_;
    mutable std::once_flag isTakenOver_;
};

}  // namespace platform
