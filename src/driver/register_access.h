#pragma once
/// @file  Single registers and blocks of camera memory.
///
/// An address is the low 32 bits of the 1394 address above 0xFFFF 0000 0000.

#include "driver/property_transport.h"

namespace kolmfluxor {

/// Reads and writes the camera's address space. Any thread may call.
class CRegisterAccess {
public:
    /// @param transport  must outlive this object
    explicit CRegisterAccess(const CPropertyTransport& transport) : m_transport(transport) {}

    /// `*value` is 0xFFFFFFFF after a failure of the driver.
    HRESULT Read(ULONG address, ULONG* value) const;
    HRESULT Write(ULONG address, ULONG value) const;

    /// See `IKolmFluxorPropertySet::WriteBlock`.
    HRESULT WriteBlock(ULONG address, const void* data, ULONG quadlets, ULONG elementBits, ULONG mode) const;
    /// See `IKolmFluxorPropertySet::ReadBlock`.
    HRESULT ReadBlock(ULONG address, void* data, ULONG quadlets, ULONG mode, ULONG flag) const;

private:
    const CPropertyTransport& m_transport;
};

}  // namespace kolmfluxor
