#include "Platform/Foundation/KeyedUnarchiver.h"

#include <string>
#include <utility>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/FoundationCoding.h"
#include "Platform/Foundation/KeyedUnarchiverArchive.h"

namespace platform {
namespace {

[[noreturn]] void raiseUnarchive(const Fault& fault) {
    raise(UnarchiveException(fault.detail));
}

}  // namespace

KeyedUnarchiver::KeyedUnarchiver(const Data& data) {
    auto table = KeyedArchiveTable::open(data);
    if (!table) {
        raiseUnarchive(table.fault());
    }
    archive_ = std::make_unique<Archive>(*this, std::move(table).value());
    addClasses(foundationClasses());
}

KeyedUnarchiver::~KeyedUnarchiver() = default;

std::shared_ptr<KeyedUnarchiver> KeyedUnarchiver::initForReadingWithData(const Data& data) {
    return std::shared_ptr<KeyedUnarchiver>(new KeyedUnarchiver(data));
}

void KeyedUnarchiver::addClasses(std::span<const CodableClass> classes) {
    if (archive_) {
        for (const CodableClass& type : classes) {
            archive_->knownClasses.insert_or_assign(type.name, type.decode);
        }
    }
}

Value KeyedUnarchiver::decodeTopLevel(std::uint64_t number) {
    auto value = archive_->valueOfNumber(number, 0);
    if (!value) {
        raiseUnarchive(value.fault());
    }
    return std::move(value).value();
}

Value KeyedUnarchiver::decodeObject() {
    if (!archive_) {
        return Value();
    }
    const KeyedArchiveTable& table = archive_->table;
    const std::string unkeyed = "$" + std::to_string(archive_->nextUnkeyed);
    if (const auto number = table.valueNumber(table.top(), unkeyed); number && number.value()) {
        ++archive_->nextUnkeyed;
        return decodeTopLevel(*number.value());
    }
    if (const auto number = table.valueNumber(table.top(), "root"); number && number.value()) {
        return decodeTopLevel(*number.value());
    }
    if (table.top().count != 1 || archive_->nextUnkeyed > 0) {
        raise(UnarchiveException("keyed archive without a root object"));
    }
    return decodeTopLevel(table.list().valueAt(table.top(), 0));
}

Value KeyedUnarchiver::decodeObjectForKey(std::string_view key) {
    if (!archive_) {
        return Value();
    }
    const KeyedArchiveTable& table = archive_->table;
    const auto number = table.valueNumber(table.top(), KeyedArchiveTable::spelling(key));
    if (!number) {
        raiseUnarchive(number.fault());
    }
    return number.value() ? decodeTopLevel(*number.value()) : Value();
}

bool KeyedUnarchiver::containsValueForKey(std::string_view key) const {
    if (!archive_) {
        return false;
    }
    const KeyedArchiveTable& table = archive_->table;
    const auto number = table.valueNumber(table.top(), KeyedArchiveTable::spelling(key));
    return number && number.value().has_value();
}

void KeyedUnarchiver::finishDecoding() {
    archive_.reset();
}

}  // namespace platform
