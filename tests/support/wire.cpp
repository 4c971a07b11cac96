#include "support/wire.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <iomanip>
#include <ostream>

namespace kolmfluxor::test {
namespace {

/// {BE226229-D865-4F2E-AB89-13F359E8F46A} as it travels.
constexpr std::array<std::uint8_t, 16> kPropertySet = {0x29, 0x62, 0x22, 0xBE, 0x65, 0xD8, 0x2E, 0x4F,
                                                       0xAB, 0x89, 0x13, 0xF3, 0x59, 0xE8, 0xF4, 0x6A};
constexpr std::size_t kIdOffset = 16;
constexpr std::size_t kFlagsOffset = 20;
constexpr std::size_t kHeaderSize = 24;
constexpr std::uint32_t kGet = 1;
constexpr std::uint32_t kSet = 2;

}  // namespace

CWireRequest::CWireRequest(std::uint32_t id, std::uint32_t flags, std::size_t sizeBytes) : m_bytes(sizeBytes) {
    std::memcpy(m_bytes.data(), kPropertySet.data(), kPropertySet.size());
    *this = With(kIdOffset, id).With(kFlagsOffset, flags);
}

CWireRequest CWireRequest::With(std::size_t offset, std::uint32_t word) const {
    CWireRequest changed(*this);
    std::memcpy(changed.m_bytes.data() + offset, &word, sizeof word);
    return changed;
}

CWireRequest CWireRequest::AsSet() const {
    return With(kFlagsOffset, kSet);
}

std::uint32_t CWireRequest::Word(std::size_t offset) const {
    std::uint32_t word = 0;
    std::memcpy(&word, m_bytes.data() + offset, sizeof word);
    return word;
}

void PrintTo(const CWireRequest& request, std::ostream* out) {
    if (request.Bytes().size() < kHeaderSize) {
        *out << "(a record of " << request.Bytes().size() << " bytes)";
        return;
    }
    const bool ours = std::equal(kPropertySet.begin(), kPropertySet.end(), request.Bytes().begin());
    const std::uint32_t flags = request.Word(kFlagsOffset);
    *out << (ours ? "" : "OTHER SET ")
         << (flags == kGet   ? "GET"
             : flags == kSet ? "SET"
                             : "?")
         << " id " << request.Word(kIdOffset) << ", " << request.Bytes().size() << " bytes";
    for (std::size_t offset = kHeaderSize; offset + 4 <= request.Bytes().size(); offset += 4) {
        if (const std::uint32_t word = request.Word(offset); word != 0) {
            *out << ", " << std::dec << offset << ": 0x" << std::hex << word << std::dec;
        }
    }
}

CWireRequest Get(std::uint32_t id, std::size_t sizeBytes) {
    return {id, kGet, sizeBytes};
}

CWireRequest Set(std::uint32_t id, std::size_t sizeBytes) {
    return {id, kSet, sizeBytes};
}

Wire SentTo(kolmsim::ISimulatedCamera& camera) {
    Wire wire;
    for (std::size_t i = 0; i < camera.RequestCount(); ++i) {
        kolmsim::SimRequest request{};
        EXPECT_TRUE(camera.Request(i, &request));
        EXPECT_STREQ(request.objection, nullptr) << "request " << i << " breaks the driver contract";
        wire.emplace_back(std::vector<std::uint8_t>(request.sent, request.sent + request.sizeBytes));
    }
    return wire;
}

CWireRequest AnswerOf(kolmsim::ISimulatedCamera& camera, std::size_t index) {
    kolmsim::SimRequest request{};
    if (!camera.Request(index, &request)) {
        ADD_FAILURE() << "there is no request " << index;
        return Get(0);
    }
    return CWireRequest(std::vector<std::uint8_t>(request.answered, request.answered + request.sizeBytes));
}

}  // namespace kolmfluxor::test
