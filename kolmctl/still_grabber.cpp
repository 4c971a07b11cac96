#include "still_grabber.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <vfwmsgs.h>

#include <kolmfluxor/identifiers.h>

#include "capture_pin.h"
#include "errors.h"
#include "simulated_camera.h"

namespace kolmctl {
namespace {

using Microsoft::WRL::ComPtr;

/// The device's position in the system's list, which is how the still-image object finds it when names repeat.
ULONG PositionOf(const Device& device) {
    const std::vector<Device> devices = EnumerateDevices();
    const auto found = std::ranges::find(devices, device.displayName, &Device::displayName);
    if (found == devices.end()) {
        throw CallError("the device is gone", VFW_E_NOT_FOUND);
    }
    return static_cast<ULONG>(found - devices.begin());
}

ComPtr<kolmfluxor::IKolmStillImage> CreateStillImage() {
    ComPtr<kolmfluxor::IKolmStillImage> still;
    const HRESULT hr =
        ::CoCreateInstance(kolmfluxor::CLSID_KolmStillImage, nullptr, CLSCTX_INPROC_SERVER,
                           kolmfluxor::IID_IKolmStillImage, reinterpret_cast<void**>(still.GetAddressOf()));
    if (hr != S_OK) {
        throw CallError("cannot create the module's still-image object", hr, HowToRegister());
    }
    return still;
}

/// A bitmap as DirectShow describes it, with its top row first. @param topDown  as it is in `bytes`
Picture ToPicture(const BITMAPINFOHEADER& header, const std::vector<BYTE>& bytes, bool topDown) {
    Picture picture;
    picture.width = static_cast<UINT>(header.biWidth);
    picture.height = static_cast<UINT>(std::abs(header.biHeight));
    picture.pixels.resize(picture.RowBytes() * picture.height);
    const std::size_t pixelBytes = std::size_t{picture.width} * 3;
    // The module's own conversion does not pad rows; a device's 24-bit bitmaps are padded.
    const std::size_t rowBytes = bytes.size() == pixelBytes * picture.height ? pixelBytes : picture.RowBytes();
    if (bytes.size() < rowBytes * picture.height) {
        throw CallError("the picture is smaller than its header says", E_UNEXPECTED);
    }
    for (std::size_t y = 0; y < picture.height; ++y) {
        const std::size_t from = topDown ? y : picture.height - 1 - y;
        std::memcpy(&picture.pixels[y * picture.RowBytes()], &bytes[from * rowBytes], pixelBytes);
    }
    return picture;
}

}  // namespace

StillGrabber::StillGrabber(const Device& device) : m_still(CreateStillImage()) {
    Check(m_still->SelectDeviceByIndex(PositionOf(device)), "cannot open the device for a still picture");
    ComPtr<IUnknown> unknown;
    ComPtr<IBaseFilter> filter;
    Check(m_still->GetDeviceUnknown(unknown.GetAddressOf()), "cannot reach the device's filter");
    Check(unknown.As(&filter), "cannot reach the device's filter");
    m_camera = std::make_unique<Camera>(device, filter);
    if (!m_camera->HasPropertySet()) {
        throw DeviceError("\"" + m_camera->Name() + "\" does not offer the property set");
    }
}

void StillGrabber::SetFormat(const FormatChoice& choice) {
    const CapturePin pin(*m_camera);
    CaptureFormats formats = pin.Formats();
    pin.Apply(choice.Choose(formats));
}

Picture StillGrabber::Take() {
    CaptureFormats formats = CapturePin(*m_camera).Formats();
    const CaptureFormat& format = formats.Current();
    const auto& video = *reinterpret_cast<const VIDEOINFOHEADER*>(format.Type().pbFormat);
    const HRESULT hr = m_still->Capture();
    if (hr != S_OK) {
        // A graph that could not be built has a code of its own, whatever the camera said.
        ULONG current = 0;
        Check(m_camera->PropertySet().GetProperty12Value(&current),
              "cannot take a picture: the camera does not answer");
        throw CallError("cannot take a picture in " + format.ModeText() + " " + format.PixelText(), hr,
                        "pictures are taken at 3.75 frames per second, which not every mode allows");
    }
    BITMAPINFOHEADER header{};
    LONG size = -1;
    Check(m_still->GetBitmapInfoHeader(&header), "cannot read the picture's header");
    Check(m_still->GetBufferSize(&size), "cannot read the picture's size");
    if (header.biBitCount != 24 || header.biCompression != BI_RGB || header.biWidth <= 0 || header.biHeight == 0 ||
        size < 0) {
        throw Error(ExitCode::refused, "pictures of " + format.PixelText() + " cannot be written",
                    "Mono8, UYVY(YUV422) and RGB24 can; choose one with --format, as \"kolmctl formats\" shows them");
    }
    std::vector<BYTE> bytes(static_cast<std::size_t>(size));
    Check(m_still->GetBuffer(bytes.data()), "cannot read the picture");
    // What the module has converted is bottom-up, whatever the sign of the height.
    const bool topDown = header.biHeight < 0 && video.bmiHeader.biCompression == BI_RGB;
    return ToPicture(header, bytes, topDown);
}

}  // namespace kolmctl
