#include "registers.h"

#include <registers/catalogue.h>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr std::size_t kHintWidth = 100;
constexpr std::size_t kMostNames = 12;  // more are no help

/// Names of the catalogue that hold the text.
std::string SimilarNames(const std::string& text) {
    std::vector<std::string> names;
    for (const kolmfluxor::CatalogueEntry& entry : kolmfluxor::Catalogue()) {
        if (ContainsWithoutCase(ToUtf16(entry.name), ToUtf16(text))) {
            names.emplace_back(entry.name);
        }
    }
    if (names.empty() || names.size() > kMostNames) {
        return "\"kolmctl reg dump\" lists the names; any other register goes by its address, 0x...";
    }
    return Wrap("names that hold it are " + Join(names, ", "), kHintWidth);
}

}  // namespace

std::string RegisterAddress::Text() const {
    return name.empty() ? Hex32(address) : name + " (" + Hex32(address) + ")";
}

RegisterAddress ParseRegister(const std::string& text) {
    if (const auto address = ParseNumber(text)) {
        const kolmfluxor::CatalogueEntry* const known = kolmfluxor::FindRegister(*address);
        return {*address, known != nullptr ? known->name : ""};
    }
    const kolmfluxor::CatalogueEntry* const named = kolmfluxor::FindRegister(std::string_view(text));
    if (named == nullptr) {
        throw UsageError("unknown register \"" + text + "\"", SimilarNames(text));
    }
    return {named->address, named->name};
}

std::uint32_t ReadRegister(kolmfluxor::IKolmFluxorPropertySet& camera, const RegisterAddress& from) {
    ULONG value = 0;
    Check(camera.ReadRegister(from.address, &value), "cannot read register " + from.Text());
    return value;
}

}  // namespace kolmctl
