#include "picture.h"

#include <cstring>

#include <objbase.h>

#include <wincodec.h>
#include <wrl/client.h>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

using Microsoft::WRL::ComPtr;

ComPtr<IWICBitmapFrameEncode> OpenFile(IWICImagingFactory* factory, IWICBitmapEncoder* encoder,
                                       const std::wstring& file) {
    ComPtr<IWICStream> stream;
    Check(factory->CreateStream(stream.GetAddressOf()), "cannot make a stream");
    const std::string failed = "cannot write \"" + ToUtf8(file) + "\"";
    Check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE), failed);
    Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache), failed);
    ComPtr<IWICBitmapFrameEncode> frame;
    Check(encoder->CreateNewFrame(frame.GetAddressOf(), nullptr), failed);
    Check(frame->Initialize(nullptr), failed);
    return frame;
}

}  // namespace

BITMAPINFO FormatOf(const Picture& picture) {
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = static_cast<LONG>(picture.width);
    format.bmiHeader.biHeight = -static_cast<LONG>(picture.height);  // negative: top row first
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 24;
    return format;
}

bool Picture::IsBlank() const {
    for (std::size_t y = 0; y < height; ++y) {
        const BYTE* const row = pixels.data() + y * RowBytes();
        for (std::size_t x = 0; x < width; ++x) {
            if (std::memcmp(row + 3 * x, pixels.data(), 3) != 0) {
                return false;
            }
        }
    }
    return true;
}

void WritePicture(const Picture& picture, PictureFile kind, const std::wstring& file) {
    ComPtr<IWICImagingFactory> factory;
    Check(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IWICImagingFactory),
                             reinterpret_cast<void**>(factory.GetAddressOf())),
          "the system's imaging component is not there");
    ComPtr<IWICBitmapEncoder> encoder;
    const GUID& container = kind == PictureFile::png ? GUID_ContainerFormatPng : GUID_ContainerFormatBmp;
    Check(factory->CreateEncoder(container, nullptr, encoder.GetAddressOf()), "cannot write files of this kind");
    const ComPtr<IWICBitmapFrameEncode> frame = OpenFile(factory.Get(), encoder.Get(), file);

    const std::string failed = "cannot write \"" + ToUtf8(file) + "\"";
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    Check(frame->SetSize(picture.width, picture.height), failed);
    Check(frame->SetPixelFormat(&format), failed);
    if (format != GUID_WICPixelFormat24bppBGR) {
        throw CallError(failed, WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT);
    }
    std::vector<BYTE> pixels = picture.pixels;  // the encoder's parameter is not const
    Check(frame->WritePixels(picture.height, static_cast<UINT>(picture.RowBytes()), static_cast<UINT>(pixels.size()),
                             pixels.data()),
          failed);
    Check(frame->Commit(), failed);
    Check(encoder->Commit(), failed);
}

}  // namespace kolmctl
