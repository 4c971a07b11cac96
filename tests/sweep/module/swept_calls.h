#pragma once
/// @file  Each method of `IKolmFluxorPropertySet` with good arguments, and what a fault may make of it.

#include <functional>
#include <string>
#include <vector>

#include "module/slot_cases.h"

namespace kolmfluxor::test {

struct SweptCall {
    std::string name{};
    std::function<HRESULT(IKolmFluxorPropertySet&, COutputs&)> call{};
    /// On a driver that answers scripted words; else on the simulated camera itself.
    bool scripted = false;
    HRESULT result = S_OK;  ///< without a fault
    /// Of the outputs, in their order, when the first request fails; a later one may find some of them written.
    std::vector<ULONG> afterFailure{};
    /// Whether the method goes on after the failure of its n-th request, here `request`.
    std::function<bool(std::size_t n, const CWireRequest& request)> tolerates{};
};

/// One entry a slot: the rows of the table of slots, and the calls of those that have tests of their own.
[[nodiscard]] std::vector<SweptCall> SweptCalls();

}  // namespace kolmfluxor::test
