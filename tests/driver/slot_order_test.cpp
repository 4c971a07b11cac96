/// @file  The binary contract: each method of `IKolmFluxorPropertySet` stands in its slot.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include <kolmfluxor/property_set.h>

namespace kolmfluxor {
namespace {

/// The slot that a virtual member function occupies: the ABI keeps 1 + 8 x slot in the pointer's first word.
template <class F> int SlotOf(F method) {
    std::intptr_t raw[2];
    static_assert(sizeof method == sizeof raw);
    std::memcpy(raw, &method, sizeof raw);
    return static_cast<int>((raw[0] - 1) / 8);
}

struct SlotRow {
    int slot;
    const char* name;
    int actual;
};

#define KOLM_SLOT(number, method)                                \
    SlotRow {                                                    \
        number, #method, SlotOf(&IKolmFluxorPropertySet::method) \
    }

const SlotRow kSlots[] = {
    KOLM_SLOT(3, GetGammaOnOff),
    KOLM_SLOT(4, SetGammaOnOff),
    KOLM_SLOT(5, GetGain),
    KOLM_SLOT(6, SetGain),
    KOLM_SLOT(7, GetGainRange),
    KOLM_SLOT(8, GetWhiteBalanceUB),
    KOLM_SLOT(9, SetWhiteBalanceUB),
    KOLM_SLOT(10, GetWhiteBalanceUBRange),
    KOLM_SLOT(11, GetWhiteBalanceVR),
    KOLM_SLOT(12, SetWhiteBalanceVR),
    KOLM_SLOT(13, GetWhiteBalanceVRRange),
    KOLM_SLOT(14, GetTestImage),
    KOLM_SLOT(15, SetTestImage),
    KOLM_SLOT(16, GetTestImageInquiry),
    KOLM_SLOT(17, GetBrightness),
    KOLM_SLOT(18, SetBrightness),
    KOLM_SLOT(19, GetBrightnessRange),
    KOLM_SLOT(20, GetShutter),
    KOLM_SLOT(21, SetShutter),
    KOLM_SLOT(22, GetShutterRange),
    KOLM_SLOT(23, GetExtendedShutter),
    KOLM_SLOT(24, SetExtendedShutter),
    KOLM_SLOT(25, GetExtendedShutterRange),
    KOLM_SLOT(26, GetTimeBase),
    KOLM_SLOT(27, SetTimeBase),
    KOLM_SLOT(28, GetCameraInfo),
    KOLM_SLOT(29, GetCameraInfoEx),
    KOLM_SLOT(30, Reserved30),
    KOLM_SLOT(31, GetProperty10Block),
    KOLM_SLOT(32, ReadRegister),
    KOLM_SLOT(33, WriteRegister),
    KOLM_SLOT(34, WriteBlock),
    KOLM_SLOT(35, ReadBlock),
    KOLM_SLOT(36, GetProperty12Value),
    KOLM_SLOT(37, GetFormat7Info),
    KOLM_SLOT(38, SetFormat7Info),
    KOLM_SLOT(39, SetProperty14),
    KOLM_SLOT(40, GetProperty14),
    KOLM_SLOT(41, SelectFormat7Mode),
    KOLM_SLOT(42, SetProperty16),
    KOLM_SLOT(43, GetProperty16),
    KOLM_SLOT(44, SetProperty17),
    KOLM_SLOT(45, GetProperty18),
    KOLM_SLOT(46, IsFeature523Present),
    KOLM_SLOT(47, GetFeature523OnOff),
    KOLM_SLOT(48, SetFeature523OnOff),
    KOLM_SLOT(49, CalculateProperty20),
    KOLM_SLOT(50, GetSharpness),
    KOLM_SLOT(51, SetSharpness),
    KOLM_SLOT(52, GetSharpnessRange),
    KOLM_SLOT(53, GetHue),
    KOLM_SLOT(54, SetHue),
    KOLM_SLOT(55, GetHueRange),
    KOLM_SLOT(56, GetSaturation),
    KOLM_SLOT(57, SetSaturation),
    KOLM_SLOT(58, GetSaturationRange),
    KOLM_SLOT(59, GetProperty24),
    KOLM_SLOT(60, SetProperty24),
    KOLM_SLOT(61, GetProperty25),
    KOLM_SLOT(62, SetProperty25),
    KOLM_SLOT(63, GetProperty26),
    KOLM_SLOT(64, SetProperty26),
    KOLM_SLOT(65, GetColorCorrectionOnOff),
    KOLM_SLOT(66, SetColorCorrectionOnOff),
    KOLM_SLOT(67, GetProperty28),
    KOLM_SLOT(68, ExecuteProperty28),
    KOLM_SLOT(69, ExecuteProperty29),
    KOLM_SLOT(70, GetProperty30),
    KOLM_SLOT(71, SetProperty30),
    KOLM_SLOT(72, GetRegisterComposite72),
    KOLM_SLOT(73, SetRegisterComposite73),
    KOLM_SLOT(74, GetLutControl),
    KOLM_SLOT(75, SetLutControl),
    KOLM_SLOT(76, UploadLut),
    KOLM_SLOT(77, SetProperty32),
    KOLM_SLOT(78, GetProperty32),
    KOLM_SLOT(79, SetProperty33),
    KOLM_SLOT(80, GetProperty33),
    KOLM_SLOT(81, SetProperty34),
    KOLM_SLOT(82, GetProperty34),
    KOLM_SLOT(83, SetIndexedProperty34),
    KOLM_SLOT(84, GetIndexedProperty34),
    KOLM_SLOT(85, SetProperty39),
    KOLM_SLOT(86, GetProperty39),
    KOLM_SLOT(87, SetProperty40),
    KOLM_SLOT(88, GetProperty40),
    KOLM_SLOT(89, SetProperty41),
    KOLM_SLOT(90, GetProperty41),
    KOLM_SLOT(91, SetProperty42),
    KOLM_SLOT(92, GetProperty42),
    KOLM_SLOT(93, SetPropertyById),
    KOLM_SLOT(94, GetPropertyById),
    KOLM_SLOT(95, GetProperty51),
    KOLM_SLOT(96, GetProperty52),
    KOLM_SLOT(97, GetProperty56Composite),
    KOLM_SLOT(98, IsFeaturePresent),
    KOLM_SLOT(99, GetFeatureMin),
    KOLM_SLOT(100, GetFeatureMax),
    KOLM_SLOT(101, GetFeatureRange),
    KOLM_SLOT(102, GetFeatureValue),
    KOLM_SLOT(103, GetFeatureValueAndMode),
    KOLM_SLOT(104, SetFeatureValue),
    KOLM_SLOT(105, SetFeatureValueAndMode),
    KOLM_SLOT(106, IsFeatureModeSupported),
    KOLM_SLOT(107, SetFeatureMode),
    KOLM_SLOT(108, GetFeatureMode),
    KOLM_SLOT(109, GetTriggerInquiry),
    KOLM_SLOT(110, GetTrigger),
    KOLM_SLOT(111, SetTrigger),
    KOLM_SLOT(112, GetIsoSpeed),
    KOLM_SLOT(113, GetIsoSpeedRange),
    KOLM_SLOT(114, SetIsoSpeed),
    KOLM_SLOT(115, GetProperty61),
    KOLM_SLOT(116, SetProperty61),
    KOLM_SLOT(117, ApplyMediaTypeComposite),
    KOLM_SLOT(118, GetImagePositionForMediaType),
    KOLM_SLOT(119, SetImagePositionForMediaType),
};

#undef KOLM_SLOT

TEST(SlotOrder, every_method_stands_in_its_slot) {
    EXPECT_EQ(std::size(kSlots), 117u);
    int expected = 3;
    for (const SlotRow& row : kSlots) {
        EXPECT_EQ(row.slot, expected++) << row.name;
        EXPECT_EQ(row.actual, row.slot) << row.name;
    }
}

TEST(SlotOrder, the_interface_adds_nothing_but_its_slots) {
    EXPECT_EQ(sizeof(IKolmFluxorPropertySet), sizeof(void*));
    using Query = HRESULT (STDMETHODCALLTYPE IUnknown::*)(REFIID, void**);
    EXPECT_EQ(SlotOf(static_cast<Query>(&IKolmFluxorPropertySet::QueryInterface)), 0);
    EXPECT_EQ(SlotOf(&IKolmFluxorPropertySet::AddRef), 1);
    EXPECT_EQ(SlotOf(&IKolmFluxorPropertySet::Release), 2);
}

}  // namespace
}  // namespace kolmfluxor
