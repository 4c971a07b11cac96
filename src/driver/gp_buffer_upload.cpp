#include "driver/gp_buffer_upload.h"

#include <algorithm>
#include <cstdint>
#include <tuple>

#include "driver/camera_registers.h"

namespace kolmfluxor {
namespace {

namespace reg = camera_register;

constexpr ULONG kConvert = 1;
constexpr ULONG kBytes = 8;
constexpr ULONG kWords16 = 16;

/// The size of one block: what fits the GP buffer, in quadlets.
HRESULT ReadBlockSize(const CRegisterAccess& registers, ULONG* blockQuadlets) {
    ULONG info = 0;
    const HRESULT hr = registers.Read(reg::kGpBufferInfo, &info);
    if (FAILED(hr)) return hr;
    *blockQuadlets = reg::gp_buffer_info::kBufferSize.Of(info) / 4;
    return *blockQuadlets > 0 ? hr : E_FAIL;  // without a buffer an upload would never end
}

/// Where an upload goes: a memory control register, and the bit that opens the memory for writing.
struct Destination {
    ULONG controlRegister;
    BitRange enableWrite;
    ULONG elementBits;
};

/// Opens the memory with `control`, sends the data block by block, and closes the memory again.
///
/// The camera may end the transfer early by closing the memory itself. A failed access to the control register ends it
/// at once, with the memory as it is.
HRESULT Upload(const CRegisterAccess& registers, const Destination& to, ULONG control, const ULONG* data,
               ULONG quadlets, ULONG blockQuadlets) {
    HRESULT hr = registers.Write(to.controlRegister, to.enableWrite.Put(control, 1));
    if (FAILED(hr)) return hr;

    while (quadlets > 0) {
        const ULONG block = std::min(blockQuadlets, quadlets);
        std::ignore = registers.WriteBlock(reg::kGpBuffer, data, block, to.elementBits, kConvert);  // the state tells
        data += block;
        quadlets -= block;
        ULONG state = 0;
        hr = registers.Read(to.controlRegister, &state);
        if (FAILED(hr)) return hr;
        if (to.enableWrite.Of(state) == 0) break;
    }
    return registers.Write(to.controlRegister, to.enableWrite.Put(control, 0));
}

}  // namespace

HRESULT UploadLut(const CRegisterAccess& registers, const ULONG* data, ULONG quadlets, ULONG lutNumber) {
    if (data == nullptr) return E_POINTER;
    ULONG blockQuadlets = 0;
    HRESULT hr = ReadBlockSize(registers, &blockQuadlets);
    if (FAILED(hr)) return hr;
    ULONG lutControl = 0;
    hr = registers.Read(reg::kKolmLUTCtrl, &lutControl);
    if (FAILED(hr)) return hr;
    ULONG info = 0;
    hr = registers.Read(reg::kKolmLUTInfo, &info);
    if (FAILED(hr)) return hr;

    if (reg::lut_info::kMaxLutSize.Of(info) < std::uint64_t{quadlets} * 4) return E_INVALIDARG;
    // Compatibility: a number equal to the count of tables passes. Callers number the tables from 1 as well as from 0.
    if (reg::lut_info::kNumberOfLuts.Of(info) < lutNumber) return E_INVALIDARG;
    const ULONG bitsPerValue = reg::lut_info::kBitsPerValue.Of(info);
    if (bitsPerValue > 16) return E_FAIL;

    ULONG control = 0;
    std::ignore = registers.Read(reg::kKolmLUTMemCtrl, &control);  // unread it counts as all ones
    control = reg::lut_mem_ctrl::kAddressOffset.Put(control, 0);
    control = reg::lut_mem_ctrl::kLutNr.Put(control, lutNumber);
    const Destination lutMemory = {.controlRegister = reg::kKolmLUTMemCtrl,
                                   .enableWrite = reg::lut_mem_ctrl::kEnableMemWr,
                                   .elementBits = bitsPerValue > 8 ? kWords16 : kBytes};
    hr = Upload(registers, lutMemory, control, data, quadlets, blockQuadlets);
    if (FAILED(hr)) return hr;
    return registers.Write(reg::kKolmLUTCtrl, lutControl);
}

HRESULT ReadShadingInfo(const CRegisterAccess& registers, ULONG* maxChannel, ULONG* quadlets) {
    if (maxChannel == nullptr || quadlets == nullptr) return E_POINTER;
    ULONG info = 0;
    const HRESULT hr = registers.Read(reg::kKolmShadingInfo, &info);
    if (FAILED(hr)) return hr;
    *maxChannel = reg::shading_info::kMaxMemChannel.Of(info);
    *quadlets = reg::shading_info::kMaxImageSize.Of(info) / 4;
    return hr;
}

HRESULT UploadShading(const CRegisterAccess& registers, const ULONG* data, ULONG quadlets) {
    if (data == nullptr) return E_POINTER;
    ULONG blockQuadlets = 0;
    HRESULT hr = ReadBlockSize(registers, &blockQuadlets);
    if (FAILED(hr)) return hr;
    ULONG maxChannel = 0;
    ULONG maxQuadlets = 0;
    hr = ReadShadingInfo(registers, &maxChannel, &maxQuadlets);
    if (FAILED(hr)) return hr;
    if (quadlets > maxQuadlets) return E_INVALIDARG;

    ULONG control = 0;
    std::ignore = registers.Read(reg::kKolmShadingMemCtrl, &control);  // unread it counts as all ones
    control = reg::shading_mem_ctrl::kAddressOffset.Put(control, 0);
    const Destination shadingMemory = {.controlRegister = reg::kKolmShadingMemCtrl,
                                       .enableWrite = reg::shading_mem_ctrl::kEnableMemWrite,
                                       .elementBits = kBytes};
    return Upload(registers, shadingMemory, control, data, quadlets, blockQuadlets);
}

}  // namespace kolmfluxor
