#include "Host/OutputText.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "Platform/Foundation/Unicode.h"

namespace host {
namespace {

// NUL ends the text for many readers; U+FFFC stands where a document holds an attachment.
constexpr std::u16string_view kDropped(u"\0\xFFFC", 2);

double millisecondsOf(std::chrono::nanoseconds duration) {
    return std::round(static_cast<double>(duration.count()) / 1e3) / 1e3;
}

}  // namespace

std::string utf8ForOutput(std::u16string_view text) {
    std::string output;
    while (!text.empty()) {
        const std::u16string_view piece = text.substr(0, text.find_first_of(kDropped));
        std::string bytes = platform::utf8FromUtf16(piece);
        if (piece.size() == text.size() && output.empty()) {
            return bytes;
        }
        output += bytes;
        text.remove_prefix(piece.size() == text.size() ? text.size() : piece.size() + 1);
    }
    return output;
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
