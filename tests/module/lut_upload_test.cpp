/// @file  Uploads of look-up tables through the camera's GP buffer, register by register.

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "module/scripted_registers.h"

namespace kolmfluxor::test {
namespace {

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

}  // namespace
}  // namespace kolmfluxor::test
