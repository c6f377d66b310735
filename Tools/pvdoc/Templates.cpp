#include "Tools/pvdoc/Templates.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/IndexSet.h"
#include "Platform/Foundation/KeyedArchiver.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/OpaqueObject.h"
#include "Sources/Document/Document.h"
#include "Sources/Document/PackageFormat.h"
#include "Tools/pvdoc/Header.h"
#include "Tools/pvdoc/Package.h"
#include "Tools/pvdoc/Report.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

using parlavox::Document;
using platform::Array;
using platform::Fault;
using platform::FaultCode;
using platform::IndexSet;
using platform::KeyedArchiver;
using platform::KeyedUnarchiver;
using platform::Outcome;
using platform::Range;
using platform::Result;
using platform::Value;

namespace {

/// No undo action is named: nobody will see it.
constexpr char kNoName[] = "";

IndexSet indexesFrom(std::uint64_t first, std::uint64_t count) {
    return IndexSet::indexSetWithIndexesInRange(Range{first, count});
}

Result<Array> archivedTemplates(const Package& package) {
    const auto contents = package.contentsOf(parlavox::kTagTemplatesMember);
    if (!contents) {
        return Array();
    }
    const auto damage = [](const std::string& what) {
        return Fault{FaultCode::Malformed,
                     std::string(parlavox::kTagTemplatesMember) + ": " + what};
    };
    try {
        const auto unarchiver = KeyedUnarchiver::initForReadingWithData(*contents);
        const Value root = unarchiver->decodeObject();
        return root.array() != nullptr ? Result<Array>(*root.array())
                                       : damage("its root is no array");
    } catch (const platform::Exception& exception) {
        return damage(exception.reason());
    }
}

std::uint64_t countIn(const Document& document) {
    return document.customTagTemplates() ? document.customTagTemplates()->size() : 0;
}

/// Refuses a place that is not below `end`.
Outcome checkPlace(const Document& document, std::uint64_t place, std::uint64_t end) {
    if (place < end) {
        return platform::done();
    }
    return Fault{FaultCode::Unsupported, "no place " + std::to_string(place) + " in a list of " +
                                             counted(countIn(document), "template")};
}

Outcome insert(Document& document, const TemplatesOptions& options) {
    const std::uint64_t place = options.at.value_or(countIn(document));
    PV_TRY(checkPlace(document, place, countIn(document) + 1));
    Array texts;
    for (const std::string& text : options.inserted) {
        texts.push_back(Value::fromUtf8(text));
    }
    document.insertCustomTagTemplates(texts, indexesFrom(place, texts.size()), kNoName);
    return platform::done();
}

Outcome change(Document& document, const TemplatesOptions& options) {
    if (!options.inserted.empty()) {
        return insert(document, options);
    }
    const std::uint64_t count = countIn(document);
    for (const std::uint64_t place : options.removed) {
        PV_TRY(checkPlace(document, place, count));
    }
    if (!options.removed.empty()) {
        document.removeCustomTagTemplatesAtIndexes(IndexSet(options.removed), kNoName);
        return platform::done();
    }
    PV_TRY(checkPlace(document, *options.moved, count));
    PV_TRY(checkPlace(document, *options.to, count));
    document.moveCustomTagTemplateAtIndex(*options.moved, *options.to, kNoName);
    return platform::done();
}

Outcome write(const Package& package, const Document& document) {
    const Array& templates = *document.customTagTemplates();
    const auto archived =
        templates.empty()
            ? std::nullopt
            : std::optional(KeyedArchiver::archivedDataWithRootObject(Value(templates)));
    return package.writeWith(parlavox::kTagTemplatesMember, archived);
}

std::string describe(const Value& value) {
    const auto object = value.object();
    const auto* const codable = dynamic_cast<const platform::Codable*>(object.get());
    const auto type = codable != nullptr ? codable->archivedClass() : nullptr;
    if (type == nullptr || type->names.empty()) {
        return shown(value);
    }
    const auto* const opaque = dynamic_cast<const platform::OpaqueObject*>(object.get());
    return type->names.front() +
           (opaque != nullptr ? ", " + counted(opaque->fields.size(), "field") : "");
}

std::string listing(const Document& document) {
    std::string lines;
    for (std::uint64_t place = 0; place < countIn(document); ++place) {
        const std::string line = shownInLine(describe((*document.customTagTemplates())[place]));
        lines += fmt::format("{:>6}  {}\n", place, line);
    }
    return lines;
}

Result<std::string> changedListing(const TemplatesOptions& options) {
    const auto package = Package::open(options.file);
    if (!package) {
        return inFile(options.file, package.fault());
    }
    const auto archived = archivedTemplates(package.value());
    if (!archived) {
        return inFile(options.file, archived.fault());
    }
    const auto document = Document::init();
    document->insertCustomTagTemplates(archived.value(), indexesFrom(0, archived.value().size()),
                                       kNoName);
    if (options.isChange()) {
        const Outcome changed = change(*document, options);
        if (!changed) {
            return inFile(options.file, changed.fault());
        }
        PV_TRY(write(package.value(), *document));
    }
    return listing(*document);
}

}  // namespace

Result<std::string> templates(const TemplatesOptions& options) {
    try {
        return changedListing(options);
    } catch (const platform::Exception& exception) {
        return inFile(options.file, {FaultCode::Malformed, exception.reason()});
    }
}

}  // namespace pvdoc
