#include "Platform/Text/TextFormat.h"

#include <algorithm>
#include <string>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Foundation/WideText.h"
#include "Platform/Text/ControlCharacters.h"
#include "Platform/Text/RtfReader.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kBlanks = " \t\n\v\f\r";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// What a format demands at an offset.
struct Signature {
    std::string_view bytes;
    DetectedFormat format;
    std::size_t offset = 0;
};

constexpr Signature kSignatures[] = {
    {"%PDF-"sv, {TextFormat::Pdf, "PDF"}},
    {"rtfd\0\0\0\0"sv, {TextFormat::FlatRtfd, "RTFD"}},
    {"PK\x03\x04"sv, {TextFormat::Binary, "a zip archive"}},
    {"PK\x05\x06"sv, {TextFormat::Binary, "a zip archive"}},
    {"\x7F"
     "ELF"sv,
     {TextFormat::Binary, "a program or library"}},
    {"\xCF\xFA\xED\xFE"sv, {TextFormat::Binary, "a program or library"}},
    {"\xCA\xFE\xBA\xBE"sv, {TextFormat::Binary, "a program or library"}},
    {"\x89PNG\r\n"sv, {TextFormat::Binary, "a PNG picture"}},
    {"\xFF\xD8\xFF"sv, {TextFormat::Binary, "a JPEG picture"}},
    {"II*\0"sv, {TextFormat::Binary, "a TIFF picture"}},
    {"MM\0*"sv, {TextFormat::Binary, "a TIFF picture"}},
    {"\x1F\x8B\x08"sv, {TextFormat::Binary, "a gzip file"}},
    {"\xFD"
     "7zXZ\0"sv,
     {TextFormat::Binary, "an xz file"}},
    {"\x28\xB5\x2F\xFD"sv, {TextFormat::Binary, "a zstd file"}},
    {"7z\xBC\xAF\x27\x1C"sv, {TextFormat::Binary, "a 7z archive"}},
    {"Rar!\x1A\x07"sv, {TextFormat::Binary, "a RAR archive"}},
    {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, {TextFormat::Binary, "a compound document"}},
    {"SQLite format 3\0"sv, {TextFormat::Binary, "a database"}},
    {"\0asm\x01\0\0\0"sv, {TextFormat::Binary, "a program or library"}},
    {"\0\x01\0\0\0"sv, {TextFormat::Binary, "a font"}},
};

/// Letters that a text might begin with as well.
constexpr Signature kLetterSignatures[] = {
    {"GIF87a"sv, {TextFormat::Binary, "a GIF picture"}},
    {"GIF89a"sv, {TextFormat::Binary, "a GIF picture"}},
    {"MZ"sv, {TextFormat::Binary, "a program or library"}},
    {"BM"sv, {TextFormat::Binary, "a BMP picture"}},
    {"RIFF"sv, {TextFormat::Binary, "a sound, picture or film"}},
    {"OggS"sv, {TextFormat::Binary, "a sound or film"}},
    {"fLaC"sv, {TextFormat::Binary, "a sound"}},
    {"ID3"sv, {TextFormat::Binary, "a sound"}},
    {"ftyp"sv, {TextFormat::Binary, "a film or picture"}, 4},
    {"BZh"sv, {TextFormat::Binary, "a bzip2 file"}},
    {"bplist0"sv, {TextFormat::Binary, "a binary property list"}},
    {"OTTO"sv, {TextFormat::Binary, "a font"}},
    {"wOFF"sv, {TextFormat::Binary, "a font"}},
    {"wOF2"sv, {TextFormat::Binary, "a font"}},
    {"8BPS"sv, {TextFormat::Binary, "a picture"}},
    {"MSCF"sv, {TextFormat::Binary, "a cabinet archive"}},
    {"ustar"sv, {TextFormat::Binary, "a tar archive"}, 257},
};

constexpr std::string_view kHeadTags[] = {
    "<html", "<head", "<body", "<title", "<meta", "<link", "<base", "<script", "<style",
};

bool hasSignature(std::string_view bytes, const Signature& signature) {
    return bytes.size() >= signature.offset &&
           bytes.substr(signature.offset).starts_with(signature.bytes);
}

/// Whether the first bytes have one that no text in an encoding of bytes has.
bool hasStraySoon(std::string_view bytes) {
    constexpr std::size_t kSoon = 512;
    const std::string_view beginning = bytes.substr(0, kSoon);
    return std::any_of(beginning.begin(), beginning.end(),
                       [](char byte) { return isStrayControl(static_cast<unsigned char>(byte)); });
}

void removeBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

bool startsIgnoringCase(std::string_view text, std::string_view start) {
    return equalIgnoringAsciiCase(text.substr(0, start.size()), start);
}

/// Takes what begins with `open` off the text, to the end of `close`; whether there was one.
bool removeBetween(std::string_view& text, std::string_view open, std::string_view close) {
    if (!text.starts_with(open)) {
        return false;
    }
    const std::size_t end = text.find(close, open.size());
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + close.size());
    return true;
}

/// Whether a tag or a declaration of this name begins the text.
bool startsWithName(std::string_view text, std::string_view name) {
    constexpr std::string_view kBehindName = " \t\n\v\f\r/>";
    return startsIgnoringCase(text, name) && text.size() > name.size() &&
           kBehindName.find(text[name.size()]) != std::string_view::npos;
}

bool isHtml(std::string_view text) {
    do {
        removeBlanks(text);
    } while (removeBetween(text, "<!--", "-->") || removeBetween(text, "<?", "?>"));
    return startsWithName(text, "<!doctype html") ||
           std::any_of(std::begin(kHeadTags), std::end(kHeadTags),
                       [&](std::string_view tag) { return startsWithName(text, tag); });
}

/// The first characters of a text in wide units, with '?' for those that are not ASCII.
std::string beginningOfWideText(std::string_view bytes, const WideMark& mark) {
    constexpr std::size_t kBeginning = 8192;
    const std::u16string text =
        utf16FromWideBytes(bytes.substr(mark.size, kBeginning), mark.encoding);
    std::string ascii(text.size(), '?');
    std::transform(text.begin(), text.end(), ascii.begin(),
                   [](char16_t unit) { return unit < 0x80 ? static_cast<char>(unit) : '?'; });
    return ascii;
}

}  // namespace

DetectedFormat textFormatOfBytes(std::string_view bytes) {
    constexpr DetectedFormat kHtml = {TextFormat::Html, "HTML"};
    constexpr DetectedFormat kPlain = {TextFormat::Plain, "plain text"};
    for (const Signature& signature : kSignatures) {
        if (hasSignature(bytes, signature)) {
            return signature.format;
        }
    }
    for (const Signature& signature : kLetterSignatures) {
        if (hasSignature(bytes, signature) && hasStraySoon(bytes)) {
            return signature.format;
        }
    }
    if (const auto mark = wideMarkOf(bytes)) {
        return isHtml(beginningOfWideText(bytes, *mark)) ? kHtml : kPlain;
    }
    if (isRtf(bytes)) {
        return {TextFormat::Rtf, "RTF"};
    }
    if (bytes.starts_with(kUtf8Mark)) {
        bytes.remove_prefix(kUtf8Mark.size());
    }
    return isHtml(bytes) ? kHtml : kPlain;
}

}  // namespace platform
