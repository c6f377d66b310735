#include "Host/OutputText.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

#include "Platform/Foundation/Unicode.h"

namespace host {
namespace {

// NUL ends the text for many readers; U+FFFC stands where a document holds an attachment.
constexpr std::string_view kNul("\0", 1);
constexpr std::string_view kReplacedObject("\xEF\xBF\xBC");

std::string withoutAny(std::string text, std::string_view form) {
    std::size_t at = text.find(form);
    if (at == std::string::npos) {
        return text;
    }
    std::string kept;
    std::size_t begin = 0;
    for (; at != std::string::npos; at = text.find(form, begin)) {
        kept.append(text, begin, at - begin);
        begin = at + form.size();
    }
    return kept.append(text, begin);
}

double millisecondsOf(std::chrono::nanoseconds duration) {
    return std::round(static_cast<double>(duration.count()) / 1e3) / 1e3;
}

}  // namespace

std::string utf8ForOutput(std::u16string_view text) {
    return withoutAny(withoutAny(platform::utf8FromUtf16(text), kNul), kReplacedObject);
}

std::string errorLine(std::string_view subject, std::string_view message) {
    std::string line = "pvindex: ";
    line.append(subject).append(": ").append(message);
    for (char& unit : line) {
        if ((unit >= '\0' && unit < ' ') || unit == '\x7F') {
            unit = '?';
        }
    }
    return line + '\n';
}

std::string jsonLine(const FileOutcome& outcome) {
    nlohmann::ordered_json object;
    object["path"] = outcome.path;
    object["type"] = nullptr;
    if (!outcome.type.empty()) {
        object["type"] = outcome.type;
    }
    object["ok"] = outcome.ok;
    object["milliseconds"] = millisecondsOf(outcome.duration);
    if (outcome.ok) {
        object["text"] = outcome.text;
    } else {
        object["error"] = outcome.error;
    }
    constexpr auto kReplace = nlohmann::ordered_json::error_handler_t::replace;
    return object.dump(-1, ' ', false, kReplace) + '\n';
}

}  // namespace host
