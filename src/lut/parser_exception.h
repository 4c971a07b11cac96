#pragma once
/// @file  What the CSV reader raises.

#include "base/text_exception.h"

namespace kolmfluxor {

/// Raised for a table whose rows differ in length.
class CParserException final : public CTextException {
public:
    using CTextException::CTextException;
};

}  // namespace kolmfluxor
