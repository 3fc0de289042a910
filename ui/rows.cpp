#include "ui/rows.h"

#include <functional>
#include <nlohmann/json.hpp>
#include <utility>

#include "ui/difference.h"

namespace ui {

nlohmann::json Rows::rowsForm() const {
    nlohmann::json rows = nlohmann::json::array();
    for (std::size_t row = 0; row < rowCount(); ++row) rows.push_back(rowForm(row));
    return rows;
}

std::uint64_t Rows::hashOf(const std::vector<std::string>& cells) {
    std::string all;
    for (const std::string& cell : cells) all.append(cell).push_back('\0');
    return std::hash<std::string>()(all);
}

std::vector<std::uint64_t> ToldRows::hashesOf(const Rows& rows) {
    std::vector<std::uint64_t> hashes(rows.rowCount());
    for (std::size_t row = 0; row < hashes.size(); ++row) hashes[row] = rows.rowHash(row);
    return hashes;
}

nlohmann::json ToldRows::news(const Rows& rows) {
    const auto before = std::exchange(hashes_, hashesOf(rows));
    const auto splices = difference(before, hashes_);
    if (splices.empty()) return nullptr;
    std::size_t come = 0;
    for (const Splice& splice : splices) come += splice.come;
    if (come == hashes_.size()) return rows.rowsForm();
    nlohmann::json list = nlohmann::json::array();
    for (const Splice& splice : splices) {
        nlohmann::json forms = nlohmann::json::array();
        for (std::size_t row = splice.at; row < splice.at + splice.come; ++row) forms.push_back(rows.rowForm(row));
        list.push_back({{"from", splice.from}, {"gone", splice.gone}, {"come", std::move(forms)}});
    }
    return {{"splices", std::move(list)}};
}

}  // namespace ui
