#include "module/class_table.h"

#include <gtest/gtest.h>

#include <kolmfluxor/identifiers.h>

#include "support/failing_new.h"

namespace kolmfluxor {
namespace {

TEST(ClassTable, creation_functions_say_when_memory_runs_out) {
    EXPECT_EQ(ClassTable().size(), 10u);
    for (const CFactoryTemplate& row : ClassTable()) {
        HRESULT hr = S_OK;
        const test::CFailingNew failing;

        EXPECT_EQ(row.create(nullptr, &hr), nullptr);
        EXPECT_EQ(hr, E_OUTOFMEMORY) << "class " << row.classId->Data1;
        EXPECT_EQ(CBaseObject::ObjectsActive(), 0);
    }
}

TEST(ClassTable, class_factories_need_memory) {
    void* out = reinterpret_cast<void*>(0xDEADBEEF);
    const test::CFailingNew failing;

    EXPECT_EQ(GetClassObject(ClassTable(), CLSID_KolmStillImage, IID_IClassFactory, &out), E_OUTOFMEMORY);

    EXPECT_EQ(out, nullptr);
    EXPECT_TRUE(CanUnload());
}

}  // namespace
}  // namespace kolmfluxor
