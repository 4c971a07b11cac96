/// @file  The stand-in for ksproxy.ax: the driver contract at its door, log, hook, state files, threads.

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "module/simulator_fixture.h"

namespace kolmfluxor::test {
namespace {

using kolmsim::ISimulatedCamera;
using kolmsim::SimRequest;

class SimulatorDoor : public SimulatorTest {};

// ---- The driver contract ------------------------------------------------------------------------------------------

TEST_F(SimulatorDoor, a_call_that_breaks_the_contract_is_refused_and_named_in_the_log) {
    std::vector<std::uint8_t> record = Get(kGainId).Bytes();
    std::vector<std::uint8_t> other = record;
    ULONG returned = 0;
    struct Breach {
        ULONG ioControl;
        void* in;
        ULONG inBytes;
        void* out;
        ULONG outBytes;
        ULONG* returned;
        const char* objection;
    };
    const Breach breaches[] = {
        {IOCTL_KS_METHOD, record.data(), 64, record.data(), 64, &returned, "not a property request"},
        {IOCTL_KS_PROPERTY, record.data(), 64, other.data(), 64, &returned, "property and data are not one buffer"},
        {IOCTL_KS_PROPERTY, nullptr, 64, nullptr, 64, &returned, "property and data are not one buffer"},
        {IOCTL_KS_PROPERTY, record.data(), 64, record.data(), 32, &returned, "property and data differ in size"},
        {IOCTL_KS_PROPERTY, record.data(), 64, record.data(), 64, nullptr, "no place for the count of returned bytes"},
    };
    for (const Breach& each : breaches) {
        returned = 99;
        EXPECT_EQ(m_control(m_camera->Handle(), each.ioControl, each.in, each.inBytes, each.out, each.outBytes,
                            each.returned),
                  Win32(ERROR_INVALID_PARAMETER))
            << each.objection;
        EXPECT_STREQ(Last().objection, each.objection);
        EXPECT_EQ(returned, each.returned == nullptr ? 99U : 0U) << each.objection;
    }
    EXPECT_EQ(m_camera->RequestCount(), std::size(breaches));
}

TEST_F(SimulatorDoor, a_record_that_breaks_the_contract_is_refused_and_named_in_the_log) {
    struct Breach {
        std::vector<std::uint8_t> record;
        ULONG error;
    };
    std::vector<std::uint8_t> otherSet = Get(kGainId).Bytes();
    otherSet[0] ^= 1;
    Breach breaches[] = {
        {Get(kGainId, 60).Bytes(), ERROR_INSUFFICIENT_BUFFER},
        {Get(kGainId, 68).Bytes(), ERROR_INVALID_PARAMETER},
        {otherSet, ERROR_SET_NOT_FOUND},
        {CWireRequest(kGainId, 0x10000001, 64).Bytes(), ERROR_INVALID_PARAMETER},
        {std::vector<std::uint8_t>(16), ERROR_INSUFFICIENT_BUFFER},
    };
    for (Breach& each : breaches) {
        const std::vector<std::uint8_t> sent = each.record;
        EXPECT_EQ(Send(each.record), Win32(each.error));
        EXPECT_NE(Last().objection, nullptr);
        EXPECT_EQ(each.record, sent) << "a failed request leaves the caller's record alone";
    }
}

TEST_F(SimulatorDoor, asking_for_an_unknown_property_is_no_breach) {
    std::vector<std::uint8_t> record = Get(999).Bytes();

    EXPECT_EQ(Send(record), Win32(ERROR_NOT_FOUND));

    EXPECT_EQ(Last().objection, nullptr);
}

TEST_F(SimulatorDoor, a_handle_that_is_no_camera_reaches_none) {
    m_record = Get(kGainId).Bytes();
    ULONG returned = 99;
    for (const HANDLE handle : {HANDLE{nullptr}, INVALID_HANDLE_VALUE, ::GetCurrentProcess()}) {
        EXPECT_EQ(m_control(handle, IOCTL_KS_PROPERTY, m_record.data(), 64, m_record.data(), 64, &returned),
                  Win32(ERROR_INVALID_HANDLE));
        EXPECT_EQ(CModule::Get().CameraOfHandle(handle), nullptr);
    }
    EXPECT_EQ(m_camera->RequestCount(), 0U);
}

TEST_F(SimulatorDoor, a_closed_camera_is_gone) {
    const HANDLE handle = m_camera->Handle();
    EXPECT_EQ(CModule::Get().CameraOfHandle(handle), m_camera.get());

    m_camera.reset();

    EXPECT_EQ(CModule::Get().CameraOfHandle(handle), nullptr);
}

// ---- Log, hook, memory --------------------------------------------------------------------------------------------

TEST_F(SimulatorDoor, the_log_shows_what_was_sent_and_answered) {
    m_record = Get(kGainId).Bytes();
    ULONG returned = 0;

    ASSERT_EQ(Send(m_record, &returned), S_OK);

    EXPECT_EQ(returned, 64U);
    const SimRequest request = Last();
    EXPECT_EQ(request.id, kGainId);
    EXPECT_EQ(request.flags, 1U);
    EXPECT_EQ(request.sizeBytes, 64U);
    EXPECT_EQ(request.result, S_OK);
    EXPECT_EQ(SentTo(*m_camera), Wire{Get(kGainId)});
    EXPECT_EQ(AnswerOf(*m_camera, 0).Bytes(), m_record);
    EXPECT_EQ(Word(24), 64U);
}

TEST_F(SimulatorDoor, a_request_beyond_the_log_is_left_alone) {
    SimRequest none{};
    none.id = 77;

    EXPECT_FALSE(m_camera->Request(0, &none));
    EXPECT_EQ(none.id, 77U);
    ASSERT_EQ(GetFeature(kGainId), S_OK);
    m_camera->ClearLog();
    EXPECT_EQ(m_camera->RequestCount(), 0U);
}

struct HookSeen {
    ISimulatedCamera* camera;
    int calls = 0;
    std::uint32_t value = 0;
};

TEST_F(SimulatorDoor, the_hook_sees_successful_sets_and_may_use_the_camera) {
    HookSeen seen{m_camera.get()};
    const kolmsim::SimWriteHook hook = [](void* context, const SimRequest& request) {
        auto* all = static_cast<HookSeen*>(context);
        ++all->calls;
        all->value = CWireRequest({request.sent, request.sent + request.sizeBytes}).Word(24);
        all->camera->ClearLog();
        EXPECT_TRUE(all->camera->SetFeatureWord(kBrightnessId, 24, 77));
    };
    m_camera->SetWriteHook(hook, &seen);

    EXPECT_EQ(SetGain(9), S_OK);
    EXPECT_EQ(SetGain(900), Win32(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(GetFeature(kGainId), S_OK);
    EXPECT_EQ(seen.calls, 1);
    EXPECT_EQ(seen.value, 9U);

    m_camera->SetWriteHook(nullptr, nullptr);
    EXPECT_EQ(SetGain(10), S_OK);
    EXPECT_EQ(seen.calls, 1);
}

TEST_F(SimulatorDoor, lut_memory_can_be_looked_at) {
    std::vector<std::uint8_t> bytes(8192, 0xCD);

    EXPECT_EQ(m_camera->ReadLutMemory(3, bytes.data(), bytes.size()), 8192U);
    EXPECT_EQ(bytes[2 * 0x123], 0x01) << "high byte first";
    EXPECT_EQ(bytes[2 * 0x123 + 1], 0x23);
    bytes.assign(8, 0xCD);
    EXPECT_EQ(m_camera->ReadLutMemory(0, bytes.data(), 4), 8192U);
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{0, 0, 0, 1, 0xCD, 0xCD, 0xCD, 0xCD}));
    EXPECT_EQ(m_camera->ReadLutMemory(0, nullptr, 0), 8192U);
    EXPECT_EQ(m_camera->ReadLutMemory(4, bytes.data(), 8), 0U);
}

TEST_F(SimulatorDoor, pictures_come_in_six_layouts) {
    struct Layout {
        std::uint32_t compression, bitsPerPixel;
        std::size_t bytes;
    };
    for (const Layout& layout : {Layout{0x30303859, 8, 640 * 480}, Layout{0x59565955, 16, 640 * 480 * 2},
                                 Layout{BI_RGB, 24, 640 * 480 * 3}, Layout{0x31313459, 12, 640 * 480 * 3 / 2},
                                 Layout{0x36315941, 16, 640 * 480 * 2}, Layout{0x38575241, 8, 640 * 480}}) {
        std::vector<std::uint8_t> picture(layout.bytes);
        kolmsim::SimFrame frame{.compression = layout.compression,
                                .bitsPerPixel = layout.bitsPerPixel,
                                .width = 640,
                                .height = 480,
                                .number = 0,
                                .data = picture.data(),
                                .sizeBytes = picture.size()};
        EXPECT_TRUE(m_camera->RenderFrame(frame)) << layout.bitsPerPixel;
        EXPECT_NE(picture, std::vector<std::uint8_t>(layout.bytes));
        --frame.sizeBytes;
        EXPECT_FALSE(m_camera->RenderFrame(frame)) << "the size does not fit";
        frame.width = 0;
        frame.sizeBytes = 0;
        EXPECT_FALSE(m_camera->RenderFrame(frame)) << "no picture at all";
    }
    std::uint32_t counted = 0;
    ASSERT_TRUE(m_camera->PeekRegister(0xF1000274, &counted));
    EXPECT_EQ(counted, 6U);
}

// ---- Opening, state files -----------------------------------------------------------------------------------------

/// A state file that is gone before and after the test.
class SimulatorState : public SimulatorTest {
protected:
    SimulatorState() {
        wchar_t folder[MAX_PATH] = L"";
        ::GetTempPathW(MAX_PATH, folder);
        m_file = std::wstring(folder) + L"simulator-state-" + std::to_wstring(::GetCurrentProcessId()) + L".camera";
        ::DeleteFileW(m_file.c_str());
    }
    ~SimulatorState() override { ::DeleteFileW(m_file.c_str()); }

    UniqueCamera Open(const wchar_t* variant) { return UniqueCamera(m_open(variant, m_file.c_str())); }

    std::wstring m_file;
};

TEST_F(SimulatorState, an_unknown_variant_cannot_be_opened) {
    for (const wchar_t* variant : {L"Color", L"", static_cast<const wchar_t*>(nullptr)}) {
        ::SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(m_open(variant, nullptr), nullptr);
        EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    }
}

TEST_F(SimulatorState, a_file_that_cannot_be_made_gives_no_camera) {
    for (const wchar_t* file : {L"Q:\\no\\such\\folder\\x.camera", L""}) {
        ::SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(m_open(L"mono", file), nullptr);
        EXPECT_NE(::GetLastError(), DWORD{ERROR_SUCCESS});
    }
}

TEST_F(SimulatorState, one_file_is_one_camera) {
    const UniqueCamera one = Open(L"color");
    const UniqueCamera two = Open(L"color");
    ASSERT_TRUE(one != nullptr && two != nullptr);
    EXPECT_NE(one->Handle(), two->Handle());

    ASSERT_TRUE(one->SetFeatureWord(kGainId, 24, 123));

    EXPECT_EQ(GainOf(*two), 123U);
    EXPECT_EQ(GainOf(*m_camera), 64U) << "a private camera is another one";
}

TEST_F(SimulatorState, settings_outlive_the_camera_object_until_it_is_reset) {
    UniqueCamera camera = Open(L"color");
    ASSERT_TRUE(camera->SetFeatureWord(kGainId, 24, 123));
    camera.reset();

    camera = Open(L"color");
    EXPECT_EQ(GainOf(*camera), 123U);
    camera->Reset();
    EXPECT_EQ(GainOf(*camera), 64U);
}

TEST_F(SimulatorState, a_file_of_the_other_variant_is_replaced) {
    UniqueCamera camera = Open(L"color");
    ASSERT_TRUE(camera->SetFeatureWord(kGainId, 24, 123));
    camera.reset();

    camera = Open(L"mono");

    EXPECT_EQ(GainOf(*camera), 64U);
}

TEST_F(SimulatorState, a_damaged_file_is_replaced) {
    for (const std::size_t bytes : {0U, 1U, 16U, 5000U, 400'000U, 4'000'000U}) {
        for (const char filler : {'\x00', '\xFF', 'K'}) {
            std::ofstream(std::filesystem::path(m_file), std::ios::binary) << std::string(bytes, filler);

            const UniqueCamera camera = Open(L"color");

            ASSERT_NE(camera, nullptr) << bytes;
            EXPECT_EQ(GainOf(*camera), 64U) << bytes;
        }
    }
}

TEST_F(SimulatorState, many_threads_share_a_camera) {
    constexpr int kThreads = 6;
    constexpr int kRequests = 500;
    const UniqueCamera camera = Open(L"color");
    std::atomic<int> failures{0};
    const auto work = [&](std::uint32_t id) {
        for (int i = 0; i < kRequests; ++i) {
            std::vector<std::uint8_t> record = Get(id).Bytes();
            ULONG returned = 0;
            const HRESULT hr =
                m_control(camera->Handle(), IOCTL_KS_PROPERTY, record.data(), 64, record.data(), 64, &returned);
            failures += hr == S_OK && returned == 64 ? 0 : 1;
            if (i % 50 == 0) {
                failures += camera->SetFeatureWord(id, 28, 8) ? 0 : 1;
                SimRequest request{};
                failures += camera->Request(0, &request) ? 0 : 1;
            }
        }
    };
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < kThreads; ++t) {
            threads.emplace_back(work, t % 2 != 0 ? kGainId : kShutterId);
        }
    }
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(camera->RequestCount(), std::size_t{kThreads} * kRequests);
}

}  // namespace
}  // namespace kolmfluxor::test
