// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/tsv.h"

#include <zlib.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace quode::places {
namespace {

struct CloseFile {
    void operator()(gzFile_s* file) const { gzclose(file); }
};

// zlib reads plain files as they are.
std::string contents(const std::filesystem::path& path) {
    const std::unique_ptr<gzFile_s, CloseFile> file(gzopen(path.c_str(), "rb"));
    if (!file) throw std::runtime_error("cannot open " + path.string());
    std::string text;
    std::array<char, 1 << 16> buffer;
    int count = 0;
    while ((count = gzread(file.get(), buffer.data(), buffer.size())) > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    int state = Z_OK;
    gzerror(file.get(), &state);
    if (count < 0 || (state != Z_OK && state != Z_STREAM_END)) throw std::runtime_error("cannot read " + path.string());
    return text;
}

std::vector<std::string> cells(std::string_view line) {
    std::vector<std::string> row;
    for (;;) {
        const std::size_t tab = line.find('\t');
        row.emplace_back(line.substr(0, tab));
        if (tab == std::string_view::npos) return row;
        line.remove_prefix(tab + 1);
    }
}

}  // namespace

std::vector<std::vector<std::string>> readTable(const std::filesystem::path& file, std::size_t columns) {
    const std::string text = contents(file);
    std::vector<std::vector<std::string>> rows;
    std::string_view rest = text;
    for (std::size_t line = 1; !rest.empty(); ++line) {
        const std::size_t end = rest.find('\n');
        std::vector<std::string> row = cells(rest.substr(0, end));
        if (row.size() != columns) {
            throw std::runtime_error(file.string() + ", line " + std::to_string(line) + ": " +
                                     std::to_string(row.size()) + " columns instead of " + std::to_string(columns));
        }
        if (line > 1) rows.push_back(std::move(row));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    if (rows.empty()) throw std::runtime_error(file.string() + " holds no rows");
    return rows;
}

}  // namespace quode::places
