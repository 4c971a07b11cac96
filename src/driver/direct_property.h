#pragma once
/// @file  Properties that are one request with a record of its own: described by rows, sent by two functions.

#include <array>
#include <cstddef>
#include <initializer_list>

#include "driver/flag_word.h"
#include "driver/property_transport.h"

namespace kolmfluxor {

/// Byte offsets in a record, at most 12, in the order of the arguments that they belong to.
class Offsets {
public:
    constexpr Offsets() = default;
    constexpr Offsets(std::initializer_list<ULONG> offsets) : m_count(offsets.size()) {
        std::size_t i = 0;
        for (const ULONG offset : offsets)
            m_at[i++] = offset;
    }
    [[nodiscard]] constexpr std::size_t Count() const { return m_count; }
    [[nodiscard]] constexpr ULONG operator[](std::size_t i) const { return m_at[i]; }

private:
    std::array<ULONG, 12> m_at{};
    std::size_t m_count = 0;
};

/// One row: where the arguments of a direct property travel. Offsets count from the start of the header.
struct DirectProperty {
    ULONG id;
    ULONG sizeBytes = 64;          ///< of the whole record
    Offsets in = {};               ///< places of the inputs
    Offsets out = {};              ///< places of the outputs
    std::array<ULONG, 5> flags{};  ///< flags of the word at 28 that a getter returns, before its other outputs
};

/// Sends direct properties. Any thread may call.
class CDirectProperties {
public:
    /// @param transport  must outlive this object
    explicit CDirectProperties(const CPropertyTransport& transport) : m_transport(transport) {}

    using Inputs = std::initializer_list<ULONG>;
    using Outputs = std::initializer_list<ULONG*>;
    using Flags = std::initializer_list<BOOL*>;

    /// Reads a property: the inputs go to their places, on success the outputs come from theirs.
    ///
    /// @return  `E_POINTER`, with nothing sent, when an output is null; else the driver's code
    HRESULT Get(const DirectProperty& property, Outputs outputs, Inputs inputs = {}) const;
    /// The same for a property with flags: `flags` belong to `property.flags`, in order.
    HRESULT GetFlags(const DirectProperty& property, Flags flags, Outputs outputs) const;
    /// Writes a property; on success the outputs, if any, come from the driver's answer.
    HRESULT Set(const DirectProperty& property, Inputs inputs, Outputs outputs = {}) const;

private:
    HRESULT Send(RequestKind kind, const DirectProperty& property, Inputs inputs, Flags flags, Outputs outputs) const;

    const CPropertyTransport& m_transport;
};

}  // namespace kolmfluxor
