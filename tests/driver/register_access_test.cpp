#include "driver/register_access.h"

#include <gtest/gtest.h>

#include "support/failing_new.h"

namespace kolmfluxor {
namespace {

TEST(RegisterAccess, needs_memory_for_the_record_of_a_block) {
    const CPropertyTransport transport(nullptr);
    const CRegisterAccess registers(transport);
    ULONG words[4] = {1, 2, 3, 4};
    const test::CFailingNew failing;

    EXPECT_EQ(registers.WriteBlock(0xF1001000, words, 4, 32, 1), E_OUTOFMEMORY);
    EXPECT_EQ(registers.ReadBlock(0xF1001000, words, 4, 1, 1), E_OUTOFMEMORY);

    EXPECT_EQ(words[0], 1u) << "left alone";
    EXPECT_EQ(words[3], 4u);
}

}  // namespace
}  // namespace kolmfluxor
