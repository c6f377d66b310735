#include "Sources/Document/TextUnarchiver.h"

#include <utility>

#include "Platform/Text/AttributedStringCoding.h"
#include "Sources/Document/PVVoiceIdentifier.h"

namespace parlavox {

TextUnarchiver::TextUnarchiver(TagValues tagValues, const platform::Data& data)
    : KeyedUnarchiver(data), tagValuesDictionary_(std::move(tagValues)) {
    addClasses(platform::attributedTextClasses());
    addClasses(PVVoiceIdentifier::codableClasses());
}

std::shared_ptr<TextUnarchiver> TextUnarchiver::initWithTagValuesDictionary(
    TagValues tagValues, const platform::Data& data) {
    return std::shared_ptr<TextUnarchiver>(new TextUnarchiver(std::move(tagValues), data));
}

}  // namespace parlavox
