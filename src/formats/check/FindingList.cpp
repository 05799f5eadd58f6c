#include "formats/check/FindingList.h"

#include <algorithm>
#include <utility>

namespace korvane {

void FindingList::add(FindingId id, TextPlace place, std::string text) {
    std::size_t& count = counts_[static_cast<std::size_t>(id)];
    ++count;
    if (count <= maxPerKind) {
        entries_.push_back({place, {id, 0, std::move(text)}});
    } else if (count == maxPerKind + 1) {
        more_[static_cast<std::size_t>(id)] = place;
    }
}

std::vector<Finding> FindingList::finish() {
    for (const FindingRow& row : findingRows()) {
        const auto id = static_cast<std::size_t>(row.id);
        if (counts_[id] > maxPerKind) {
            const std::size_t more = counts_[id] - maxPerKind;
            entries_.push_back(
                {more_[id], {row.id, 0, std::to_string(more) + " more of the same"}});
        }
    }
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](const Entry& a, const Entry& b) { return a.place < b.place; });
    std::vector<Finding> findings;
    findings.reserve(entries_.size());
    std::size_t line = 1;
    TextPlace counted = 0;
    for (Entry& entry : entries_) {
        if (entry.place != nowhere) {
            const TextPlace place = std::min(entry.place, bytes_.size());
            line += static_cast<std::size_t>(
                std::count(bytes_.begin() + static_cast<std::ptrdiff_t>(counted),
                           bytes_.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
            counted = place;
            entry.finding.line = line;
        }
        findings.push_back(std::move(entry.finding));
    }
    return findings;
}

std::string quoted(std::string_view name) {
    constexpr std::size_t longest = 80;
    if (name.size() <= longest) {
        return '"' + std::string(name) + '"';
    }
    std::size_t end = longest;
    while (end > longest - 4 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) {
        --end; // do not split a UTF-8 character
    }
    return '"' + std::string(name.substr(0, end)) + "...\"";
}

std::string andMore(std::size_t count) {
    return count > 1 ? " (and " + std::to_string(count - 1) + " more)" : std::string();
}

} // namespace korvane
