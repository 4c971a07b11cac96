#include "media/subtype_name.h"

#include <cstring>

#include <uuids.h>

#include <gtest/gtest.h>

namespace kolmfluxor {
namespace {

/// The four characters followed by -0000-0010-8000-00AA00389B71, as bytes in memory.
AM_MEDIA_TYPE TypeOf(const char* fourCc) {
    constexpr BYTE kSuffix[] = {0x00, 0x00, 0x10, 0x00, 0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};
    AM_MEDIA_TYPE type{};
    std::memcpy(&type.subtype, fourCc, 4);
    std::memcpy(reinterpret_cast<BYTE*>(&type.subtype) + 4, kSuffix, sizeof kSuffix);
    return type;
}

TEST(SubtypeName, names_the_camera_s_formats) {
    EXPECT_STREQ(SubtypeName(TypeOf("Y800")), "Mono8");
    EXPECT_STREQ(SubtypeName(TypeOf("AY12")), "Mono12");
    EXPECT_STREQ(SubtypeName(TypeOf("AY16")), "Mono16");
    EXPECT_STREQ(SubtypeName(TypeOf("ARW8")), "Raw8");
    EXPECT_STREQ(SubtypeName(TypeOf("ARW2")), "Raw12");
    EXPECT_STREQ(SubtypeName(TypeOf("ARW6")), "Raw16");
    EXPECT_STREQ(SubtypeName(TypeOf("UYVY")), "UYVY(YUV422)");
    EXPECT_STREQ(SubtypeName(TypeOf("Y411")), "YUV411");
}

TEST(SubtypeName, names_the_system_s_24_bit_colors) {
    AM_MEDIA_TYPE type{};
    type.subtype = {0xE436EB7D, 0x524F, 0x11CE, {0x9F, 0x53, 0x00, 0x20, 0xAF, 0x0B, 0xA7, 0x70}};
    EXPECT_STREQ(SubtypeName(type), "RGB24");
    type.subtype = MEDIASUBTYPE_UYVY;
    EXPECT_STREQ(SubtypeName(type), "UYVY(YUV422)") << "the system's constant is the FOURCC's";
}

TEST(SubtypeName, anything_else_is_unknown) {
    EXPECT_STREQ(SubtypeName({}), "unknown");
    EXPECT_STREQ(SubtypeName(TypeOf("YUY2")), "unknown");
    EXPECT_STREQ(SubtypeName(TypeOf("y800")), "unknown");
    AM_MEDIA_TYPE type = TypeOf("Y800");
    type.subtype.Data4[7] ^= 1;
    EXPECT_STREQ(SubtypeName(type), "unknown") << "the suffix counts";
    type.subtype = MEDIASUBTYPE_RGB32;
    EXPECT_STREQ(SubtypeName(type), "unknown");
}

}  // namespace
}  // namespace kolmfluxor
