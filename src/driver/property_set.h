#pragma once
/// @file  The property-set object: the only door to the camera.

#include <ocidl.h>

#include <kolmfluxor/property_set.h>

#include "base/unknown.h"
#include "driver/direct_property.h"
#include "driver/feature_access.h"
#include "driver/property_transport.h"
#include "driver/register_access.h"

namespace kolmfluxor {

/// The object that the kernel-streaming proxy aggregates into the capture filter.
///
/// It turns each method into one or more property requests on the filter's device. Any thread may call; requests run on
/// the caller's thread. Exceptions of its lock types and of allocation pass through its methods.
class CKolmFluxorPropertySet final : public Implements<IKolmFluxorPropertySet, ISpecifyPropertyPages> {
public:
    /// Creation function of the class table.
    ///
    /// @param outer  the capture filter; must give `IKsObject` with a device handle
    /// @param hr     `VFW_E_NEED_OWNER` without a filter, the query's failure, or `E_UNEXPECTED` without a handle; a
    ///               failure that is there already is kept, and the filter is not asked
    static CUnknown* CreateInstance(IUnknown* outer, HRESULT* hr);

    // ISpecifyPropertyPages
    HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;

    // IKolmFluxorPropertySet, in slot order from slot 3
    HRESULT STDMETHODCALLTYPE GetGammaOnOff(BOOL* on) override;
    HRESULT STDMETHODCALLTYPE SetGammaOnOff(BOOL on) override;
    HRESULT STDMETHODCALLTYPE GetGain(ULONG* value, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE SetGain(ULONG value, BOOL autoOn, BOOL onePush) override;
    HRESULT STDMETHODCALLTYPE GetGainRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE GetWhiteBalanceUB(ULONG* value, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE SetWhiteBalanceUB(ULONG value, BOOL autoOn, BOOL onePush) override;
    HRESULT STDMETHODCALLTYPE GetWhiteBalanceUBRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE GetWhiteBalanceVR(ULONG* value, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE SetWhiteBalanceVR(ULONG value, BOOL autoOn, BOOL onePush) override;
    HRESULT STDMETHODCALLTYPE GetWhiteBalanceVRRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE GetTestImage(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetTestImage(ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetTestImageInquiry(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE GetBrightness(ULONG* value, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE SetBrightness(ULONG value, BOOL autoOn, BOOL onePush) override;
    HRESULT STDMETHODCALLTYPE GetBrightnessRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE GetShutter(ULONG* value, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE SetShutter(ULONG value, BOOL autoOn, BOOL onePush) override;
    HRESULT STDMETHODCALLTYPE GetShutterRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE GetExtendedShutter(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetExtendedShutter(ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetExtendedShutterRange(ULONG* min, ULONG* max) override;
    HRESULT STDMETHODCALLTYPE GetTimeBase(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetTimeBase(ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetCameraInfo(char** text1, char** text2, char** text3, ULONG* number) override;
    HRESULT STDMETHODCALLTYPE GetCameraInfoEx(char** text1, char** text2, char** text3, ULONG* number, char** version1,
                                              char** version2) override;
    HRESULT STDMETHODCALLTYPE Reserved30() override;
    HRESULT STDMETHODCALLTYPE GetProperty10Block(ULONG* out1, ULONG* out2, ULONG* out3, ULONG* out4, ULONG* out5,
                                                 ULONG* out6, ULONG* out7, ULONG* out8, ULONG* out9, ULONG* out10,
                                                 ULONG* out11, ULONG* out12, ULONG* out13) override;
    HRESULT STDMETHODCALLTYPE ReadRegister(ULONG address, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE WriteRegister(ULONG address, ULONG value) override;
    HRESULT STDMETHODCALLTYPE WriteBlock(ULONG address, const void* data, ULONG quadlets, ULONG elementBits,
                                         ULONG mode) override;
    HRESULT STDMETHODCALLTYPE ReadBlock(ULONG address, void* data, ULONG quadlets, ULONG elementBits, ULONG mode,
                                        ULONG flag) override;
    HRESULT STDMETHODCALLTYPE GetProperty12Value(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE GetFormat7Info(ULONG mode, ULONG* out1, ULONG* out2, ULONG* out3, ULONG* out4,
                                             ULONG* out5, ULONG* out6, ULONG* out7, ULONG* out8, ULONG* out9,
                                             ULONG* out10, ULONG* out11) override;
    HRESULT STDMETHODCALLTYPE SetFormat7Info(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                             ULONG in6, ULONG in7) override;
    HRESULT STDMETHODCALLTYPE SetProperty14(ULONG index) override;
    HRESULT STDMETHODCALLTYPE GetProperty14(ULONG* index, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SelectFormat7Mode(ULONG mode) override;
    HRESULT STDMETHODCALLTYPE SetProperty16(ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty16(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty17(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                            ULONG in6, ULONG in7, ULONG in8) override;
    HRESULT STDMETHODCALLTYPE GetProperty18(ULONG mode, ULONG* out1, ULONG* out2) override;
    HRESULT STDMETHODCALLTYPE IsFeature523Present(BOOL* present) override;
    HRESULT STDMETHODCALLTYPE GetFeature523OnOff(BOOL* on) override;
    HRESULT STDMETHODCALLTYPE SetFeature523OnOff(BOOL on) override;
    HRESULT STDMETHODCALLTYPE CalculateProperty20(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                                  ULONG* out1, ULONG* out2) override;
    HRESULT STDMETHODCALLTYPE GetSharpness(ULONG* value, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE SetSharpness(ULONG value, BOOL autoOn, BOOL onePush) override;
    HRESULT STDMETHODCALLTYPE GetSharpnessRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE GetHue(ULONG* value, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE SetHue(ULONG value, BOOL autoOn, BOOL onePush) override;
    HRESULT STDMETHODCALLTYPE GetHueRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE GetSaturation(ULONG* value, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE SetSaturation(ULONG value, BOOL autoOn, BOOL onePush) override;
    HRESULT STDMETHODCALLTYPE GetSaturationRange(ULONG* min, ULONG* max, BOOL* autoOn, BOOL* onePush) override;
    HRESULT STDMETHODCALLTYPE GetProperty24(ULONG* a, ULONG* b) override;
    HRESULT STDMETHODCALLTYPE SetProperty24(ULONG a, ULONG b) override;
    HRESULT STDMETHODCALLTYPE GetProperty25(ULONG* a, ULONG* b) override;
    HRESULT STDMETHODCALLTYPE SetProperty25(ULONG a, ULONG b) override;
    HRESULT STDMETHODCALLTYPE GetProperty26(ULONG* out1, ULONG* out2, ULONG* out3, ULONG* out4, ULONG* out5,
                                            ULONG* out6) override;
    HRESULT STDMETHODCALLTYPE SetProperty26(ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5, ULONG in6) override;
    HRESULT STDMETHODCALLTYPE GetColorCorrectionOnOff(BOOL* on) override;
    HRESULT STDMETHODCALLTYPE SetColorCorrectionOnOff(BOOL on) override;
    HRESULT STDMETHODCALLTYPE GetProperty28(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE ExecuteProperty28() override;
    HRESULT STDMETHODCALLTYPE ExecuteProperty29() override;
    HRESULT STDMETHODCALLTYPE GetProperty30(BOOL* f1, BOOL* f2, BOOL* f3, BOOL* f4, BOOL* f5, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty30(BOOL on, BOOL f2, BOOL f3, ULONG ignored1, ULONG ignored2,
                                            ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetRegisterComposite72(ULONG* a, ULONG* b) override;
    HRESULT STDMETHODCALLTYPE SetRegisterComposite73(ULONG* a, ULONG b) override;
    HRESULT STDMETHODCALLTYPE GetLutControl(BOOL* on, ULONG* lutNumber, ULONG* numberOfLuts,
                                            ULONG* maxLutSize) override;
    HRESULT STDMETHODCALLTYPE SetLutControl(ULONG on, ULONG lutNumber) override;
    HRESULT STDMETHODCALLTYPE UploadLut(const ULONG* data, ULONG quadlets, ULONG lutNumber) override;
    HRESULT STDMETHODCALLTYPE SetProperty32(BOOL on, BOOL f2, BOOL f3, BOOL f4, BOOL f5, ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty32(BOOL* f1, BOOL* f2, BOOL* f3, BOOL* f4, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty33(BOOL on, BOOL f2, BOOL f3, BOOL f4, BOOL f5, ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty33(BOOL* f1, BOOL* f2, BOOL* f3, BOOL* f4, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty34(ULONG unused, ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty34(BOOL* on, ULONG* value, ULONG* b) override;
    HRESULT STDMETHODCALLTYPE SetIndexedProperty34(ULONG index, ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetIndexedProperty34(ULONG index, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty39(ULONG unused, ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty39(BOOL* on, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty40(ULONG unused, ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty40(BOOL* on, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty41(ULONG unused, ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty41(BOOL* on, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty42(ULONG unused1, ULONG unused2, ULONG unused3, ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty42(BOOL* f1, BOOL* f2, BOOL* f3, ULONG* value, ULONG* b) override;
    HRESULT STDMETHODCALLTYPE SetPropertyById(ULONG id, BOOL flagA, ULONG value, BOOL flagB) override;
    HRESULT STDMETHODCALLTYPE GetPropertyById(ULONG id, ULONG* a, ULONG* value, ULONG* b) override;
    HRESULT STDMETHODCALLTYPE GetProperty51(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE GetProperty52(ULONG selector, ULONG* out1, ULONG* out2, ULONG* out3,
                                            ULONG* out4) override;
    HRESULT STDMETHODCALLTYPE GetProperty56Composite(ULONG selector, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE IsFeaturePresent(ULONG featureId, BOOL* present) override;
    HRESULT STDMETHODCALLTYPE GetFeatureMin(ULONG featureId, ULONG* min) override;
    HRESULT STDMETHODCALLTYPE GetFeatureMax(ULONG featureId, ULONG* max) override;
    HRESULT STDMETHODCALLTYPE GetFeatureRange(ULONG featureId, ULONG* min, ULONG* max) override;
    HRESULT STDMETHODCALLTYPE GetFeatureValue(ULONG featureId, ULONG* value) override;
    HRESULT STDMETHODCALLTYPE GetFeatureValueAndMode(ULONG featureId, ULONG* value, ULONG* mode) override;
    HRESULT STDMETHODCALLTYPE SetFeatureValue(ULONG featureId, ULONG value) override;
    HRESULT STDMETHODCALLTYPE SetFeatureValueAndMode(ULONG featureId, ULONG value, ULONG mode) override;
    HRESULT STDMETHODCALLTYPE IsFeatureModeSupported(ULONG featureId, ULONG mode, BOOL* supported) override;
    HRESULT STDMETHODCALLTYPE SetFeatureMode(ULONG featureId, ULONG mode) override;
    HRESULT STDMETHODCALLTYPE GetFeatureMode(ULONG featureId, ULONG* mode) override;
    HRESULT STDMETHODCALLTYPE GetTriggerInquiry(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE GetTrigger(ULONG* mode, ULONG* on, ULONG* polarity, ULONG* valueFlag) override;
    HRESULT STDMETHODCALLTYPE SetTrigger(ULONG mode, ULONG on, ULONG polarity, ULONG parameter) override;
    HRESULT STDMETHODCALLTYPE GetIsoSpeed(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE GetIsoSpeedRange(ULONG* min, ULONG* max) override;
    HRESULT STDMETHODCALLTYPE SetIsoSpeed(ULONG value) override;
    HRESULT STDMETHODCALLTYPE GetProperty61(ULONG* value) override;
    HRESULT STDMETHODCALLTYPE SetProperty61(ULONG value) override;
    HRESULT STDMETHODCALLTYPE ApplyMediaTypeComposite(IUnknown* pin, AM_MEDIA_TYPE* mt,
                                                      VIDEO_STREAM_CONFIG_CAPS* caps) override;
    HRESULT STDMETHODCALLTYPE GetImagePositionForMediaType(ULONG* a, ULONG* b, AM_MEDIA_TYPE* mt) override;
    HRESULT STDMETHODCALLTYPE SetImagePositionForMediaType(ULONG a, ULONG b, AM_MEDIA_TYPE* mt) override;

private:
    CKolmFluxorPropertySet(IUnknown* outer, HRESULT* hr);

    CPropertyTransport m_transport;
    CFeatureAccess m_features;
    CDirectProperties m_properties;
    CRegisterAccess m_registers;
};

}  // namespace kolmfluxor
