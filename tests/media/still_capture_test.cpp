/// @file  A capture call by call: what is asked of DirectShow in which order, and what becomes of each failure.

#include <cstring>
#include <memory>
#include <optional>
#include <thread>

#include "base/class_factory.h"
#include "media/still_fixture.h"
#include "support/counted_task_memory.h"
#include "support/scarce_heap.h"
#include "support/temporary_file.h"
#include "support/wait_hook.h"

extern "C" void* __imp_CreateEventW;

namespace kolmfluxor::test {
namespace {

using Names = std::vector<std::string>;

constexpr REFERENCE_TIME kFrameTime = 2666666;

HANDLE WINAPI NoEvent(LPSECURITY_ATTRIBUTES, BOOL, BOOL, LPCWSTR) {
    ::SetLastError(ERROR_NO_SYSTEM_RESOURCES);
    return nullptr;
}

const Names kBuilding = {"create graph",
                         "create builder",
                         "query control",
                         "create grabber",
                         "query grabber",
                         "SetMediaType",
                         "create renderer",
                         "SetFiltergraph",
                         "AddFilter Video Capture",
                         "AddFilter Sample Grabber",
                         "AddFilter Null Renderer"};
const Names kConnecting = {"RenderStream", "FindInterface", "GetFormat 1", "SetFormat 1"};
const Names kTaking = {
    "SetOneShot FALSE", "SetBufferSamples TRUE", "SetCallback 1", "GetFormat 2", "SetFormat 2", "Run", "Stop"};

const std::vector<BYTE> kFirst = {4, 4, 4, 5, 5, 5, 6, 6, 6, 1, 1, 1, 2, 2, 2, 3, 3, 3};
const std::vector<BYTE> kSecond = {10, 10, 10, 11, 11, 11, 12, 12, 12, 7, 7, 7, 8, 8, 8, 9, 9, 9};

Names Joined(std::initializer_list<Names> parts) {
    Names all;
    for (const Names& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

class StillCapture : public StillFixture {
protected:
    StillCapture() {
        // So that "zero" is not "never written".
        std::memset(&m_graph->grabberType, 0xEE, sizeof m_graph->grabberType);
    }
};

TEST_F(StillCapture, asks_all_in_one_order_and_keeps_the_newest_sample) {
    Select();

    EXPECT_EQ(m_still->Capture(), S_OK);

    EXPECT_EQ(m_graph->calls, Joined({kBuilding, kConnecting, kTaking}));
    EXPECT_EQ(Picture(), kSecond);
    EXPECT_EQ(m_graph->grabberType.majortype, MEDIATYPE_Video);
    EXPECT_EQ(m_graph->grabberType.subtype, GUID{});
    EXPECT_EQ(m_graph->grabberType.bFixedSizeSamples, 0);
    EXPECT_EQ(m_graph->grabberType.bTemporalCompression, 0);
    EXPECT_EQ(m_graph->grabberType.lSampleSize, 0u);
    EXPECT_EQ(m_graph->grabberType.formattype, GUID{});
    EXPECT_EQ(m_graph->grabberType.pUnk, nullptr);
    EXPECT_EQ(m_graph->grabberType.cbFormat, 0u);
    EXPECT_EQ(m_graph->grabberType.pbFormat, nullptr);
    ASSERT_EQ(Device().set.size(), 2u);
    for (const ScriptedFormat& set : Device().set) {
        EXPECT_EQ(set.header.AvgTimePerFrame, kFrameTime);
        EXPECT_EQ(set.header.bmiHeader.biWidth, 3);
        EXPECT_EQ(set.subtype, Device().formats[0].subtype);
    }
    EXPECT_EQ(m_graph->references, 0u) << "the graph is gone";
    EXPECT_EQ(Device().references.filter, 1u) << "the device stays";
}

TEST_F(StillCapture, every_failure_is_passed_through_and_ends_the_chain) {
    const Names all = Joined({kBuilding, kConnecting, kTaking});
    const std::size_t before = kBuilding.size() + kConnecting.size();
    for (std::size_t i = 0; i < all.size(); ++i) {
        SCOPED_TRACE(all[i]);
        Select();
        m_graph->results.clear();
        ASSERT_EQ(m_still->Capture(), S_OK);
        m_graph->calls.clear();
        const auto code = static_cast<HRESULT>(0x8004AB00 + i);
        m_graph->results = {{all[i], code}};

        EXPECT_EQ(m_still->Capture(), all[i] == "GetFormat 2" ? -1 : code);

        Names made(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        if (all[i] == "Run") made.emplace_back("Stop");  // some filter may be running
        EXPECT_EQ(m_graph->calls, made);
        EXPECT_EQ(Picture(), i < before ? kSecond : std::vector<BYTE>());
        EXPECT_EQ(m_graph->references, 0u);
        EXPECT_EQ(m_graph->callback, nullptr);
        m_graph->calls.clear();
    }
}

TEST_F(StillCapture, success_codes_of_every_call_are_successes) {
    Select();
    for (const std::string& name : Joined({kBuilding, kConnecting, kTaking})) {
        m_graph->results[name] = name == "Run" ? S_FALSE : VFW_S_PARTIAL_RENDER;
    }
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_EQ(Picture(), kSecond);
}

TEST_F(StillCapture, a_Run_that_answers_S_FALSE_is_a_success) {
    Select();
    m_graph->results = {{"Run", S_FALSE}};
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_EQ(Picture(), kSecond);
}

TEST_F(StillCapture, of_a_failing_Run_and_a_failing_Stop_the_first_one_counts) {
    Select();
    m_graph->results = {{"Run", E_ABORT}, {"Stop", E_ACCESSDENIED}};
    EXPECT_EQ(m_still->Capture(), E_ABORT);
    EXPECT_EQ(m_graph->calls.back(), "Stop");
    EXPECT_EQ(Picture(), std::vector<BYTE>());
}

TEST_F(StillCapture, without_a_device_the_graph_refuses_it) {
    EXPECT_EQ(m_still->Capture(), E_POINTER);
    EXPECT_EQ(m_graph->calls.back(), "AddFilter Video Capture");
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(m_still->GetImageSize(&width, &height), S_OK);
    EXPECT_EQ(width, -1);
    EXPECT_EQ(height, -1);
}

TEST_F(StillCapture, successes_that_give_nothing_are_failures) {
    Select();
    m_graph->givesNothing = true;
    EXPECT_EQ(m_still->Capture(), E_UNEXPECTED);
    m_graph->givesNothing = false;
    Device().noCurrent = true;
    EXPECT_EQ(m_still->Capture(), E_UNEXPECTED);
}

TEST_F(StillCapture, a_second_format_that_is_none_gives_minus_one_like_one_that_fails) {
    Select();
    Device().currents = 1;
    EXPECT_EQ(m_still->Capture(), -1);
    EXPECT_EQ(m_graph->calls.back(), "GetFormat 2");
    EXPECT_EQ(Picture(), std::vector<BYTE>());
    EXPECT_EQ(m_graph->references, 0u);
}

TEST_F(StillCapture, samples_of_other_lengths_than_the_first_are_dropped) {
    Select();
    m_graph->samples = {{1, 2, 3, 4, 5, 6}, {9}, {9, 9, 9, 9, 9, 9, 9}, {}};
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_EQ(Picture(), kFirst);
}

TEST_F(StillCapture, waits_without_a_limit_for_a_sample_of_another_thread) {
    Select();
    m_graph->samples.clear();
    std::thread stream;
    std::optional<CWaitHook> whileWaiting;
    m_graph->onRun = [&] {
        whileWaiting.emplace([&](HANDLE, DWORD milliseconds) {
            EXPECT_EQ(milliseconds, INFINITE);
            stream = std::thread([&] {
                std::vector<BYTE> sample = {1, 2, 3, 4, 5, 6};
                EXPECT_EQ(m_graph->callback->BufferCB(0.5, sample.data(), 6), S_OK);
            });
        });
    };
    EXPECT_EQ(m_still->Capture(), S_OK);
    ASSERT_TRUE(stream.joinable());
    stream.join();
    EXPECT_EQ(Picture(), kFirst);
}

TEST_F(StillCapture, a_delivery_without_bytes_fails_the_capture_and_a_second_one_saves_it) {
    Select();
    m_graph->samples.clear();
    m_graph->onRun = [&] { EXPECT_EQ(m_graph->callback->BufferCB(0, nullptr, 6), S_OK); };
    EXPECT_EQ(m_still->Capture(), E_FAIL);
    EXPECT_EQ(Picture(), std::vector<BYTE>());
    m_graph->samples = {{1, 2, 3, 4, 5, 6}};
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_EQ(Picture(), kFirst);
}

TEST_F(StillCapture, the_callback_takes_buffers_only_and_no_query_finds_it) {
    Select();
    m_graph->onRun = [&] {
        EXPECT_EQ(m_graph->callback->SampleCB(0, nullptr), E_NOTIMPL);
        void* out = m_graph.operator->();
        EXPECT_EQ(m_graph->callback->QueryInterface(__uuidof(ISampleGrabberCB), &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(m_still->QueryInterface(__uuidof(ISampleGrabberCB), &out), E_NOINTERFACE);
        Microsoft::WRL::ComPtr<IUnknown> callback;
        Microsoft::WRL::ComPtr<IUnknown> object;
        EXPECT_EQ(m_graph->callback->QueryInterface(IID_PPV_ARGS(&callback)), S_OK);
        EXPECT_EQ(m_still.As(&object), S_OK);
        EXPECT_EQ(callback.Get(), object.Get());
    };
    EXPECT_EQ(m_still->Capture(), S_OK);
}

TEST_F(StillCapture, formats_without_a_header_are_neither_set_nor_converted) {
    Select();
    ASSERT_EQ(m_still->Capture(), S_OK);
    LONG width = 0;
    LONG height = 0;
    for (const ULONG blockBytes : {0ul, 87ul}) {
        Device().formats[0].blockBytes = blockBytes;
        Device().formats[0].header.bmiHeader.biWidth = 99;
        Device().set.clear();
        EXPECT_EQ(m_still->Capture(), S_OK);
        EXPECT_TRUE(Device().set.empty());
        EXPECT_EQ(Picture(), m_graph->samples.back());
    }
    Device().formats[0].blockBytes = sizeof(VIDEOINFOHEADER);
    Device().formats[0].noBlock = true;  // though its size is named
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_TRUE(Device().set.empty());
    EXPECT_EQ(Picture(), m_graph->samples.back());
    Device().formats[0].noBlock = false;
    Device().formats[0].formatType = FORMAT_VideoInfo2;
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_TRUE(Device().set.empty());
    EXPECT_EQ(Picture(), m_graph->samples.back());
    EXPECT_EQ(m_still->GetImageSize(&width, &height), S_OK);
    EXPECT_EQ(width, 3) << "the dimensions of the last picture that had some";
    EXPECT_EQ(height, 2);
}

TEST_F(StillCapture, memory_that_runs_out_is_told_and_leaves_no_picture) {
    Select();
    ASSERT_EQ(m_still->Capture(), S_OK);
    m_graph->samples = {std::vector<BYTE>(60'000)};
    {
        const CScarceHeap heap(60'000);
        EXPECT_EQ(m_still->Capture(), E_OUTOFMEMORY);
        EXPECT_GT(CScarceHeap::Refused(), 0);
    }
    EXPECT_EQ(m_graph->calls.back(), "Stop");
    EXPECT_EQ(m_graph->references, 0u);
    EXPECT_EQ(Picture(), std::vector<BYTE>());
    EXPECT_EQ(m_still->Capture(), S_OK);
    EXPECT_EQ(Picture().size(), 180'000u);
}

TEST_F(StillCapture, an_object_whose_event_cannot_be_made_is_none) {
    const CPatchedImport createEvent(&__imp_CreateEventW, reinterpret_cast<void*>(&NoEvent));
    const CFactoryTemplate row{.name = L"", .classId = &IID_NULL, .create = CKolmStillImage::CreateInstance};
    void* out = this;
    EXPECT_EQ(CreateObject(row, nullptr, __uuidof(IKolmStillImage), &out), E_OUTOFMEMORY);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(CBaseObject::ObjectsActive(), 1) << "the fixture's";
}

TEST_F(StillCapture, close_keeps_dimensions_header_path_and_file_name) {
    Select();
    const CTemporaryFile file({});
    ASSERT_EQ(m_still->SetMediaTypeFile(file.Name().c_str()), S_OK);
    ASSERT_EQ(m_still->Capture(), S_OK);

    EXPECT_EQ(m_still->Close(), S_OK);

    EXPECT_EQ(Device().references.filter, 0u);
    EXPECT_EQ(Picture(), std::vector<BYTE>());
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(m_still->GetImageSize(&width, &height), S_OK);
    EXPECT_EQ(width, 3);
    EXPECT_EQ(height, 2);
    BITMAPINFO info;
    std::memset(&info, 0xEE, sizeof info);
    EXPECT_EQ(m_still->GetBitmapInfo(&info), S_OK);
    EXPECT_EQ(info.bmiHeader.biWidth, 3);
    EXPECT_EQ(info.bmiHeader.biSizeImage, 0xFFFFFFFF);
    EXPECT_EQ(std::memcmp(&info.bmiColors[0], "\0\0\0\0", 4), 0);
    EXPECT_EQ(Path(), L"path");
    auto* device = reinterpret_cast<IUnknown*>(0xDEADBEEF);
    EXPECT_EQ(m_still->GetDeviceUnknown(&device), E_FAIL);
    EXPECT_EQ(device, nullptr);
    EXPECT_EQ(m_still->Close(), S_OK);
}

TEST_F(StillCapture, task_memory_is_freed) {
    Select();
    ASSERT_EQ(m_still->Capture(), S_OK);
    const CCountedTaskMemory memory;
    Select();
    ASSERT_EQ(m_still->Capture(), S_OK);
    m_graph->results = {{"SetFormat 2", E_ABORT}};
    m_graph->calls.clear();
    ASSERT_EQ(m_still->Capture(), E_ABORT);
    EXPECT_GT(memory.Allocated(), 4);
    EXPECT_EQ(memory.Live(), 0u);
}

TEST_F(StillCapture, the_last_release_frees_device_and_picture) {
    Select();
    ASSERT_EQ(m_still->Capture(), S_OK);
    EXPECT_EQ(m_still.Reset(), 0u);
    EXPECT_EQ(Device().references.filter, 0u);
}

}  // namespace
}  // namespace kolmfluxor::test
