#pragma once
/// @file  The interface with every method answering `E_NOTIMPL`: a base for stubs that script a few of them.

#include <kolmfluxor/property_set.h>

namespace kolmfluxor::test {

/// Lives on the stack; not counted.
class CPropertySetStub : public IKolmFluxorPropertySet {
public:
    virtual ~CPropertySetStub() = default;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // IKolmFluxorPropertySet
    HRESULT STDMETHODCALLTYPE GetGammaOnOff(BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetGammaOnOff(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetGain(ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetGain(ULONG, BOOL, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetGainRange(ULONG*, ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetWhiteBalanceUB(ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetWhiteBalanceUB(ULONG, BOOL, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetWhiteBalanceUBRange(ULONG*, ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetWhiteBalanceVR(ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetWhiteBalanceVR(ULONG, BOOL, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetWhiteBalanceVRRange(ULONG*, ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTestImage(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetTestImage(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTestImageInquiry(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetBrightness(ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetBrightness(ULONG, BOOL, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetBrightnessRange(ULONG*, ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetShutter(ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetShutter(ULONG, BOOL, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetShutterRange(ULONG*, ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExtendedShutter(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetExtendedShutter(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExtendedShutterRange(ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTimeBase(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetTimeBase(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCameraInfo(char**, char**, char**, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCameraInfoEx(char**, char**, char**, ULONG*, char**, char**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Reserved30() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty10Block(ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*,
                                                 ULONG*, ULONG*, ULONG*, ULONG*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ReadRegister(ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE WriteRegister(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE WriteBlock(ULONG, const void*, ULONG, ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ReadBlock(ULONG, void*, ULONG, ULONG, ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty12Value(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFormat7Info(ULONG, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*,
                                             ULONG*, ULONG*, ULONG*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetFormat7Info(ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetProperty14(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty14(ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SelectFormat7Mode(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty16(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty16(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty17(ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetProperty18(ULONG, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsFeature523Present(BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFeature523OnOff(BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFeature523OnOff(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CalculateProperty20(ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG*, ULONG*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetSharpness(ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetSharpness(ULONG, BOOL, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSharpnessRange(ULONG*, ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHue(ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHue(ULONG, BOOL, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHueRange(ULONG*, ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSaturation(ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetSaturation(ULONG, BOOL, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSaturationRange(ULONG*, ULONG*, BOOL*, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty24(ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty24(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty25(ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty25(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty26(ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetProperty26(ULONG, ULONG, ULONG, ULONG, ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetColorCorrectionOnOff(BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetColorCorrectionOnOff(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty28(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ExecuteProperty28() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ExecuteProperty29() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty30(BOOL*, BOOL*, BOOL*, BOOL*, BOOL*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty30(BOOL, BOOL, BOOL, ULONG, ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetRegisterComposite72(ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetRegisterComposite73(ULONG*, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetLutControl(BOOL*, ULONG*, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetLutControl(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE UploadLut(const ULONG*, ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty32(BOOL, BOOL, BOOL, BOOL, BOOL, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty32(BOOL*, BOOL*, BOOL*, BOOL*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty33(BOOL, BOOL, BOOL, BOOL, BOOL, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty33(BOOL*, BOOL*, BOOL*, BOOL*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty34(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty34(BOOL*, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetIndexedProperty34(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIndexedProperty34(ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty39(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty39(BOOL*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty40(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty40(BOOL*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty41(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty41(BOOL*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty42(ULONG, ULONG, ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty42(BOOL*, BOOL*, BOOL*, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetPropertyById(ULONG, BOOL, ULONG, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPropertyById(ULONG, ULONG*, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty51(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty52(ULONG, ULONG*, ULONG*, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty56Composite(ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsFeaturePresent(ULONG, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFeatureMin(ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFeatureMax(ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFeatureRange(ULONG, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFeatureValue(ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFeatureValueAndMode(ULONG, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFeatureValue(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFeatureValueAndMode(ULONG, ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsFeatureModeSupported(ULONG, ULONG, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFeatureMode(ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFeatureMode(ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTriggerInquiry(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTrigger(ULONG*, ULONG*, ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetTrigger(ULONG, ULONG, ULONG, ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIsoSpeed(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIsoSpeedRange(ULONG*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetIsoSpeed(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetProperty61(ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetProperty61(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ApplyMediaTypeComposite(IUnknown*, AM_MEDIA_TYPE*, VIDEO_STREAM_CONFIG_CAPS*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetImagePositionForMediaType(ULONG*, ULONG*, AM_MEDIA_TYPE*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetImagePositionForMediaType(ULONG, ULONG, AM_MEDIA_TYPE*) override { return E_NOTIMPL; }
};

}  // namespace kolmfluxor::test
