#include "driver/register_access.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

#include "driver/direct_property.h"
#include "driver/property_table.h"

namespace kolmfluxor {
namespace {

constexpr ULONG kBlockId = 62;

/// What stands before a block's data.
struct BlockHeader {
    KSPROPERTY property;
    ULONG address;
    ULONG control;
    ULONG sizeBytes;  // of the data
};
constexpr std::size_t kDataOffset = offsetof(BlockHeader, sizeBytes) + sizeof(ULONG);
static_assert(kDataOffset == 36 && offsetof(BlockHeader, address) == 24 && offsetof(BlockHeader, control) == 28);

constexpr ULONG kControlPlain = 17;
constexpr ULONG kControlRead1 = 18;
constexpr ULONG kControlFlag = 0x10000;

/// A block record on the heap: the header and the data behind it, zeroed.
class CBlockRecord {
public:
    /// @return  `E_INVALIDARG` when the record's size does not fit 32 bits, `E_OUTOFMEMORY`
    HRESULT Make(ULONG address, ULONG control, ULONG quadlets) {
        const std::uint64_t dataSize = std::uint64_t{quadlets} * 4;
        if (dataSize + kDataOffset > std::numeric_limits<ULONG>::max()) return E_INVALIDARG;
        m_size = static_cast<std::size_t>(dataSize) + kDataOffset;
        m_bytes.reset(new (std::nothrow) std::byte[m_size]());
        if (m_bytes == nullptr) return E_OUTOFMEMORY;
        BlockHeader header{};
        header.address = address;
        header.control = control;
        header.sizeBytes = static_cast<ULONG>(dataSize);
        std::memcpy(m_bytes.get(), &header, kDataOffset);
        return S_OK;
    }
    [[nodiscard]] std::span<std::byte> Bytes() const { return {m_bytes.get(), m_size}; }
    [[nodiscard]] std::span<std::byte> Data() const { return Bytes().subspan(kDataOffset); }

private:
    std::unique_ptr<std::byte[]> m_bytes;
    std::size_t m_size = 0;
};

/// Reverses the bytes of each whole element.
void SwapElements(std::span<std::byte> data, std::size_t elementBytes) {
    for (; data.size() >= elementBytes; data = data.subspan(elementBytes))
        std::ranges::reverse(data.first(elementBytes));
}

}  // namespace

HRESULT CRegisterAccess::Read(ULONG address, ULONG* value) const {
    const HRESULT hr = CDirectProperties(m_transport).Get(property::kRegister, {value}, {address});
    if (FAILED(hr) && value != nullptr) *value = 0xFFFFFFFF;
    return hr;
}

HRESULT CRegisterAccess::Write(ULONG address, ULONG value) const {
    return CDirectProperties(m_transport).Set(property::kRegister, {address, value});
}

HRESULT CRegisterAccess::WriteBlock(ULONG address, const void* data, ULONG quadlets, ULONG elementBits,
                                    ULONG mode) const {
    if (data == nullptr) return E_POINTER;
    CBlockRecord record;
    const HRESULT hr = record.Make(address, kControlPlain, quadlets);
    if (FAILED(hr)) return hr;
    std::memcpy(record.Data().data(), data, record.Data().size());
    if (mode == 1 && (elementBits == 16 || elementBits == 32)) SwapElements(record.Data(), elementBits / 8);
    return m_transport.Send(RequestKind::set, kBlockId, record.Bytes());
}

HRESULT CRegisterAccess::ReadBlock(ULONG address, void* data, ULONG quadlets, ULONG mode, ULONG flag) const {
    if (data == nullptr) return E_POINTER;
    const ULONG control = (mode == 1 ? kControlRead1 : kControlPlain) | (flag == 1 ? kControlFlag : 0);
    CBlockRecord record;
    HRESULT hr = record.Make(address, control, quadlets);
    if (FAILED(hr)) return hr;
    hr = m_transport.Send(RequestKind::get, kBlockId, record.Bytes());
    if (SUCCEEDED(hr)) std::memcpy(data, record.Data().data(), record.Data().size());
    return hr;
}

}  // namespace kolmfluxor
