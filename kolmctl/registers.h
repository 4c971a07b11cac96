#pragma once
/// @file  Camera registers by name or address.

#include <cstdint>
#include <string>

#include <kolmfluxor/property_set.h>

namespace kolmctl {

/// A register that the command line names.
struct RegisterAddress {
    std::uint32_t address;
    std::string name;  ///< empty where the catalogue has none

    /// For messages: name and address.
    [[nodiscard]] std::string Text() const;
};

/// The register of an address such as "0xF0F00800", or of a name of the catalogue.
///
/// @throws UsageError for a name that the catalogue does not have
[[nodiscard]] RegisterAddress ParseRegister(const std::string& text);

/// @throws CallError when the camera refuses
[[nodiscard]] std::uint32_t ReadRegister(kolmfluxor::IKolmFluxorPropertySet& camera, const RegisterAddress& from);

}  // namespace kolmctl
