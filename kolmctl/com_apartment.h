#pragma once
/// @file  COM on a thread.

namespace kolmctl {

/// Single-threaded COM on this thread for as long as it lives.
class ComApartment {
public:
    /// @throws CallError
    ComApartment();
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
};

}  // namespace kolmctl
