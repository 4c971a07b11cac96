#pragma once
/// @file  The only door to the camera: one synchronous property request.

#include <span>

#include "driver/property_record.h"

namespace kolmfluxor {

/// Whether a request reads or writes: the header's Flags, of which no other bit is used.
enum class RequestKind : ULONG {
    get = KSPROPERTY_TYPE_GET,
    set = KSPROPERTY_TYPE_SET,
};

/// Sends property requests to one device. Holds no lock: each request is self-contained, and any thread may send.
class CPropertyTransport {
public:
    /// @param device  belongs to the filter and is never closed here; null when there is none
    explicit CPropertyTransport(HANDLE device) noexcept : m_device(device) {}

    /// Stamps the header (Set, Id, Flags) into `record` and sends the whole of it; the driver answers in place.
    ///
    /// @param record  at least a header; its payload is the caller's
    /// @return  the driver's code, unchanged; the count of returned bytes is not looked at
    [[nodiscard]] HRESULT Send(RequestKind kind, ULONG id, std::span<std::byte> record) const;

    /// The same for a record that is a struct.
    template <class Record> [[nodiscard]] HRESULT Send(RequestKind kind, ULONG id, Record& record) const {
        static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) >= sizeof(KSPROPERTY));
        return Send(kind, id, std::as_writable_bytes(std::span<Record, 1>(&record, 1)));
    }

private:
    HANDLE m_device;
};

}  // namespace kolmfluxor
