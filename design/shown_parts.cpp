#include "design/shown_parts.h"

#include <algorithm>

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
    const auto behind = std::ranges::upper_bound(
        parts_, part.key.page, {}, [](const ShownPart& other) { return other.key.page; });
    parts_.insert(behind, part);
}

void ShownParts::clear(int page) {
    std::erase_if(parts_, [page](const ShownPart& part) { return part.key.page == page; });
}

}  // namespace kelvro
