#include "design/shown_parts.h"

#include <algorithm>
#include <utility>

namespace kelvro {

const ShownPart* ShownParts::find(const PartKey& key) const {
    const auto at = std::ranges::find(parts_, key, &ShownPart::key);
    return at == parts_.end() ? nullptr : &*at;
}

void ShownParts::set(const ShownPart& part) {
    const auto at = std::ranges::find(parts_, part.key, &ShownPart::key);
    if (at != parts_.end()) {
        *at = part;
        return;
    }
    constexpr std::size_t mostOfAPage = 8;
    if (parts_.empty()) parts_.reserve(mostOfAPage);
    // By page and slot, so that what is written in another order, as from a file, is the same.
    const auto place = [](const ShownPart& other) {
        return std::pair(other.key.page, other.key.slot);
    };
    parts_.insert(std::ranges::upper_bound(parts_, place(part), {}, place), part);
}

void ShownParts::clear(int page) {
    std::erase_if(parts_, [page](const ShownPart& part) { return part.key.page == page; });
}

}  // namespace kelvro
