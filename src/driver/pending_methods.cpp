/// @file  The methods of `IKolmFluxorPropertySet` that are not there yet: each answers `E_NOTIMPL` and sends nothing.

#include "driver/property_set.h"

namespace kolmfluxor {

HRESULT CKolmFluxorPropertySet::GetGammaOnOff(BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetGammaOnOff(BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetGain(ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetGain(ULONG, BOOL, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetGainRange(ULONG*, ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetWhiteBalanceUB(ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetWhiteBalanceUB(ULONG, BOOL, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetWhiteBalanceUBRange(ULONG*, ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetWhiteBalanceVR(ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetWhiteBalanceVR(ULONG, BOOL, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetWhiteBalanceVRRange(ULONG*, ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetTestImage(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetTestImage(ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetTestImageInquiry(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetBrightness(ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetBrightness(ULONG, BOOL, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetBrightnessRange(ULONG*, ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetShutter(ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetShutter(ULONG, BOOL, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetShutterRange(ULONG*, ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetExtendedShutter(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetExtendedShutter(ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetExtendedShutterRange(ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetTimeBase(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetTimeBase(ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetCameraInfo(char**, char**, char**, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetCameraInfoEx(char**, char**, char**, ULONG*, char**, char**) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::Reserved30() {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty10Block(ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*,
                                                   ULONG*, ULONG*, ULONG*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::ReadRegister(ULONG, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::WriteRegister(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::WriteBlock(ULONG, const void*, ULONG, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::ReadBlock(ULONG, void*, ULONG, ULONG, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty12Value(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetFormat7Info(ULONG, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*,
                                               ULONG*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetFormat7Info(ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty14(ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty14(ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SelectFormat7Mode(ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty16(ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty16(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty17(ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty18(ULONG, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::IsFeature523Present(BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetFeature523OnOff(BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetFeature523OnOff(BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::CalculateProperty20(ULONG, ULONG, ULONG, ULONG, ULONG, ULONG, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetSharpness(ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetSharpness(ULONG, BOOL, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetSharpnessRange(ULONG*, ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetHue(ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetHue(ULONG, BOOL, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetHueRange(ULONG*, ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetSaturation(ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetSaturation(ULONG, BOOL, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetSaturationRange(ULONG*, ULONG*, BOOL*, BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty24(ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty24(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty25(ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty25(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty26(ULONG*, ULONG*, ULONG*, ULONG*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty26(ULONG, ULONG, ULONG, ULONG, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetColorCorrectionOnOff(BOOL*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetColorCorrectionOnOff(BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty28(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::ExecuteProperty28() {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::ExecuteProperty29() {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty30(BOOL*, BOOL*, BOOL*, BOOL*, BOOL*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty30(BOOL, BOOL, BOOL, ULONG, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetRegisterComposite72(ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetRegisterComposite73(ULONG*, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetLutControl(BOOL*, ULONG*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetLutControl(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::UploadLut(const ULONG*, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty32(BOOL, BOOL, BOOL, BOOL, BOOL, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty32(BOOL*, BOOL*, BOOL*, BOOL*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty33(BOOL, BOOL, BOOL, BOOL, BOOL, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty33(BOOL*, BOOL*, BOOL*, BOOL*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty34(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty34(BOOL*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetIndexedProperty34(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetIndexedProperty34(ULONG, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty39(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty39(BOOL*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty40(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty40(BOOL*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty41(ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty41(BOOL*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty42(ULONG, ULONG, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty42(BOOL*, BOOL*, BOOL*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetPropertyById(ULONG, BOOL, ULONG, BOOL) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetPropertyById(ULONG, ULONG*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty51(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty52(ULONG, ULONG*, ULONG*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty56Composite(ULONG, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetTriggerInquiry(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetTrigger(ULONG*, ULONG*, ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetTrigger(ULONG, ULONG, ULONG, ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetIsoSpeed(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetIsoSpeedRange(ULONG*, ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetIsoSpeed(ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetProperty61(ULONG*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetProperty61(ULONG) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::ApplyMediaTypeComposite(IUnknown*, AM_MEDIA_TYPE*, VIDEO_STREAM_CONFIG_CAPS*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::GetImagePositionForMediaType(ULONG*, ULONG*, AM_MEDIA_TYPE*) {
    return E_NOTIMPL;
}
HRESULT CKolmFluxorPropertySet::SetImagePositionForMediaType(ULONG, ULONG, AM_MEDIA_TYPE*) {
    return E_NOTIMPL;
}

}  // namespace kolmfluxor
