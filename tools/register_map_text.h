#pragma once
/// @file  The camera's registers as a document: every named one with its address and its fields.

#include <string>

namespace kolmfluxor {

/// docs/register-map.md, made of the catalogue and the decoders' tables: Markdown, UTF-8, plain line feeds.
[[nodiscard]] std::string RegisterMapText();

}  // namespace kolmfluxor
