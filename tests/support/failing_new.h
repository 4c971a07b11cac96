#pragma once
/// @file  Memory that runs out for `new (std::nothrow)`.

namespace kolmfluxor::test {

/// As long as it lives, `new (std::nothrow)` gives null, for single objects and arrays.
///
/// Only code that is linked into the test program sees it, not a loaded module.
class CFailingNew {
public:
    CFailingNew();
    ~CFailingNew();
    CFailingNew(const CFailingNew&) = delete;
    CFailingNew& operator=(const CFailingNew&) = delete;
};

}  // namespace kolmfluxor::test
