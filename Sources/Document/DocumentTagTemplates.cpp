// The part of Document that changes the list of tag templates.

#include <memory>
#include <utility>

#include "Platform/Foundation/ArrayIndexes.h"
#include "Platform/Foundation/Bundle.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Platform/Foundation/Unicode.h"
#include "Sources/Document/Document.h"
#include "Sources/Document/DocumentNotifications.h"

namespace parlavox {

using platform::Array;
using platform::Dictionary;
using platform::IndexSet;
using platform::Value;

namespace {

Value valueOf(const IndexSet& indexes) {
    return Value(std::static_pointer_cast<const platform::Object>(
        std::make_shared<const IndexSet>(indexes)));
}

}  // namespace

void Document::insertCustomTagTemplates(const Array& templates, const IndexSet& atIndexes,
                                        const std::string& withUndoActionName) {
    if (atIndexes.isEmpty() && !templates.empty()) {
        return;
    }
    registerUndoOfTemplates(
        withUndoActionName, [atIndexes, withUndoActionName](Document& document) {
            document.removeCustomTagTemplatesAtIndexes(atIndexes, withUndoActionName);
        });
    Array changed = customTagTemplates_.value_or(Array());
    platform::insertObjects(changed, templates, atIndexes);
    setCustomTagTemplates(std::move(changed),
                          {{kDocumentNewCustomTagTemplatesKey, Value(templates)},
                           {kDocumentIndexSetKey, valueOf(atIndexes)}});
}

void Document::removeCustomTagTemplatesAtIndexes(const IndexSet& indexes,
                                                 const std::string& withUndoActionName) {
    Array changed = customTagTemplates_.value_or(Array());
    registerUndoOfTemplates(
        withUndoActionName, [templates = platform::objectsAtIndexes(changed, indexes), indexes,
                             withUndoActionName](Document& document) {
            document.insertCustomTagTemplates(templates, indexes, withUndoActionName);
        });
    platform::removeObjectsAtIndexes(changed, indexes);
    setCustomTagTemplates(std::move(changed), {{kDocumentIndexSetKey, valueOf(indexes)}});
}

void Document::moveCustomTagTemplateAtIndex(std::uint64_t index, std::uint64_t toIndex,
                                            const std::string& withUndoActionName) {
    registerUndoOfTemplates(
        withUndoActionName, [index, toIndex, withUndoActionName](Document& document) {
            document.moveCustomTagTemplateAtIndex(toIndex, index, withUndoActionName);
        });
    Array changed = customTagTemplates_.value_or(Array());
    Value moved = platform::objectAtIndex(changed, index);
    platform::removeObjectAtIndex(changed, index);
    platform::insertObject(changed, std::move(moved), toIndex);
    setCustomTagTemplates(std::move(changed),
                          {{kDocumentOldIndexOfCustomTagTemplateKey, Value(index)},
                           {kDocumentNewIndexOfCustomTagTemplateKey, Value(toIndex)}});
}

void Document::registerUndoOfTemplates(const std::string& actionName,
                                       std::function<void(Document&)> undo) {
    const auto manager = undoManager();
    if (manager == nullptr) {
        return;
    }
    manager->registerUndoWithTarget(this, [weak = weak_from_this(), undo = std::move(undo)] {
        if (const auto document = std::static_pointer_cast<Document>(weak.lock())) {
            undo(*document);
        }
    });
    if (!actionName.empty()) {
        manager->setActionName(platform::utf16FromUtf8Lossy(
            platform::Bundle::mainBundle()->localizedStringForKey(actionName, "", "")));
    }
}

void Document::setCustomTagTemplates(Array templates, Dictionary userInfo) {
    customTagTemplates_ = std::move(templates);
    platform::NotificationCenter::defaultCenter().postNotificationName(
        DocumentCustomTagTemplatesDidChangeNotification, this, std::move(userInfo));
}

}  // namespace parlavox
