#include "Host/TypeList.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <vector>

namespace host {
namespace {

constexpr std::size_t kColumns = 4;
using Row = std::array<std::string, kColumns>;

std::string joined(const std::vector<std::string>& names, const char* before) {
    std::string text;
    for (const std::string& name : names) {
        text.append(text.empty() ? "" : ", ").append(before).append(name);
    }
    return text;
}

std::vector<Row> rowsOf(const ImporterTypes& types) {
    std::vector<Row> rows;
    for (const std::string& identifier : types.taken()) {
        const DeclaredType type = types.describe(identifier);
        rows.push_back({type.identifier, joined(type.extensions, "."), joined(type.mimeTypes, ""),
                        type.description});
    }
    return rows;
}

std::string lineOf(const Row& row, const std::array<std::size_t, kColumns>& widths) {
    std::string line;
    for (std::size_t i = 0; i < kColumns; ++i) {
        line += row[i];
        line.append(widths[i] - row[i].size() + 2, ' ');
    }
    return line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
}

}  // namespace

std::string typeTable(const ImporterTypes& types) {
    const std::vector<Row> rows = rowsOf(types);
    std::array<std::size_t, kColumns> widths{};
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    std::string table;
    for (const Row& row : rows) {
        table += lineOf(row, widths);
    }
    return table;
}

std::string typeLinesAsJson(const ImporterTypes& types) {
    std::string lines;
    for (const std::string& identifier : types.taken()) {
        const DeclaredType type = types.describe(identifier);
        nlohmann::ordered_json object;
        object["identifier"] = type.identifier;
        object["extensions"] = type.extensions;
        object["mimeTypes"] = type.mimeTypes;
        object["description"] = type.description;
        lines += object.dump() + '\n';
    }
    return lines;
}

}  // namespace host
