/// @file  Shading images: information, and uploads through the camera's GP buffer.

#include <string>
#include <vector>

#include "module/scripted_registers.h"

namespace kolmfluxor::test {
namespace {

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

}  // namespace
}  // namespace kolmfluxor::test
