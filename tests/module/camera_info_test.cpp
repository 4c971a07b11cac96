/// @file  Camera information: three texts, a number, two versions, each in a block of its own.

#include <algorithm>
#include <cstring>
#include <string>

#include "support/failing_task_memory.h"
#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kInfoId = 9;
constexpr ULONG kVersionId = 38;
constexpr ULONG kTextOffsets[] = {24, 280, 536};
constexpr ULONG kNumberOffset = 792;
constexpr std::size_t kTextSize = 256;

/// The outputs of `GetCameraInfoEx`; frees what it was given.
struct Info {
    static constexpr char kLeftAlone[] = "left alone";

    char* texts[3] = {const_cast<char*>(kLeftAlone), const_cast<char*>(kLeftAlone), const_cast<char*>(kLeftAlone)};
    ULONG number = kPoison;
    char* versions[2] = {const_cast<char*>(kLeftAlone), const_cast<char*>(kLeftAlone)};

    Info() = default;
    Info(const Info&) = delete;
    Info& operator=(const Info&) = delete;
    ~Info() {
        EXPECT_TRUE(::HeapValidate(::GetProcessHeap(), 0, nullptr)) << "a text was written beyond its block";
        for (char* text : texts)
            Free(text);
        for (char* text : versions)
            Free(text);
    }
    HRESULT Read(IKolmFluxorPropertySet* set) { return set->GetCameraInfo(&texts[0], &texts[1], &texts[2], &number); }
    HRESULT ReadEx(IKolmFluxorPropertySet* set) {
        return set->GetCameraInfoEx(&texts[0], &texts[1], &texts[2], &number, &versions[0], &versions[1]);
    }

private:
    static void Free(char* text) {
        if (text != kLeftAlone) ::CoTaskMemFree(text);
    }
};

/// The size of a task-memory block.
SIZE_T BlockSize(void* block) {
    IMalloc* allocator = nullptr;
    EXPECT_EQ(::CoGetMalloc(1, &allocator), S_OK);
    const SIZE_T size = allocator->GetSize(block);
    allocator->Release();
    return size;
}

class CameraInfo : public PropertySetTest {
protected:
    /// Every answer to the information request carries this text in field `field`, padded with NULs.
    void PatchText(int field, const std::string& text) {
        for (std::size_t at = 0; at < kTextSize; at += 4) {
            char bytes[4] = {};
            if (at < text.size()) std::memcpy(bytes, text.data() + at, std::min<std::size_t>(4, text.size() - at));
            ULONG word = 0;
            std::memcpy(&word, bytes, 4);
            Object().Patch(kInfoId, kTextOffsets[field] + static_cast<ULONG>(at), word);
        }
    }
};

TEST_F(CameraInfo, is_one_request_of_800_bytes) {
    PatchText(0, "Maker");
    PatchText(1, "Model 42");
    PatchText(2, "Driver");
    Object().Patch(kInfoId, kNumberOffset, 0x12345678);
    Info info;

    EXPECT_EQ(info.Read(Object().Get()), S_OK);

    EXPECT_STREQ(info.texts[0], "Maker");
    EXPECT_STREQ(info.texts[1], "Model 42");
    EXPECT_STREQ(info.texts[2], "Driver");
    EXPECT_EQ(info.number, 0x12345678u);
    EXPECT_EQ(Object().Sent(), Wire{Get(kInfoId, 800)});
}

TEST_F(CameraInfo, of_the_simulated_camera_names_it) {
    Info info;

    EXPECT_EQ(info.ReadEx(Object().Get()), S_OK);

    for (const char* text : info.texts)
        EXPECT_GT(std::strlen(text), 0u);
    for (const char* version : info.versions)
        EXPECT_EQ(std::strlen(version), 5u);
}

TEST_F(CameraInfo, empty_texts_are_three_blocks_of_one_byte) {
    for (int field = 0; field < 3; ++field)
        PatchText(field, "");
    Info info;

    EXPECT_EQ(info.Read(Object().Get()), S_OK);

    for (char* text : info.texts) {
        EXPECT_STREQ(text, "");
        EXPECT_EQ(BlockSize(text), 1u);
    }
    EXPECT_NE(info.texts[0], info.texts[1]);
    EXPECT_NE(info.texts[1], info.texts[2]);
}

TEST_F(CameraInfo, a_text_without_a_nul_ends_with_its_field) {
    const std::string full(kTextSize, 'x');
    PatchText(1, full);
    PatchText(2, "next");
    Info info;

    EXPECT_EQ(info.Read(Object().Get()), S_OK);

    EXPECT_EQ(info.texts[1], full);
    EXPECT_EQ(BlockSize(info.texts[1]), kTextSize + 1);
    EXPECT_STREQ(info.texts[2], "next");
}

TEST_F(CameraInfo, each_null_output_is_refused_and_nothing_is_sent) {
    char* t = nullptr;
    ULONG n = 0;
    auto* const set = Object().Get();

    EXPECT_EQ(set->GetCameraInfo(nullptr, &t, &t, &n), E_POINTER);
    EXPECT_EQ(set->GetCameraInfo(&t, nullptr, &t, &n), E_POINTER);
    EXPECT_EQ(set->GetCameraInfo(&t, &t, nullptr, &n), E_POINTER);
    EXPECT_EQ(set->GetCameraInfo(&t, &t, &t, nullptr), E_POINTER);
    EXPECT_EQ(set->GetCameraInfoEx(nullptr, &t, &t, &n, &t, &t), E_POINTER);
    EXPECT_EQ(set->GetCameraInfoEx(&t, nullptr, &t, &n, &t, &t), E_POINTER);
    EXPECT_EQ(set->GetCameraInfoEx(&t, &t, nullptr, &n, &t, &t), E_POINTER);
    EXPECT_EQ(set->GetCameraInfoEx(&t, &t, &t, nullptr, &t, &t), E_POINTER);
    EXPECT_EQ(set->GetCameraInfoEx(&t, &t, &t, &n, nullptr, &t), E_POINTER);
    EXPECT_EQ(set->GetCameraInfoEx(&t, &t, &t, &n, &t, nullptr), E_POINTER);

    EXPECT_EQ(t, nullptr);
    EXPECT_EQ(Object().Sent(), Wire{});
}

TEST_F(CameraInfo, a_failed_request_leaves_every_output) {
    Object().FailNth(1, E_ACCESSDENIED);
    Info info;

    EXPECT_EQ(info.Read(Object().Get()), E_ACCESSDENIED);

    for (const char* text : info.texts)
        EXPECT_STREQ(text, Info::kLeftAlone);
    EXPECT_EQ(info.number, kPoison);
}

TEST_F(CameraInfo, versions_are_the_four_low_nibbles) {
    Object().Patch(kVersionId, 24, 0x0312);
    Object().Patch(kVersionId, 40, 0xFFFF9087);
    Info info;

    EXPECT_EQ(info.ReadEx(Object().Get()), S_OK);

    EXPECT_STREQ(info.versions[0], "03.12");
    EXPECT_STREQ(info.versions[1], "90.87");
    EXPECT_EQ(BlockSize(info.versions[0]), 6u);
    EXPECT_EQ(Object().Sent(), (Wire{Get(kInfoId, 800), Get(kVersionId)}));
}

TEST_F(CameraInfo, version_nibbles_of_10_and_above_stay_inside_six_bytes) {
    Object().Patch(kVersionId, 24, 0xFFFF);
    Object().Patch(kVersionId, 40, 0x00A1);
    Info info;

    EXPECT_EQ(info.ReadEx(Object().Get()), S_OK);

    EXPECT_STREQ(info.versions[0], "1515.");
    EXPECT_STREQ(info.versions[1], "00.10");
    for (char* version : info.versions)
        EXPECT_EQ(BlockSize(version), 6u);
}

TEST_F(CameraInfo, without_versions_the_texts_are_there_and_the_code_is_that_of_the_versions) {
    Object().FailNth(2, E_ACCESSDENIED);
    Info info;

    EXPECT_EQ(info.ReadEx(Object().Get()), E_ACCESSDENIED);

    for (const char* text : info.texts)
        EXPECT_STRNE(text, Info::kLeftAlone);
    for (const char* version : info.versions)
        EXPECT_STREQ(version, Info::kLeftAlone);
}

TEST_F(CameraInfo, without_texts_the_versions_are_there_and_the_code_is_that_of_the_texts) {
    Object().FailNth(1, E_ACCESSDENIED);
    Info info;

    EXPECT_EQ(info.ReadEx(Object().Get()), E_ACCESSDENIED);

    for (const char* text : info.texts)
        EXPECT_STREQ(text, Info::kLeftAlone);
    EXPECT_EQ(info.number, kPoison);
    for (const char* version : info.versions)
        EXPECT_STRNE(version, Info::kLeftAlone);
    EXPECT_EQ(Object().Sent().size(), 2u) << "the second request is sent all the same";
}

TEST_F(CameraInfo, out_of_memory_for_a_text_hands_nothing_out) {
    for (int first = 1; first <= 3; ++first) {
        SCOPED_TRACE(first);
        Info info;
        {
            const CFailingTaskMemory failing(first);
            EXPECT_EQ(info.Read(Object().Get()), E_OUTOFMEMORY);
        }
        for (const char* text : info.texts)
            EXPECT_STREQ(text, Info::kLeftAlone);
        EXPECT_EQ(info.number, kPoison);
    }
}

TEST_F(CameraInfo, out_of_memory_for_a_text_leaves_the_versions_to_the_second_request) {
    for (int nth = 1; nth <= 3; ++nth) {
        SCOPED_TRACE(nth);
        const CFailingTaskMemory failing(nth, 1);
        Info info;

        EXPECT_EQ(info.ReadEx(Object().Get()), E_OUTOFMEMORY);

        EXPECT_EQ(Object().Sent(), (Wire{Get(kInfoId, 800), Get(kVersionId)}));
        for (const char* text : info.texts)
            EXPECT_STREQ(text, Info::kLeftAlone);
        EXPECT_EQ(info.number, kPoison);
        for (const char* version : info.versions)
            EXPECT_EQ(std::strlen(version), 5u);
    }
}

TEST_F(CameraInfo, out_of_memory_for_a_version_hands_the_texts_out_and_no_version) {
    for (int first = 4; first <= 5; ++first) {
        SCOPED_TRACE(first);
        const CFailingTaskMemory failing(first);
        Info info;

        EXPECT_EQ(info.ReadEx(Object().Get()), E_OUTOFMEMORY);

        for (const char* text : info.texts)
            EXPECT_STRNE(text, Info::kLeftAlone);
        for (const char* version : info.versions)
            EXPECT_STREQ(version, Info::kLeftAlone);
    }
}

TEST_F(CameraInfo, another_success_code_is_a_success_and_passes_through) {
    Object().Patch(kInfoId, kNumberOffset, 0x77, S_FALSE);
    Info info;

    EXPECT_EQ(info.ReadEx(Object().Get()), S_FALSE) << "the first request's code";

    EXPECT_EQ(info.number, 0x77u);
    for (const char* text : info.texts)
        EXPECT_STRNE(text, Info::kLeftAlone);
    for (const char* version : info.versions)
        EXPECT_STRNE(version, Info::kLeftAlone);
}

}  // namespace
}  // namespace kolmfluxor::test
