/// @file  Uploads through the camera's GP buffer: look-up tables and shading images, register by register.

#include <algorithm>
#include <cstring>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kGpInfo = 0xF1000FFC;
constexpr ULONG kGpBuffer = 0xF1001000;
constexpr ULONG kLutCtrl = 0xF1000240;
constexpr ULONG kLutMemCtrl = 0xF1000244;
constexpr ULONG kLutInfo = 0xF1000248;
constexpr ULONG kShadingMemCtrl = 0xF1000254;
constexpr ULONG kShadingInfo = 0xF1000258;
constexpr ULONG kRegisterId = 11;
constexpr ULONG kBlockId = 62;
constexpr ULONG kEnableWrite = 1U << 26;

CWireRequest Read(ULONG address) {
    return Get(kRegisterId, 32).With(24, address);
}

CWireRequest Write(ULONG address, ULONG value) {
    return Set(kRegisterId, 32).With(24, address).With(28, value);
}

CWireRequest Block(const ULONG* data, std::size_t quadlets, bool swap16 = false) {
    CWireRequest block =
        Set(kBlockId, 36 + 4 * quadlets).With(24, kGpBuffer).With(28, 17).With(32, static_cast<ULONG>(4 * quadlets));
    for (std::size_t i = 0; i < quadlets; ++i) {
        const ULONG word = data[i];
        block = block.With(36 + 4 * i, swap16 ? ((word & 0x00FF00FF) << 8) | ((word >> 8) & 0x00FF00FF) : word);
    }
    return block;
}

/// A driver that takes everything and reads registers from a short list.
class ScriptedRegisters : public PropertySetTest {
protected:
    /// Starts over: register reads answer these values in this order, every write is taken.
    void Script(std::initializer_list<ULONG> reads) {
        Renew(L"color");
        Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_OK});
        int nth = 0;
        for (const ULONG value : reads) {
            Camera().AddFault({.nth = ++nth,
                               .id = kRegisterId,
                               .flags = 1,
                               .action = kolmsim::SimFaultAction::patchAnswer,
                               .code = S_OK,
                               .offset = 28,
                               .word = value});
        }
    }

    static std::vector<ULONG> Data(std::size_t quadlets) {
        std::vector<ULONG> data(quadlets);
        std::iota(data.begin(), data.end(), 0x01020304U);
        return data;
    }

    static constexpr ULONG LutInfo(ULONG bits, ULONG luts, ULONG bytes) {
        return 0x80000000 | bits << 24 | luts << 16 | bytes;
    }
};

class LutUpload : public ScriptedRegisters {};

TEST_F(LutUpload, sends_the_whole_conversation_in_order) {
    const std::vector<ULONG> data = Data(5);
    Script({8, 0x82000003, LutInfo(8, 4, 20), 0x8A0F1234, kEnableWrite, kEnableWrite, kEnableWrite});

    EXPECT_EQ(Object()->UploadLut(data.data(), 5, 2), S_OK);

    EXPECT_EQ(Object().Sent(),
              (Wire{Read(kGpInfo), Read(kLutCtrl), Read(kLutInfo), Read(kLutMemCtrl),
                    Write(kLutMemCtrl, 0x8E020000),  // b31, b27 and b25 kept, b26 set, LUT number 2, offset 0
                    Block(data.data(), 2), Read(kLutMemCtrl), Block(data.data() + 2, 2), Read(kLutMemCtrl),
                    Block(data.data() + 4, 1), Read(kLutMemCtrl), Write(kLutMemCtrl, 0x8A020000),
                    Write(kLutCtrl, 0x82000003)}));
}

TEST_F(LutUpload, width_follows_the_bits_per_value) {
    const std::vector<ULONG> data = Data(2);
    for (const ULONG bits : {1u, 7u, 8u, 9u, 12u, 16u}) {
        SCOPED_TRACE(bits);
        Script({64, 0, LutInfo(bits, 4, 8), 0, kEnableWrite});
        EXPECT_EQ(Object()->UploadLut(data.data(), 2, 0), S_OK);
        const Wire sent = Object().Sent();
        ASSERT_EQ(sent.size(), 9u);
        EXPECT_EQ(sent[5], Block(data.data(), 2, bits > 8));
    }
}

TEST_F(LutUpload, more_than_16_bits_fail_before_anything_is_written) {
    const std::vector<ULONG> data = Data(2);
    for (const ULONG bits : {17u, 31u}) {
        Script({64, 0, LutInfo(bits, 4, 8)});
        EXPECT_EQ(Object()->UploadLut(data.data(), 2, 0), E_FAIL);
        EXPECT_EQ(Object().Sent(), (Wire{Read(kGpInfo), Read(kLutCtrl), Read(kLutInfo)}));
    }
}

TEST_F(LutUpload, a_table_that_is_too_large_is_refused) {
    const std::vector<ULONG> data = Data(3);
    Script({64, 0, LutInfo(8, 4, 11)});
    EXPECT_EQ(Object()->UploadLut(data.data(), 3, 0), E_INVALIDARG);
    Script({64, 0, LutInfo(8, 4, 12), 0, kEnableWrite});
    EXPECT_EQ(Object()->UploadLut(data.data(), 3, 0), S_OK) << "exactly as large is fine";
    for (const ULONG quadlets : {0x40000000u, 0x40000001u, 0xFFFFFFFFu}) {
        Script({64, 0, LutInfo(8, 4, 0xFFFF)});
        EXPECT_EQ(Object()->UploadLut(data.data(), quadlets, 0), E_INVALIDARG) << "4 x the count must not wrap";
    }
}

TEST_F(LutUpload, a_number_equal_to_the_count_of_tables_is_accepted) {
    const std::vector<ULONG> data = Data(1);
    Script({64, 0, LutInfo(8, 4, 4), 0, kEnableWrite});
    EXPECT_EQ(Object()->UploadLut(data.data(), 1, 4), S_OK);
    Script({64, 0, LutInfo(8, 4, 4)});
    EXPECT_EQ(Object()->UploadLut(data.data(), 1, 5), E_INVALIDARG);
    Script({64, 0, LutInfo(8, 255, 4)});
    EXPECT_EQ(Object()->UploadLut(data.data(), 1, 0x100), E_INVALIDARG);
}

TEST_F(LutUpload, looks_at_no_bit_beside_its_fields) {
    const std::vector<ULONG> data = Data(2);
    // Presents and the reserved bits 30-29 are set; 8 bits per value, 4 tables, 8 bytes.
    Script({64 | 0xFFFF0000, 0, 0xE0000000 | LutInfo(8, 4, 8), 0, kEnableWrite});
    EXPECT_EQ(Object()->UploadLut(data.data(), 2, 4), S_OK);
    EXPECT_EQ(Object().Sent()[5], Block(data.data(), 2)) << "8 bits a value: not swapped";
    // An odd number of bits next to a count of tables, and an odd count next to a size.
    Script({64, 0, LutInfo(9, 0, 0xFFFF)});
    EXPECT_EQ(Object()->UploadLut(data.data(), 2, 1), E_INVALIDARG) << "bit 24 is not of the count";
    Script({64, 0, LutInfo(8, 1, 4)});
    EXPECT_EQ(Object()->UploadLut(data.data(), 2, 0), E_INVALIDARG) << "bit 16 is not of the size";
}

TEST_F(LutUpload, looks_at_size_and_number_before_the_bits) {
    const std::vector<ULONG> data = Data(3);
    Script({64, 0, LutInfo(17, 4, 8)});
    EXPECT_EQ(Object()->UploadLut(data.data(), 3, 0), E_INVALIDARG);
    Script({64, 0, LutInfo(17, 4, 64)});
    EXPECT_EQ(Object()->UploadLut(data.data(), 3, 5), E_INVALIDARG);
}

TEST_F(LutUpload, takes_another_success_code_for_a_success) {
    const std::vector<ULONG> data = Data(2);
    Script({8, 0, LutInfo(8, 4, 64), 0, kEnableWrite});
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_FALSE});

    EXPECT_EQ(Object()->UploadLut(data.data(), 2, 0), S_FALSE);
    EXPECT_EQ(Object().Sent().size(), 9u) << "it ran to its end";
}

TEST_F(LutUpload, stops_early_when_the_camera_closes_its_memory) {
    const std::vector<ULONG> data = Data(6);
    Script({8, 7, LutInfo(8, 4, 64), 0, kEnableWrite, 0});

    EXPECT_EQ(Object()->UploadLut(data.data(), 6, 1), S_OK);

    EXPECT_EQ(Object().Sent(),
              (Wire{Read(kGpInfo), Read(kLutCtrl), Read(kLutInfo), Read(kLutMemCtrl),
                    Write(kLutMemCtrl, kEnableWrite | 0x10000), Block(data.data(), 2), Read(kLutMemCtrl),
                    Block(data.data() + 2, 2), Read(kLutMemCtrl), Write(kLutMemCtrl, 0x10000), Write(kLutCtrl, 7)}));
}

TEST_F(LutUpload, blocks_cover_the_data_for_any_buffer_size) {
    const std::vector<ULONG> data = Data(7);
    for (const ULONG bufferBytes : {4u, 7u, 8u, 11u, 12u, 28u, 32u, 0xFFFFu}) {
        SCOPED_TRACE(bufferBytes);
        Script({bufferBytes, 0, LutInfo(8, 4, 28), 0, kEnableWrite, kEnableWrite, kEnableWrite, kEnableWrite,
                kEnableWrite, kEnableWrite, kEnableWrite});
        EXPECT_EQ(Object()->UploadLut(data.data(), 7, 0), S_OK);
        std::size_t quadlets = 0;
        for (const CWireRequest& request : Object().Sent()) {
            if (request.Word(16) != kBlockId) continue;
            const std::size_t count = (request.Bytes().size() - 36) / 4;
            EXPECT_EQ(count, std::min<std::size_t>(bufferBytes / 4, 7 - quadlets));
            EXPECT_EQ(request, Block(data.data() + quadlets, count));
            quadlets += count;
        }
        EXPECT_EQ(quadlets, 7u);
    }
}

TEST_F(LutUpload, without_a_gp_buffer_it_fails_before_anything_is_written) {
    const std::vector<ULONG> data = Data(1);
    for (const ULONG info : {0u, 3u, 0xFFFF0000u, 0xFFFF0003u}) {
        Script({info, 0, LutInfo(8, 4, 64)});
        EXPECT_EQ(Object()->UploadLut(data.data(), 1, 0), E_FAIL);
        for (const CWireRequest& request : Object().Sent())
            EXPECT_EQ(request.Word(20), 1u) << "only reads";
    }
}

TEST_F(LutUpload, of_nothing_opens_and_closes_the_memory) {
    const ULONG data = 0;
    Script({8, 5, LutInfo(8, 4, 64), 0});

    EXPECT_EQ(Object()->UploadLut(&data, 0, 0), S_OK);

    EXPECT_EQ(Object().Sent(), (Wire{Read(kGpInfo), Read(kLutCtrl), Read(kLutInfo), Read(kLutMemCtrl),
                                     Write(kLutMemCtrl, kEnableWrite), Write(kLutMemCtrl, 0), Write(kLutCtrl, 5)}));
}

TEST_F(LutUpload, null_data_is_refused_before_anything_is_sent) {
    EXPECT_EQ(Object()->UploadLut(nullptr, 1, 0), E_POINTER);
    EXPECT_EQ(Object()->UploadLut(nullptr, 0, 0), E_POINTER);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(LutUpload, each_failing_access_ends_it_with_its_code_but_two) {
    const std::vector<ULONG> data = Data(4);
    constexpr std::size_t kRequests = 11;
    // Requests: 1 GP info, 2 control, 3 info, 4 memory control, 5 open, 6 block, 7 state, 8 block, 9 state, 10 close,
    // 11 restore.
    for (int nth = 1; nth <= static_cast<int>(kRequests); ++nth) {
        SCOPED_TRACE("request " + std::to_string(nth));
        const bool tolerated = nth == 4 || nth == 6 || nth == 8;
        if (nth == 4) {
            Script({8, 0, LutInfo(8, 4, 64), kEnableWrite, kEnableWrite});
        } else {
            Script({8, 0, LutInfo(8, 4, 64), 0, kEnableWrite, kEnableWrite});
        }
        Object().FailNth(nth, E_ACCESSDENIED);

        EXPECT_EQ(Object()->UploadLut(data.data(), 4, 1), tolerated ? S_OK : E_ACCESSDENIED);

        const Wire sent = Object().Sent();
        EXPECT_EQ(sent.size(), tolerated ? kRequests : static_cast<std::size_t>(nth));
        if (nth == 4) {
            EXPECT_EQ(sent[4], Write(kLutMemCtrl, 0xFF010000)) << "an unread register counts as all ones";
            EXPECT_EQ(sent[9], Write(kLutMemCtrl, 0xFB010000)) << "the memory is closed whatever was read";
        }
    }
}

TEST_F(LutUpload, lands_in_the_cameras_memory_byte_for_byte) {
    ULONG word = 0;
    ASSERT_EQ(Object()->ReadRegister(kLutInfo, &word), S_OK);
    const ULONG sizeBytes = word & 0xFFFF;
    ASSERT_GT((word >> 24) & 0x1F, 8u) << "the simulated camera has 16-bit values";
    const std::vector<ULONG> data = Data(sizeBytes / 4);
    std::uint32_t controlBefore = 0;
    ASSERT_TRUE(Camera().PeekRegister(kLutCtrl, &controlBefore));

    ASSERT_EQ(Object()->UploadLut(data.data(), static_cast<ULONG>(data.size()), 2), S_OK);

    std::vector<std::uint8_t> memory(sizeBytes);
    ASSERT_EQ(Camera().ReadLutMemory(2, memory.data(), memory.size()), memory.size());
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(data.data());
    for (std::size_t i = 0; i < sizeBytes; i += 2) {
        ASSERT_EQ(memory[i], bytes[i + 1]) << "byte " << i << ": the camera keeps the high byte first";
        ASSERT_EQ(memory[i + 1], bytes[i]) << "byte " << i + 1;
    }
    std::uint32_t controlAfter = 0;
    ASSERT_TRUE(Camera().PeekRegister(kLutCtrl, &controlAfter));
    EXPECT_EQ(controlAfter, controlBefore);
    std::uint32_t memoryControl = 0;
    ASSERT_TRUE(Camera().PeekRegister(kLutMemCtrl, &memoryControl));
    EXPECT_EQ(memoryControl & kEnableWrite, 0u) << "the memory is closed again";
}

/// One LUT of the simulated camera, as its memory holds it.
std::vector<std::uint8_t> LutMemory(kolmsim::ISimulatedCamera& camera, ULONG lutNumber, std::size_t sizeBytes) {
    std::vector<std::uint8_t> memory(sizeBytes);
    EXPECT_GE(camera.ReadLutMemory(lutNumber, memory.data(), memory.size()), sizeBytes);
    return memory;
}

/// The words as bytes, 16-bit elements with the high byte first when `swap16`.
std::vector<std::uint8_t> BytesOf(const std::vector<ULONG>& words, bool swap16) {
    std::vector<std::uint8_t> bytes(words.size() * 4);
    std::memcpy(bytes.data(), words.data(), bytes.size());
    for (std::size_t i = 0; swap16 && i < bytes.size(); i += 2)
        std::swap(bytes[i], bytes[i + 1]);
    return bytes;
}

TEST_F(LutUpload, lands_in_the_cameras_memory_for_any_buffer_size_and_width) {
    for (const ULONG bits : {8u, 12u, 16u}) {
        for (const ULONG bufferBytes : {4u, 7u, 100u, 1024u, 2048u}) {
            for (const std::size_t quadlets : {1u, 25u, 101u, 600u}) {
                SCOPED_TRACE(std::to_string(bits) + " bits, buffer of " + std::to_string(bufferBytes) + " bytes, " +
                             std::to_string(quadlets) + " quadlets");
                Renew(L"color");
                ASSERT_TRUE(Camera().PokeRegister(kGpInfo, bufferBytes));
                ASSERT_TRUE(Camera().PokeRegister(kLutInfo, LutInfo(bits, 4, 8192)));
                const std::vector<ULONG> data = Data(quadlets);

                ASSERT_EQ(Object()->UploadLut(data.data(), static_cast<ULONG>(quadlets), 3), S_OK);

                EXPECT_EQ(LutMemory(Camera(), 3, 4 * quadlets), BytesOf(data, bits > 8));
            }
        }
    }
}

TEST_F(LutUpload, ends_early_where_the_cameras_memory_ends) {
    // The camera says that it takes more than it has, and closes its memory when that is full.
    ASSERT_TRUE(Camera().PokeRegister(kLutInfo, LutInfo(8, 4, 0xFFFF)));
    const std::vector<ULONG> data = Data(4 * 8192 / 4);

    EXPECT_EQ(Object()->UploadLut(data.data(), static_cast<ULONG>(data.size()), 1), S_OK);

    std::size_t sent = 0;
    for (const CWireRequest& request : Object().Sent()) {
        if (request.Word(16) == kBlockId) sent += request.Bytes().size() - 36;
    }
    EXPECT_GE(sent, 8192u);
    EXPECT_LT(sent, 4 * data.size());
    std::uint32_t control = 0;
    ASSERT_TRUE(Camera().PeekRegister(kLutMemCtrl, &control));
    EXPECT_EQ(control & kEnableWrite, 0u);
}

class Shading : public ScriptedRegisters {};

TEST_F(Shading, info_is_channel_and_size_in_quadlets) {
    Script({0x8A123457});
    ULONG a = kPoison;
    ULONG b = kPoison;

    EXPECT_EQ(Object()->GetRegisterComposite72(&a, &b), S_OK);

    EXPECT_EQ(a, 0xAu);
    EXPECT_EQ(b, 0x123457u / 4);
    EXPECT_EQ(Object().Sent(), Wire{Read(kShadingInfo)});
}

TEST_F(Shading, info_takes_exactly_its_fields) {
    ULONG a = kPoison;
    ULONG b = kPoison;
    Script({0xFFFFFFFF});
    EXPECT_EQ(Object()->GetRegisterComposite72(&a, &b), S_OK);
    EXPECT_EQ(a, 15u);
    EXPECT_EQ(b, 0x3FFFFFu);
    Script({0xF0000000});
    EXPECT_EQ(Object()->GetRegisterComposite72(&a, &b), S_OK);
    EXPECT_EQ(a, 0u);
    EXPECT_EQ(b, 0u);
}

TEST_F(Shading, takes_another_success_code_for_a_success) {
    std::vector<ULONG> data = Data(2);
    ULONG a = kPoison;
    ULONG b = kPoison;
    Script({0x8A000010});
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_FALSE});
    EXPECT_EQ(Object()->GetRegisterComposite72(&a, &b), S_FALSE);
    EXPECT_EQ(b, 4u);
    Script({8, 0x8A000010, 0, kEnableWrite});
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_FALSE});
    EXPECT_EQ(Object()->SetRegisterComposite73(data.data(), 2), S_FALSE);
    EXPECT_EQ(Object().Sent().size(), 7u) << "it ran to its end";
}

TEST_F(Shading, upload_keeps_every_bit_but_the_offset) {
    std::vector<ULONG> data = Data(1);
    Script({8, 0x8A000010, 0xFFFFFFFF, kEnableWrite});
    EXPECT_EQ(Object()->SetRegisterComposite73(data.data(), 1), S_OK);
    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 7u);
    EXPECT_EQ(sent[3], Write(kShadingMemCtrl, 0xFF000000));
    EXPECT_EQ(sent[6], Write(kShadingMemCtrl, 0xFB000000));
}

TEST_F(Shading, info_refuses_nulls_and_passes_failures_through) {
    ULONG a = kPoison;
    EXPECT_EQ(Object()->GetRegisterComposite72(nullptr, &a), E_POINTER);
    EXPECT_EQ(Object()->GetRegisterComposite72(&a, nullptr), E_POINTER);
    EXPECT_EQ(Object().Sent(), Wire{});
    Object().FailNth(1, E_ACCESSDENIED);
    ULONG b = kPoison;
    EXPECT_EQ(Object()->GetRegisterComposite72(&a, &b), E_ACCESSDENIED);
    EXPECT_EQ(a, kPoison);
    EXPECT_EQ(b, kPoison);
}

TEST_F(Shading, upload_sends_the_whole_conversation_in_order) {
    std::vector<ULONG> data = Data(3);
    Script({8, 0x8A00000C, 0x82123456, kEnableWrite, kEnableWrite});

    EXPECT_EQ(Object()->SetRegisterComposite73(data.data(), 3), S_OK);

    EXPECT_EQ(Object().Sent(),
              (Wire{Read(kGpInfo), Read(kShadingInfo), Read(kShadingMemCtrl), Write(kShadingMemCtrl, 0x86000000),
                    Block(data.data(), 2), Read(kShadingMemCtrl), Block(data.data() + 2, 1), Read(kShadingMemCtrl),
                    Write(kShadingMemCtrl, 0x82000000)}));
}

TEST_F(Shading, upload_refuses_what_does_not_fit) {
    std::vector<ULONG> data = Data(4);
    EXPECT_EQ(Object()->SetRegisterComposite73(nullptr, 1), E_POINTER);
    EXPECT_EQ(Object().Sent(), Wire{});
    Script({8, 0x8A00000F});
    EXPECT_EQ(Object()->SetRegisterComposite73(data.data(), 4), E_INVALIDARG);
    EXPECT_EQ(Object().Sent(), (Wire{Read(kGpInfo), Read(kShadingInfo)}));
    Script({3, 0x8A00000F});
    EXPECT_EQ(Object()->SetRegisterComposite73(data.data(), 1), E_FAIL);
}

TEST_F(Shading, each_failing_access_of_an_upload_ends_it_with_its_code_but_two) {
    std::vector<ULONG> data = Data(4);
    // Requests: 1 GP info, 2 info, 3 memory control, 4 open, 5 block, 6 state, 7 block, 8 state, 9 close.
    for (int nth = 1; nth <= 9; ++nth) {
        SCOPED_TRACE("request " + std::to_string(nth));
        const bool tolerated = nth == 3 || nth == 5 || nth == 7;
        if (nth == 3) {
            Script({8, 0x8A000010, kEnableWrite, kEnableWrite});
        } else {
            Script({8, 0x8A000010, 0, kEnableWrite, kEnableWrite});
        }
        Object().FailNth(nth, E_ACCESSDENIED);

        EXPECT_EQ(Object()->SetRegisterComposite73(data.data(), 4), tolerated ? S_OK : E_ACCESSDENIED);
        const Wire sent = Object().Sent();
        EXPECT_EQ(sent.size(), tolerated ? 9u : static_cast<std::size_t>(nth));
        if (nth == 3) {
            EXPECT_EQ(sent[3], Write(kShadingMemCtrl, 0xFF000000));
            EXPECT_EQ(sent[8], Write(kShadingMemCtrl, 0xFB000000)) << "the memory is closed whatever was read";
        }
    }
}

class Composites : public ScriptedRegisters {};

TEST_F(Composites, property_56_tells_the_driver_three_registers_and_a_selector) {
    Script({0x11, 0x22, 0x33});
    Object().Patch(56, 28, 0x44);
    ULONG value = kPoison;

    EXPECT_EQ(Object()->GetProperty56Composite(41, &value), S_OK);

    EXPECT_EQ(value, 0x44u);
    EXPECT_EQ(Object().Sent(), (Wire{Read(0xF1000040), Read(0xF1000010), Read(0xF1000018),
                                     Get(56).With(24, 41).With(36, 0x11).With(40, 0x22).With(44, 0x33)}));
}

TEST_F(Composites, property_56_goes_on_without_registers_and_fails_with_its_own_request) {
    for (int nth = 1; nth <= 4; ++nth) {
        SCOPED_TRACE(nth);
        Script({});
        Object().FailNth(nth, E_ACCESSDENIED);
        ULONG value = kPoison;

        EXPECT_EQ(Object()->GetProperty56Composite(5, &value), nth == 4 ? E_ACCESSDENIED : S_OK);

        const Wire sent = Object().Sent();
        ASSERT_EQ(sent.size(), 4u);
        if (nth < 4) {
            EXPECT_EQ(sent[3].Word(32 + 4 * static_cast<std::size_t>(nth)), 0xFFFFFFFFu) << "all ones for it";
        } else {
            EXPECT_EQ(value, kPoison);
        }
    }
    Script({});
    EXPECT_EQ(Object()->GetProperty56Composite(5, nullptr), E_POINTER);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(Composites, property_56_takes_another_success_code_for_a_success) {
    Script({1, 2, 3});
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::answer, .code = S_FALSE});
    Object().Patch(56, 28, 0x44, S_FALSE);
    ULONG value = kPoison;
    EXPECT_EQ(Object()->GetProperty56Composite(5, &value), S_FALSE);
    EXPECT_EQ(value, 0x44u);
}

TEST_F(Composites, any_property_always_uses_64_bytes) {
    Script({});
    ULONG word = 0;
    for (const ULONG id : {9UL, 11UL, 13UL, 26UL, 65UL}) {
        EXPECT_EQ(Object()->GetPropertyById(id, &word, &word, &word), S_OK);
        EXPECT_EQ(Object()->SetPropertyById(id, FALSE, 1, FALSE), S_OK);
        EXPECT_EQ(Object().Sent(), (Wire{Get(id), Set(id).With(24, 1)}));
    }
}

TEST_F(Composites, property_10_repeats_six_words_even_into_one_place) {
    Script({});
    for (ULONG i = 0; i < 6; ++i)
        Object().Patch(10, 612 + 4 * i, 0x100 + i);
    Object().Patch(10, 24, 0x77);
    ULONG dummy = 0;
    ULONG w[7] = {};
    EXPECT_EQ(Object()->GetProperty10Block(&dummy, &dummy, &dummy, &dummy, &dummy, &dummy, &w[0], &w[1], &w[2], &w[3],
                                           &w[4], &w[5], &w[6]),
              E_NOTIMPL);
    for (ULONG i = 0; i < 6; ++i)
        EXPECT_EQ(w[i], 0x100 + i);
    EXPECT_EQ(w[6], 0x77u);
}

TEST_F(Composites, an_index_beyond_3_is_refused_and_nothing_is_sent) {
    ULONG value = kPoison;
    for (const ULONG index : {4u, 5u, 0xFFFFFFDEu, 0xFFFFFFFFu}) {
        EXPECT_EQ(Object()->SetIndexedProperty34(index, 1), E_INVALIDARG);
        EXPECT_EQ(Object()->GetIndexedProperty34(index, &value), E_INVALIDARG);
    }
    EXPECT_EQ(value, kPoison);
    EXPECT_EQ(Object()->GetIndexedProperty34(4, nullptr), E_POINTER) << "null comes first";
    EXPECT_EQ(Object().Sent(), Wire{});
    Script({});
    for (ULONG index = 0; index <= 3; ++index) {
        EXPECT_EQ(Object()->SetIndexedProperty34(index, 7), S_OK);
        EXPECT_EQ(Object()->GetIndexedProperty34(index, &value), S_OK);
        EXPECT_EQ(Object().Sent(), (Wire{Set(34 + index).With(24, 7), Get(34 + index)}));
    }
}

TEST_F(Composites, switch_words_of_properties_30_32_33_and_the_lut) {
    Script({});
    EXPECT_EQ(Object()->SetProperty30(FALSE, FALSE, FALSE, 1, 1, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty30(TRUE, FALSE, 7, 1, 1, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty32(2, 2, FALSE, TRUE, TRUE, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty32(TRUE, FALSE, 2, 2, TRUE, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty33(FALSE, TRUE, TRUE, TRUE, TRUE, 9), S_OK);
    EXPECT_EQ(Object()->SetProperty33(TRUE, FALSE, FALSE, FALSE, -1, 9), S_OK);
    EXPECT_EQ(Object()->SetLutControl(0, 9), S_OK);
    EXPECT_EQ(Object()->SetLutControl(0xFFFFFFFF, 9), S_OK);
    EXPECT_EQ(Object()->SetPropertyById(70, FALSE, 9, FALSE), S_OK);
    EXPECT_EQ(Object()->SetPropertyById(70, FALSE, 9, 2), S_OK);

    const auto word = [](ULONG id, ULONG flags) { return Set(id).With(24, 9).With(28, flags); };
    EXPECT_EQ(Object().Sent(), (Wire{word(30, 0x4), word(30, 0x2002), word(32, 0x4 | 0x100), word(32, 0x2 | 0x800),
                                     word(33, 0x4 | 0x80 | 0x8000), word(33, 0x2), word(31, 0x4), word(31, 0x2),
                                     word(70, 0), word(70, 0x20000)}));
}

TEST_F(Composites, auto_flag_of_property_42_follows_AutoOn_too) {
    for (const auto& [autoOn, expected] : {std::pair{1u, TRUE}, {0u, FALSE}, {2u, FALSE}}) {
        Script({});
        Object().Patch(42, 28, 0);
        Object().Patch(42, 44, autoOn);
        BOOL f1 = 42;
        BOOL f2 = 42;
        BOOL f3 = 42;
        ULONG value = 0;
        ULONG b = 0;
        EXPECT_EQ(Object()->GetProperty42(&f1, &f2, &f3, &value, &b), S_OK);
        EXPECT_EQ(f1, expected) << "AutoOn " << autoOn;
        EXPECT_EQ(f2, FALSE);
        EXPECT_EQ(f3, FALSE);
    }
}

}  // namespace
}  // namespace kolmfluxor::test
