#include "view/viewer_fixture.h"

#include <array>
#include <utility>

#include <objbase.h>

#include <wincodec.h>
#include <wrl/client.h>

#include "frame/window_picture.h"
#include "kolmview/viewer_options.h"
#include "simulated_camera.h"
#include "support/module.h"

namespace kolmfluxor::test {

using Microsoft::WRL::ComPtr;

kolmctl::Picture ReadPng(const std::wstring& file) {
    kolmctl::Picture picture;
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICBitmapSource> bgr;
    EXPECT_EQ(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IWICImagingFactory),
                                 reinterpret_cast<void**>(factory.GetAddressOf())),
              S_OK);
    GUID container{};
    if (factory->CreateDecoderFromFilename(file.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnLoad,
                                           decoder.GetAddressOf()) != S_OK ||
        decoder->GetContainerFormat(&container) != S_OK || container != GUID_ContainerFormatPng ||
        decoder->GetFrame(0, frame.GetAddressOf()) != S_OK ||
        ::WICConvertBitmapSource(GUID_WICPixelFormat24bppBGR, frame.Get(), bgr.GetAddressOf()) != S_OK) {
        ADD_FAILURE() << "no PNG picture";
        return picture;
    }
    EXPECT_EQ(bgr->GetSize(&picture.width, &picture.height), S_OK);
    picture.pixels.resize(picture.RowBytes() * picture.height);
    EXPECT_EQ(bgr->CopyPixels(nullptr, static_cast<UINT>(picture.RowBytes()), static_cast<UINT>(picture.pixels.size()),
                              picture.pixels.data()),
              S_OK);
    return picture;
}

void ViewerTest::SetUp() {
    KolmctlTest::SetUp();
    std::array<wchar_t, MAX_PATH> folder{};
    ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    m_file = std::wstring(folder.data()) + L"kolmview test.png";
    ::DeleteFileW(m_file.c_str());
}

void ViewerTest::TearDown() {
    m_viewer.reset();
    ::DeleteFileW(m_file.c_str());
    EXPECT_EQ(CModule::Get().CanUnloadNow(), S_OK) << "a page or the property set is left";
    MSG message{};
    EXPECT_FALSE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the thread was asked to end";
    KolmctlTest::TearDown();  // finds a camera that is still open by its file
}

void ViewerTest::Open(const std::vector<std::string>& arguments) {
    m_viewer = std::make_unique<kolmview::ViewerWindow>(kolmview::ParseOptions(arguments).options);
    m_viewer->Show();
}

int ViewerTest::Close() {
    ::PostMessageW(m_viewer->Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    const auto code = static_cast<int>(m_viewer->Run());
    m_viewer.reset();
    return code;
}

bool ViewerTest::UntilMorePictures(std::uint64_t count) {
    const std::uint64_t before = m_viewer->ShownPictures();
    return Until([&] { return m_viewer->ShownPictures() >= before + count; });
}

bool ViewerTest::UntilNotice(const wchar_t* part) {
    const bool found = Until([&] { return m_viewer->Notice().find(part) != std::wstring::npos; });
    EXPECT_TRUE(found) << "said: " << ::testing::PrintToString(m_viewer->Notice());
    return found;
}

kolmsim::ISimulatedCamera& ViewerTest::Simulated() {
    return *kolmctl::SimulatedCameraOf(m_viewer->Feed().OpenedCamera()->Filter());
}

std::wstring ViewerTest::TextOf(int id) const {
    std::array<wchar_t, 512> text{};
    ::GetWindowTextW(Control(id), text.data(), static_cast<int>(text.size()));
    return text.data();
}

void ViewerTest::PressKey(WPARAM key) const {
    HWND const focus = ::GetFocus();
    ::PostMessageW(focus, WM_KEYDOWN, key, 0);
    ::PostMessageW(focus, WM_KEYUP, key, 0);
}

kolmctl::Picture ViewerTest::PaintedBy(int id) const {
    ::RedrawWindow(Control(id), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    return kolmctl::TakePicture(Control(id));
}

}  // namespace kolmfluxor::test
