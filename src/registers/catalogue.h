#pragma once
/// @file  The camera's registers by name: an ordered list of 358 names and addresses. No Windows header.
///
/// An address is the low 32 bits of the 1394 address above 0xFFFF 0000 0000: IIDC registers from 0xF0F00000 on, those
/// of the camera's maker from 0xF1000000 on. The list is fixed; a camera need not have all of them, and may have
/// others.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kolmfluxor {

struct CatalogueEntry {
    const char* name;  ///< odd spellings belong to the name; no two names are equal, not even without case
    std::uint32_t address;
};

inline constexpr std::size_t kCatalogueSize = 358;

/// All registers, in the catalogue's own order.
[[nodiscard]] std::span<const CatalogueEntry> Catalogue();

/// The register of a name; the case of letters does not count.
///
/// @return  null when there is none
[[nodiscard]] const CatalogueEntry* FindRegister(std::string_view name);

/// The register at an address; null when the catalogue has none there.
[[nodiscard]] const CatalogueEntry* FindRegister(std::uint32_t address);

}  // namespace kolmfluxor
