/// @file  kolmctl features.

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class KolmctlFeatures : public KolmctlTest {};

// The camera in its factory state.
constexpr char kColorCamera[] =
    "FEATURE                ID  VALUE  MIN       MAX  MODE    SUPPORTED MODES\n"
    "brightness            256     16    0       255  manual  manual,auto\n"
    "auto-exposure         257    125   50       205  manual  off,manual,auto\n"
    "sharpness             258      2    0         7  manual  off,manual\n"
    "white-balance-ub      259    284    0       568  manual  manual,one-push,auto\n"
    "white-balance-vr      260    300    0       568  manual  manual,one-push,auto\n"
    "hue                   261    128   88       168  manual  off,manual\n"
    "saturation            262    256    0       511  manual  off,manual\n"
    "gamma                 263      1    0         1  off     off,manual\n"
    "shutter               264    500    1      4095  manual  manual,one-push,auto\n"
    "gain                  265     64    0       255  manual  manual,one-push,auto\n"
    "trigger-delay         266    250    0   2097151  off     off,manual\n"
    "time-base             512      4    0         9  manual  manual\n"
    "extended-shutter      514  10000    1  67108863  manual  manual\n"
    "feature-515           515      0    0         4  off     off,manual\n"
    "lut                   516     12    1        16  manual  manual\n"
    "feature-517           517      7    0      4095  off     off,manual\n"
    "feature-520           520      3    0       255  manual  manual\n"
    "color-correction      521      1    0         1  off     off,manual\n"
    "feature-523           523      1    0         1  off     off,manual\n"
    "dsnu-correction       526     16    1       255  manual  off,manual,show-image,load-data,clear-data\n"
    "feature-527           527     32    1       255  manual  off,manual,show-image,load-data,save-data,clear-data\n"
    "delayed-integration   528    100    0   1048575  off     off,manual\n"
    "high-snr              539      4    2       256  off     off,manual\n"
    "feature-542           542      1    0        31  manual  off,manual\n"
    "feature-543           543      2    0        31  manual  off,manual\n"
    "feature-544           544      6    0        31  off     off,manual\n"
    "iso-channel          1032      5    0        63  auto    manual,auto\n";

TEST_F(KolmctlFeatures, shows_all_features_of_a_color_camera) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"features"}), Prints(std::string(kColorCamera)));
}

TEST_F(KolmctlFeatures, leaves_out_what_a_mono_camera_lacks) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate=mono", L"features", L"--tsv"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, StartsWith("feature\tid\tvalue\tmin\tmax\tmode\tmodes\n"
                                        "brightness\t256\t16\t0\t255\tmanual\tmanual,auto\n"));
    for (const char* colorOnly : {"white-balance-ub", "white-balance-vr", "hue", "saturation", "color-correction"}) {
        EXPECT_THAT(outcome.out, Not(HasSubstr(colorOnly)));
    }
}

TEST_F(KolmctlFeatures, prints_json) {
    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"--json", L"features"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, StartsWith("[\n"
                                        "  {\n"
                                        "    \"feature\": \"brightness\",\n"
                                        "    \"id\": 256,\n"
                                        "    \"value\": 16,\n"
                                        "    \"min\": 0,\n"
                                        "    \"max\": 255,\n"
                                        "    \"mode\": \"manual\",\n"
                                        "    \"modes\": [\n"
                                        "      \"manual\",\n"
                                        "      \"auto\"\n"
                                        "    ]\n"
                                        "  },\n"));
}

TEST_F(KolmctlFeatures, calls_a_mode_without_a_name_unknown) {
    ASSERT_TRUE(OpenCamera()->SetFeatureWord(kGain, kMode, 0x20));

    const ProcessOutcome outcome = Kolmctl({L"--simulate", L"features", L"--tsv"});

    EXPECT_EQ(outcome.exitCode, kSuccess) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("\ngain\t265\t64\t0\t255\tunknown\tmanual,one-push,auto\n"));
}

TEST_F(KolmctlFeatures, takes_no_argument) {
    EXPECT_THAT(Kolmctl({L"--simulate", L"features", L"gain"}), Fails(kUsage, "gain"));
}

TEST_F(KolmctlFeatures, fails_when_no_device_offers_the_property_set) {
    Module().Unregister();

    EXPECT_THAT(Kolmctl({L"features"}), Fails(kNoDevice, "no capture device offers the property set"));
}

}  // namespace
}  // namespace kolmfluxor::test
