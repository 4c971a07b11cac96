#include "registers/catalogue.h"

#include <algorithm>

namespace kolmfluxor {
namespace {

constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualWithoutCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, Lower, Lower);
}

/// The first entry that passes a test; null when none does.
template <class Test> const CatalogueEntry* First(Test&& test) {
    const auto entries = Catalogue();
    const auto found = std::ranges::find_if(entries, test);
    return found != entries.end() ? &*found : nullptr;
}

}  // namespace

const CatalogueEntry* FindRegister(std::string_view name) {
    return First([&](const CatalogueEntry& entry) { return EqualWithoutCase(entry.name, name); });
}

const CatalogueEntry* FindRegister(std::uint32_t address) {
    return First([&](const CatalogueEntry& entry) { return entry.address == address; });
}

}  // namespace kolmfluxor
