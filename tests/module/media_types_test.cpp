/// @file  Properties bound to a media type: image position, and setting a type on a pin.

#include <cstring>
#include <memory>
#include <vector>

#include <strmif.h>
#include <uuids.h>

#include <amvideo.h>

#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kPositionId = 65;
constexpr ULONG kGeometryId = 61;

/// A media type with a format block of any size that names an IIDC format and mode.
class CTestType {
public:
    CTestType(ULONG formatAndMode, ULONG blockSize = sizeof(VIDEOINFOHEADER)) : m_block(blockSize + 64) {
        std::memcpy(m_block.data() + 36, &formatAndMode, 4);
        m_type.majortype = MEDIATYPE_Video;
        m_type.formattype = FORMAT_VideoInfo;
        m_type.cbFormat = blockSize;
        m_type.pbFormat = m_block.data();
    }
    AM_MEDIA_TYPE* operator&() { return &m_type; }
    AM_MEDIA_TYPE* operator->() { return &m_type; }

private:
    std::vector<BYTE> m_block;
    AM_MEDIA_TYPE m_type{};
};

class MediaTypes : public PropertySetTest {
protected:
    void Swallow() { Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_OK}); }
};

TEST_F(MediaTypes, position_is_read_for_the_mode_that_the_type_names) {
    Swallow();
    Object().Patch(kPositionId, 28, 0x111);
    Object().Patch(kPositionId, 32, 0x222);
    for (ULONG mode = 0; mode < 16; ++mode) {
        for (const ULONG above : {0x0u, 0x10u, 0xF0u}) {
            CTestType type(0x700 | above | mode);
            ULONG x = kPoison;
            ULONG y = kPoison;
            EXPECT_EQ(Object()->GetImagePositionForMediaType(&x, &y, &type), S_OK);
            EXPECT_EQ(x, 0x111u);
            EXPECT_EQ(y, 0x222u);
            EXPECT_EQ(Object().Sent(), Wire{Get(kPositionId, 40).With(24, mode)}) << "only the low four bits travel";
        }
    }
}

TEST_F(MediaTypes, position_is_sent_for_the_mode_that_the_type_names) {
    Swallow();
    CTestType type(0x703);

    EXPECT_EQ(Object()->SetImagePositionForMediaType(16, 8, &type), S_OK);
    EXPECT_EQ(Object().Sent(), Wire{Set(kPositionId, 40).With(24, 3).With(28, 16).With(32, 8)});
}

TEST_F(MediaTypes, a_position_that_the_driver_corrected_is_reported) {
    CTestType type(0x700);
    Swallow();
    Object().Patch(kPositionId, 28, 12);
    EXPECT_EQ(Object()->SetImagePositionForMediaType(16, 8, &type), E_INVALIDARG);
    EXPECT_EQ(Object()->SetImagePositionForMediaType(12, 8, &type), S_OK);
    Object().Patch(kPositionId, 32, 4);
    EXPECT_EQ(Object()->SetImagePositionForMediaType(12, 8, &type), E_INVALIDARG);
    EXPECT_EQ(Object()->SetImagePositionForMediaType(12, 4, &type), S_OK);
}

TEST_F(MediaTypes, a_format_block_of_87_bytes_is_refused_without_a_request) {
    CTestType small(0x700, 87);
    CTestType enough(0x700, 88);
    CTestType empty(0x700, 0);
    CTestType noBlock(0x700);
    noBlock->pbFormat = nullptr;
    ULONG x = kPoison;
    ULONG y = kPoison;
    for (CTestType* type : {std::addressof(small), std::addressof(empty), std::addressof(noBlock)}) {
        EXPECT_EQ(Object()->SetImagePositionForMediaType(0, 0, &*type), E_INVALIDARG);
        EXPECT_EQ(Object()->GetImagePositionForMediaType(&x, &y, &*type), E_INVALIDARG);
    }
    EXPECT_EQ(x, kPoison);
    EXPECT_EQ(Object().Sent(), Wire{});
    Swallow();
    EXPECT_EQ(Object()->SetImagePositionForMediaType(0, 0, &enough), S_OK);
}

TEST_F(MediaTypes, a_type_that_is_not_format_7_is_refused_without_a_request) {
    ULONG x = kPoison;
    ULONG y = kPoison;
    for (const ULONG word : {0x000u, 0x005u, 0x600u, 0x800u, 0x10700u, 0x07000000u}) {
        CTestType type(word);
        EXPECT_EQ(Object()->GetImagePositionForMediaType(&x, &y, &type), E_INVALIDARG) << word;
        EXPECT_EQ(Object()->SetImagePositionForMediaType(0, 0, &type), E_INVALIDARG) << word;
    }
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(MediaTypes, position_refuses_nulls_without_a_request) {
    CTestType type(0x700);
    ULONG x = kPoison;

    EXPECT_EQ(Object()->GetImagePositionForMediaType(nullptr, &x, &type), E_POINTER);
    EXPECT_EQ(Object()->GetImagePositionForMediaType(&x, nullptr, &type), E_POINTER);
    EXPECT_EQ(Object()->GetImagePositionForMediaType(&x, &x, nullptr), E_POINTER);
    EXPECT_EQ(Object()->SetImagePositionForMediaType(0, 0, nullptr), E_POINTER);
    CTestType small(0x700, 87);
    EXPECT_EQ(Object()->GetImagePositionForMediaType(&x, nullptr, &small), E_POINTER) << "outputs come first";
    EXPECT_EQ(x, kPoison);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(MediaTypes, position_passes_failures_through_and_leaves_the_outputs) {
    CTestType type(0x700);
    ULONG x = kPoison;
    ULONG y = kPoison;
    Object().FailNth(1, E_ACCESSDENIED);
    EXPECT_EQ(Object()->GetImagePositionForMediaType(&x, &y, &type), E_ACCESSDENIED);
    EXPECT_EQ(x, kPoison);
    EXPECT_EQ(y, kPoison);
    Object().FailNth(1, E_ACCESSDENIED);
    EXPECT_EQ(Object()->SetImagePositionForMediaType(0, 0, &type), E_ACCESSDENIED);
}

/// A pin that only takes a format, and tells the value of property 61 at that moment.
class CScriptedPin final : public IAMStreamConfig {
public:
    explicit CScriptedPin(kolmsim::ISimulatedCamera& camera) : m_camera(camera) {}

    HRESULT result = S_OK;
    int formats = 0;
    const AM_MEDIA_TYPE* last = nullptr;
    std::size_t requestsBefore = 0;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
        *out = riid == IID_IUnknown || riid == IID_IAMStreamConfig ? this : nullptr;
        if (*out == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    ULONG references = 1;

    // IAMStreamConfig
    HRESULT STDMETHODCALLTYPE SetFormat(AM_MEDIA_TYPE* type) override {
        ++formats;
        last = type;
        requestsBefore = m_camera.RequestCount();
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetFormat(AM_MEDIA_TYPE**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNumberOfCapabilities(int*, int*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetStreamCaps(int, AM_MEDIA_TYPE**, BYTE*) override { return E_NOTIMPL; }

private:
    kolmsim::ISimulatedCamera& m_camera;
};

TEST_F(MediaTypes, a_fixed_mode_is_set_on_the_pin_without_a_request) {
    CScriptedPin pin(Camera());
    CTestType type(0x005);
    VIDEO_STREAM_CONFIG_CAPS caps{};
    for (const HRESULT result : {S_OK, S_FALSE, E_ACCESSDENIED}) {
        pin.result = result;
        EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &type, &caps), result);
        EXPECT_EQ(pin.last, &type);
    }
    EXPECT_EQ(pin.formats, 3);
    EXPECT_EQ(pin.references, 1u);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(MediaTypes, a_scalable_mode_is_set_while_the_driver_takes_a_geometry_of_its_own) {
    Swallow();
    CTestType type(0x702);
    VIDEO_STREAM_CONFIG_CAPS caps{};
    for (const HRESULT result : {S_OK, E_ACCESSDENIED}) {
        CScriptedPin pin(Camera());
        pin.result = result;
        Object().Patch(kGeometryId, 24, 0x55);

        EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &type, &caps), result);

        EXPECT_EQ(pin.requestsBefore, 2u) << "between the switch and its restoring";
        EXPECT_EQ(pin.references, 1u);
        EXPECT_EQ(Object().Sent(),
                  (Wire{Get(kGeometryId), Set(kGeometryId).With(24, 1), Set(kGeometryId).With(24, 0x55)}));
    }
}

TEST_F(MediaTypes, the_format_of_a_type_to_be_set_is_the_second_byte) {
    Swallow();
    CScriptedPin pin(Camera());
    CTestType scalable(0x00010702);
    CTestType fixed(0x00070005);
    VIDEO_STREAM_CONFIG_CAPS caps{};

    EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &scalable, &caps), S_OK);
    EXPECT_EQ(Object().Sent().size(), 3u) << "Format 7, whatever stands above the byte";
    EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &fixed, &caps), S_OK);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(MediaTypes, another_success_code_is_a_success_and_passes_through) {
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_FALSE});
    CScriptedPin pin(Camera());
    CTestType type(0x702);
    VIDEO_STREAM_CONFIG_CAPS caps{};
    ULONG x = kPoison;
    ULONG y = kPoison;

    EXPECT_EQ(Object()->GetImagePositionForMediaType(&x, &y, &type), S_FALSE);
    EXPECT_EQ(x, 0u);
    EXPECT_EQ(y, 0u);
    EXPECT_EQ(Object()->SetImagePositionForMediaType(4, 8, &type), S_FALSE);
    EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &type, &caps), S_OK) << "the pin's answer";
    EXPECT_EQ(pin.formats, 1);
}

TEST_F(MediaTypes, without_the_geometry_switch_the_pin_is_not_touched) {
    CTestType type(0x702);
    VIDEO_STREAM_CONFIG_CAPS caps{};
    for (const int nth : {1, 2}) {
        Renew(L"color");
        CScriptedPin pin(Camera());
        Swallow();
        Object().FailNth(nth, E_ACCESSDENIED);

        EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &type, &caps), E_ACCESSDENIED);
        EXPECT_EQ(pin.formats, 0);
        EXPECT_EQ(Object().Sent().size(), static_cast<std::size_t>(nth));
    }
}

TEST_F(MediaTypes, a_failed_restoring_does_not_hide_the_pins_answer) {
    Swallow();
    CTestType type(0x702);
    VIDEO_STREAM_CONFIG_CAPS caps{};
    CScriptedPin pin(Camera());
    Object().FailNth(3, E_ACCESSDENIED);

    EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &type, &caps), S_OK);
    EXPECT_EQ(pin.formats, 1);
}

TEST_F(MediaTypes, applying_refuses_nulls_and_small_blocks) {
    CScriptedPin pin(Camera());
    CTestType type(0x702);
    CTestType small(0x702, 87);
    CTestType noBlock(0x702);
    noBlock->pbFormat = nullptr;
    VIDEO_STREAM_CONFIG_CAPS caps{};

    EXPECT_EQ(Object()->ApplyMediaTypeComposite(nullptr, &type, &caps), E_POINTER);
    EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, nullptr, &caps), E_POINTER);
    EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &type, nullptr), E_POINTER);
    EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &small, &caps), E_INVALIDARG);
    EXPECT_EQ(Object()->ApplyMediaTypeComposite(&pin, &noBlock, &caps), E_INVALIDARG);
    EXPECT_EQ(pin.formats, 0);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(MediaTypes, an_object_that_leads_to_no_stream_configuration_is_refused) {
    CTestType type(0x702);
    VIDEO_STREAM_CONFIG_CAPS caps{};
    COuterObject other;

    EXPECT_EQ(Object()->ApplyMediaTypeComposite(other.Unknown(), &type, &caps), E_NOINTERFACE);
    EXPECT_EQ(Object().Sent(), Wire{});
}

}  // namespace
}  // namespace kolmfluxor::test
