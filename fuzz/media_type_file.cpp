/// @file  Any bytes as a media-type file, for format blocks of any size.
///
/// The input's first two bytes choose the block; the file is the rest, as the C library hands it over.

#include "media/media_type_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include "check.h"
#include "fuzz_input.h"

namespace {

using kolmfluxor::fuzz::CFuzzInput;
using kolmfluxor::fuzz::Fail;

constexpr char kWhere[] = "media_type_file";
constexpr std::size_t kRecordSize = 88;
constexpr std::size_t kTakenSize = 60;  // GUIDs, flags and sample size lie side by side at the record's start
constexpr BYTE kOldByte = 0xEE;

void Expect(bool holds, const char* what) {
    kolmfluxor::fuzz::Expect(holds, kWhere, what);
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::unique_ptr<std::FILE, FileCloser> FileOf(std::span<const std::uint8_t> content) {
    if (content.empty()) return std::unique_ptr<std::FILE, FileCloser>(std::fopen("/dev/null", "r"));
    // Opened for reading, so that nothing is written to the content.
    auto* const bytes = const_cast<std::uint8_t*>(content.data());
    return std::unique_ptr<std::FILE, FileCloser>(::fmemopen(bytes, content.size(), "r"));
}

std::array<BYTE, kTakenSize> TakenPart(const AM_MEDIA_TYPE& type) {
    std::array<BYTE, kTakenSize> bytes{};
    std::memcpy(bytes.data(), &type, bytes.size());
    return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CFuzzInput input(data, size);
    const std::size_t blockSize = input.Byte() % 128;
    const bool blockThere = input.Byte() % 8 != 0;
    const std::span<const std::uint8_t> content = input.Rest();

    std::vector<BYTE> block(blockSize, kOldByte);
    block.shrink_to_fit();
    AM_MEDIA_TYPE type{};
    std::memset(&type, kOldByte, kTakenSize);
    type.pUnk = reinterpret_cast<IUnknown*>(&type);  // a value alone: nobody may use it
    type.cbFormat = static_cast<ULONG>(blockSize);
    type.pbFormat = blockThere ? block.data() : nullptr;
    const AM_MEDIA_TYPE before = type;

    const auto file = FileOf(content);
    if (file == nullptr) Fail(kWhere, "no file");
    kolmfluxor::ReadMediaType(*file, type);

    std::array<BYTE, kTakenSize> expected = TakenPart(before);
    std::copy_n(content.begin(), std::min(content.size(), expected.size()), expected.begin());
    Expect(TakenPart(type) == expected, "the taken fields are the file's");
    Expect(type.pUnk == before.pUnk && type.cbFormat == before.cbFormat && type.pbFormat == before.pbFormat,
           "the other members stay");
    std::vector<BYTE> expectedBlock(blockSize, kOldByte);
    if (blockThere && content.size() > kRecordSize) {
        const auto header = content.subspan(kRecordSize);
        std::copy_n(header.begin(), std::min({header.size(), kRecordSize, blockSize}), expectedBlock.begin());
    }
    Expect(block == expectedBlock, "the block is the file's as far as both reach");
    return 0;
}
