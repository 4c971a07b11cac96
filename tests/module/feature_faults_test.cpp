/// @file  The generic feature operations when the driver fails, answers oddly, or is gone.

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "support/property_set_test.h"

namespace kolmfluxor::test {
namespace {

constexpr ULONG kGain = 265;
constexpr ULONG kGainId = 0;
constexpr ULONG kManual = 1;

/// A generic operation with valid arguments.
struct Operation {
    const char* name;
    std::size_t coldRequests;  ///< requests on an object that has not seen the feature
    std::size_t warmRequests;  ///< requests once it has
    std::vector<ULONG> presets;
    std::function<HRESULT(IKolmFluxorPropertySet*, ULONG*)> run;
};

BOOL* AsBool(ULONG* word) {
    return reinterpret_cast<BOOL*>(word);
}

const std::vector<Operation> kOperations = {
    {"IsFeaturePresent", 1, 0, {0}, [](auto* set, ULONG* out) { return set->IsFeaturePresent(kGain, AsBool(out)); }},
    {"GetFeatureMin", 1, 0, {0}, [](auto* set, ULONG* out) { return set->GetFeatureMin(kGain, out); }},
    {"GetFeatureMax", 1, 0, {0}, [](auto* set, ULONG* out) { return set->GetFeatureMax(kGain, out); }},
    {"GetFeatureRange", 1, 0, {0, 0}, [](auto* set, ULONG* out) { return set->GetFeatureRange(kGain, out, out + 1); }},
    {"GetFeatureValue", 1, 1, {0}, [](auto* set, ULONG* out) { return set->GetFeatureValue(kGain, out); }},
    {"GetFeatureValueAndMode",
     1,
     1,
     {0, 10},
     [](auto* set, ULONG* out) { return set->GetFeatureValueAndMode(kGain, out, out + 1); }},
    {"SetFeatureValue", 2, 2, {}, [](auto* set, ULONG*) { return set->SetFeatureValue(kGain, 50); }},
    {"SetFeatureValueAndMode",
     2,
     1,
     {},
     [](auto* set, ULONG*) { return set->SetFeatureValueAndMode(kGain, 50, kManual); }},
    {"IsFeatureModeSupported",
     1,
     0,
     {0},
     [](auto* set, ULONG* out) { return set->IsFeatureModeSupported(kGain, kManual, AsBool(out)); }},
    {"SetFeatureMode", 2, 2, {}, [](auto* set, ULONG*) { return set->SetFeatureMode(kGain, kManual); }},
    {"GetFeatureMode", 1, 1, {10}, [](auto* set, ULONG* out) { return set->GetFeatureMode(kGain, out); }},
};

constexpr HRESULT kCodes[] = {
    E_FAIL,
    E_ACCESSDENIED,
    E_INVALIDARG,
    E_NOTIMPL,
    static_cast<HRESULT>(0x80070490),  // the property is not there
    static_cast<HRESULT>(0x8007001F),  // the device does not work
    static_cast<HRESULT>(0x8007048F),  // the device is not connected
};

class FeatureFaults : public PropertySetTest {};

TEST_F(FeatureFaults, there_are_eleven_operations) {
    EXPECT_EQ(kOperations.size(), 11u);
}

TEST_F(FeatureFaults, each_operation_sends_its_count_of_requests) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        Renew(L"color");
        ULONG outputs[2] = {kPoison, kPoison};

        EXPECT_EQ(operation.run(Object().Get(), outputs), S_OK);
        EXPECT_EQ(Object().Sent().size(), operation.coldRequests) << "cold";
        EXPECT_EQ(operation.run(Object().Get(), outputs), S_OK);
        EXPECT_EQ(Object().Sent().size(), operation.warmRequests) << "warm";
    }
}

TEST_F(FeatureFaults, each_failing_request_passes_its_code_through_and_leaves_the_presets) {
    for (const Operation& operation : kOperations) {
        for (std::size_t nth = 1; nth <= operation.coldRequests; ++nth) {
            for (const HRESULT code : kCodes) {
                SCOPED_TRACE(std::string(operation.name) + ", request " + std::to_string(nth) + ", code " +
                             std::to_string(static_cast<ULONG>(code)));
                Renew(L"color");
                Object().FailNth(static_cast<int>(nth), code);
                ULONG outputs[2] = {kPoison, kPoison};

                EXPECT_EQ(operation.run(Object().Get(), outputs), code);

                EXPECT_EQ(Object().Sent().size(), nth) << "nothing is sent after a failure, and nothing again";
                for (std::size_t i = 0; i < operation.presets.size(); ++i) {
                    EXPECT_EQ(outputs[i], operation.presets[i]) << "output " << i;
                }
            }
        }
    }
}

TEST_F(FeatureFaults, a_failed_read_is_not_cached) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        Renew(L"color");
        Object().FailNth(1, E_FAIL);
        ULONG outputs[2] = {kPoison, kPoison};

        EXPECT_EQ(operation.run(Object().Get(), outputs), E_FAIL);
        Object().Forget();
        EXPECT_EQ(operation.run(Object().Get(), outputs), S_OK);
        EXPECT_EQ(Object().Sent().size(), operation.coldRequests);
    }
}

TEST_F(FeatureFaults, another_success_code_is_a_success_and_passes_through) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        Renew(L"color");
        Object().Patch(kGainId, 60, 0xAB, S_FALSE);
        ULONG outputs[2] = {kPoison, kPoison};

        EXPECT_EQ(operation.run(Object().Get(), outputs), S_FALSE);
        EXPECT_EQ(Object().Sent().size(), operation.coldRequests) << "the operation ran to its end";
        Camera().ClearFaults();
        EXPECT_EQ(operation.run(Object().Get(), outputs), S_OK);
        EXPECT_EQ(Object().Sent().size(), operation.warmRequests) << "and what was read is kept";
    }
}

TEST_F(FeatureFaults, a_camera_that_is_pulled_out_fails_cleanly_and_comes_back) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        Renew(L"color");
        ULONG outputs[2] = {kPoison, kPoison};
        Camera().Plug(false);

        EXPECT_EQ(operation.run(Object().Get(), outputs), static_cast<HRESULT>(0x8007048F));
        Camera().Plug(true);
        EXPECT_EQ(operation.run(Object().Get(), outputs), S_OK);
    }
}

TEST_F(FeatureFaults, the_count_of_returned_bytes_is_not_looked_at) {
    Camera().AddFault({.nth = 0, .action = kolmsim::SimFaultAction::shortAnswer, .code = S_OK, .offset = 32});
    ULONG value = kPoison;
    ULONG mode = kPoison;
    std::uint32_t held = 0;
    ASSERT_TRUE(Camera().GetFeatureWord(kGainId, 24, &held));

    EXPECT_EQ(Object()->GetFeatureValueAndMode(kGain, &value, &mode), S_OK);
    EXPECT_EQ(value, held);
    EXPECT_EQ(mode, kManual);
}

TEST_F(FeatureFaults, a_record_whose_header_the_driver_changed_is_stamped_again) {
    Object().Patch(kGainId, 16, 0x77777777);  // Id
    EXPECT_EQ(Object()->SetFeatureValue(kGain, 50), S_OK);

    const Wire sent = Object().Sent();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[1].Word(16), kGainId);
    EXPECT_EQ(sent[1].Word(20), 2u);
}

TEST_F(FeatureFaults, a_slow_driver_is_waited_for) {
    Camera().AddFault({.nth = 1, .action = kolmsim::SimFaultAction::delay, .code = S_OK, .milliseconds = 50});
    std::uint32_t held = 0;
    ASSERT_TRUE(Camera().GetFeatureWord(kGainId, 24, &held));
    ASSERT_NE(held, 0u) << "0 is the preset";
    ULONG value = kPoison;

    EXPECT_EQ(Object()->GetFeatureValue(kGain, &value), S_OK);
    EXPECT_EQ(value, held);
}

TEST_F(FeatureFaults, several_threads_share_one_object) {
    std::vector<std::thread> threads;
    std::atomic<int> failures{0};
    for (ULONG t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 100; ++i) {
                ULONG min = 0;
                ULONG max = 0;
                ULONG value = 0;
                const ULONG feature = 256 + (static_cast<ULONG>(i) + t) % 11;
                failures += Object()->GetFeatureRange(feature, &min, &max) != S_OK;
                failures += Object()->GetFeatureValue(feature, &value) != S_OK;
                failures += value < min || value > max;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(failures, 0);
}

}  // namespace
}  // namespace kolmfluxor::test
