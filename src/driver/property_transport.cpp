#include "driver/property_transport.h"

#include <cstring>

#include <kolmfluxor/identifiers.h>

namespace kolmfluxor {

HRESULT CPropertyTransport::Send(RequestKind kind, ULONG id, std::span<std::byte> record) const {
    KSPROPERTY header{};
    header.Set = PROPSETID_KolmFluxor;
    header.Id = id;
    header.Flags = static_cast<ULONG>(kind);
    std::memcpy(record.data(), &header, sizeof header);

    const auto size = static_cast<ULONG>(record.size());
    ULONG returned = 0;
    return ::KsSynchronousDeviceControl(m_device, IOCTL_KS_PROPERTY, record.data(), size, record.data(), size,
                                        &returned);
}

}  // namespace kolmfluxor
