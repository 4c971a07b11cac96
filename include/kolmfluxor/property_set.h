#pragma once
/// @file  `IKolmFluxorPropertySet`: every control of a camera, as 117 methods of one COM interface.
///
/// Query it from the capture filter (any interface of the filter will do). The order of the methods is a binary
/// contract; slots 0 to 2 are those of `IUnknown`, so the first method here is slot 3.
///
/// Rules that hold for every method unless its comment says otherwise:
/// - The result is an `HRESULT`. Null pointers give `E_POINTER` before anything is sent; values out of range give
///   `E_INVALIDARG` before anything is set (the range may be read first); unknown feature ids and modes give `E_FAIL`.
///   What the driver answers is passed through unchanged. Treat any non-zero result, `S_FALSE` too, as a failure.
/// - Outputs of the generic feature operations are preset (to 0, FALSE or mode 10) before any work; outputs of the
///   direct properties are written only on success.
/// - A `BOOL` output is TRUE or FALSE. A `BOOL` input counts as TRUE when it is not 0; "exactly 1" is said where other
///   values count as FALSE.
/// - Feature ids and mode numbers are those of <kolmfluxor/features.h>. Values are in the camera's own units.
/// - Texts are single-byte, NUL-terminated, allocated with `CoTaskMemAlloc`, and freed by the caller.
/// - Requests run synchronously on the caller's thread; any thread may call; methods that
///   take several requests are not atomic together. When memory for the object's own
///   bookkeeping runs out, the C++ exception passes the method.

#include <unknwn.h>

#include <strmif.h>

namespace kolmfluxor {

MIDL_INTERFACE("BE226229-D865-4F2E-AB89-13F359E8F46A")
IKolmFluxorPropertySet : public IUnknown {
    // ---- Gamma (feature 263) -------------------------------------------------------------------------------------

    /// Slot 3. TRUE when the gamma mode is Manual; FALSE otherwise, after a failure too.
    virtual HRESULT STDMETHODCALLTYPE GetGammaOnOff(BOOL * on) = 0;
    /// Slot 4. Mode Manual when `on` is exactly 1, else Off. `E_NOTIMPL` when the camera lacks that mode.
    virtual HRESULT STDMETHODCALLTYPE SetGammaOnOff(BOOL on) = 0;

    // ---- Standard feature families -------------------------------------------------------------------------------
    // Get:   value and current mode; autoOn and onePush tell the mode, both FALSE in any other one and after a failure.
    // Set:   mode Auto, OnePush or Manual, with a value inside the range even where the camera chooses it itself;
    //        autoOn and onePush together give E_INVALIDARG.
    // Range: limits of the value; autoOn and onePush tell the *current* mode and are written only once reading the
    //        limits gave exactly S_OK: both FALSE, with the failure as the result, when the mode then can't be read.

    /// Slot 5. Gain (feature 265).
    virtual HRESULT STDMETHODCALLTYPE GetGain(ULONG * value, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 6. Value and mode of the gain.
    virtual HRESULT STDMETHODCALLTYPE SetGain(ULONG value, BOOL autoOn, BOOL onePush) = 0;
    /// Slot 7. Limits of the gain.
    virtual HRESULT STDMETHODCALLTYPE GetGainRange(ULONG * min, ULONG * max, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 8. White balance, U or blue part (feature 259).
    virtual HRESULT STDMETHODCALLTYPE GetWhiteBalanceUB(ULONG * value, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 9. Value and mode of this part, with which the other part's mode may change, too.
    virtual HRESULT STDMETHODCALLTYPE SetWhiteBalanceUB(ULONG value, BOOL autoOn, BOOL onePush) = 0;
    /// Slot 10. Limits of this part.
    virtual HRESULT STDMETHODCALLTYPE GetWhiteBalanceUBRange(ULONG * min, ULONG * max, BOOL * autoOn,
                                                             BOOL * onePush) = 0;
    /// Slot 11. White balance, V or red part (feature 260).
    virtual HRESULT STDMETHODCALLTYPE GetWhiteBalanceVR(ULONG * value, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 12. Value and mode of this part, with which the other part's mode may change, too.
    virtual HRESULT STDMETHODCALLTYPE SetWhiteBalanceVR(ULONG value, BOOL autoOn, BOOL onePush) = 0;
    /// Slot 13. Limits of this part.
    virtual HRESULT STDMETHODCALLTYPE GetWhiteBalanceVRRange(ULONG * min, ULONG * max, BOOL * autoOn,
                                                             BOOL * onePush) = 0;

    // ---- Test images -----------------------------------------------------------------------------------------------

    /// Slot 14. Number of the test image that the camera sends in place of its picture; 0 means none.
    virtual HRESULT STDMETHODCALLTYPE GetTestImage(ULONG * value) = 0;
    /// Slot 15. Selects a test image; 0 switches it off.
    virtual HRESULT STDMETHODCALLTYPE SetTestImage(ULONG value) = 0;
    /// Slot 16. Mask of the test images that the camera has.
    virtual HRESULT STDMETHODCALLTYPE GetTestImageInquiry(ULONG * value) = 0;

    // ---- Brightness and shutter families, shutter extension --------------------------------------------------------
    // The rules of the standard feature families hold for Brightness and Shutter.

    /// Slot 17. Brightness, also known as black level (feature 256).
    virtual HRESULT STDMETHODCALLTYPE GetBrightness(ULONG * value, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 18. Value and mode of the brightness.
    virtual HRESULT STDMETHODCALLTYPE SetBrightness(ULONG value, BOOL autoOn, BOOL onePush) = 0;
    /// Slot 19. Limits of the brightness.
    virtual HRESULT STDMETHODCALLTYPE GetBrightnessRange(ULONG * min, ULONG * max, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 20. Shutter (feature 264), in units of the time base.
    virtual HRESULT STDMETHODCALLTYPE GetShutter(ULONG * value, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 21. Value and mode of the shutter.
    virtual HRESULT STDMETHODCALLTYPE SetShutter(ULONG value, BOOL autoOn, BOOL onePush) = 0;
    /// Slot 22. Limits of the shutter.
    virtual HRESULT STDMETHODCALLTYPE GetShutterRange(ULONG * min, ULONG * max, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 23. Extended shutter (feature 514): the exposure time in microseconds, beyond what the shutter value
    /// reaches.
    virtual HRESULT STDMETHODCALLTYPE GetExtendedShutter(ULONG * value) = 0;
    /// Slot 24. Sets the exposure time, in microseconds.
    virtual HRESULT STDMETHODCALLTYPE SetExtendedShutter(ULONG value) = 0;
    /// Slot 25. Limits of the exposure time, in microseconds.
    virtual HRESULT STDMETHODCALLTYPE GetExtendedShutterRange(ULONG * min, ULONG * max) = 0;
    /// Slot 26. Index of the time base (feature 512): the length of one shutter unit.
    virtual HRESULT STDMETHODCALLTYPE GetTimeBase(ULONG * value) = 0;
    /// Slot 27. Sets the time base's index.
    virtual HRESULT STDMETHODCALLTYPE SetTimeBase(ULONG value) = 0;

    // ---- Camera information ----------------------------------------------------------------------------------------

    /// Slot 28. Three texts and a number that identify camera and driver.
    ///
    /// Each text is a block of its own, even when empty. A text is at most 256 characters.
    /// @return  also `E_OUTOFMEMORY`; nothing is handed out then
    virtual HRESULT STDMETHODCALLTYPE GetCameraInfo(char** text1, char** text2, char** text3, ULONG* number) = 0;
    /// Slot 29. `GetCameraInfo`, and two versions as "ab.cd" texts of exactly 6 bytes.
    ///
    /// The first four outputs are filled when the first request succeeded, even if the second one fails; then its code
    /// is returned and the versions are left alone. Otherwise the first request's code is returned. So is
    /// `E_OUTOFMEMORY`: for the versions with the texts handed out, for a text with the versions handed out if those
    /// could be had.
    virtual HRESULT STDMETHODCALLTYPE GetCameraInfoEx(char** text1, char** text2, char** text3, ULONG* number,
                                                      char** version1, char** version2) = 0;
    /// Slot 30. Always `E_NOTIMPL`.
    virtual HRESULT STDMETHODCALLTYPE Reserved30() = 0;
    /// Slot 31. Words of driver property 10: six, the same six again, and one more.
    ///
    /// @return  `E_POINTER` for a null output, else always `E_NOTIMPL`, with the outputs written all the same when the
    /// request succeeded: callers must not
    ///          take the result for an error report
    virtual HRESULT STDMETHODCALLTYPE GetProperty10Block(
        ULONG * out1, ULONG * out2, ULONG * out3, ULONG * out4, ULONG * out5, ULONG * out6, ULONG * out7, ULONG * out8,
        ULONG * out9, ULONG * out10, ULONG * out11, ULONG * out12, ULONG * out13) = 0;

    // ---- Registers and blocks ---------------------------------------------------------------------------------------
    // An address is the low 32 bits of the 1394 address above 0xFFFF 0000 0000; registers are 32-bit words (quadlets).

    /// Slot 32. Reads one register; `*value` is 0xFFFFFFFF when the driver fails.
    virtual HRESULT STDMETHODCALLTYPE ReadRegister(ULONG address, ULONG * value) = 0;
    /// Slot 33. Writes one register.
    virtual HRESULT STDMETHODCALLTYPE WriteRegister(ULONG address, ULONG value) = 0;
    /// Slot 34. Writes `quadlets` x 4 bytes to consecutive addresses.
    ///
    /// With `mode` 1 the bytes of each element are swapped on the way: `elementBits` 16 or 32; 8 (and any other number)
    /// copies the words as they are. Other modes never convert.
    /// @return  `E_POINTER` for null data, `E_INVALIDARG` when the record (36 bytes and the data) does not fit 32 bits,
    ///          `E_OUTOFMEMORY`
    virtual HRESULT STDMETHODCALLTYPE WriteBlock(ULONG address, const void* data, ULONG quadlets, ULONG elementBits,
                                                 ULONG mode) = 0;
    /// Slot 35. Reads `quadlets` x 4 bytes from consecutive addresses into `data`, never converting.
    ///
    /// `data` is left alone when the request fails. The other codes are those of `WriteBlock`.
    /// @param mode  1 selects transfer control 18, anything else 17
    /// @param flag  exactly 1 adds 0x10000 to the transfer control
    virtual HRESULT STDMETHODCALLTYPE ReadBlock(ULONG address, void* data, ULONG quadlets, ULONG elementBits,
                                                ULONG mode, ULONG flag) = 0;

    // ---- Video modes and Format 7 (scalable images) ----------------------------------------------------------------

    /// Slot 36. Word of driver property 12.
    virtual HRESULT STDMETHODCALLTYPE GetProperty12Value(ULONG * value) = 0;
    /// Slot 37. Eleven words that describe the Format 7 mode `mode`.
    virtual HRESULT STDMETHODCALLTYPE GetFormat7Info(ULONG mode, ULONG * out1, ULONG * out2, ULONG * out3, ULONG * out4,
                                                     ULONG * out5, ULONG * out6, ULONG * out7, ULONG * out8,
                                                     ULONG * out9, ULONG * out10, ULONG * out11) = 0;
    /// Slot 38. Selects a Format 7 mode, then sets six words of it; a failed selection ends the call with its code.
    ///
    /// `in7` has no place in the record and is not sent.
    virtual HRESULT STDMETHODCALLTYPE SetFormat7Info(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                                     ULONG in6, ULONG in7) = 0;
    /// Slot 39. Sets driver property 14.
    virtual HRESULT STDMETHODCALLTYPE SetProperty14(ULONG index) = 0;
    /// Slot 40. Index and value of driver property 14.
    virtual HRESULT STDMETHODCALLTYPE GetProperty14(ULONG * index, ULONG * value) = 0;
    /// Slot 41. Makes `mode` the Format 7 mode that the following requests speak of.
    virtual HRESULT STDMETHODCALLTYPE SelectFormat7Mode(ULONG mode) = 0;
    /// Slot 42. Sets driver property 16.
    virtual HRESULT STDMETHODCALLTYPE SetProperty16(ULONG value) = 0;
    /// Slot 43. Value of driver property 16.
    virtual HRESULT STDMETHODCALLTYPE GetProperty16(ULONG * value) = 0;
    /// Slot 44. Sets seven words of driver property 17; `in8` has no place in the record and is not sent.
    virtual HRESULT STDMETHODCALLTYPE SetProperty17(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                                    ULONG in6, ULONG in7, ULONG in8) = 0;
    /// Slot 45. Selects a Format 7 mode, then reads two words; a failed selection ends the call with its code.
    virtual HRESULT STDMETHODCALLTYPE GetProperty18(ULONG mode, ULONG * out1, ULONG * out2) = 0;

    // ---- Feature 523 ------------------------------------------------------------------------------------------------

    /// Slot 46. Whether the camera has feature 523; FALSE with the driver's code when the driver refuses it.
    virtual HRESULT STDMETHODCALLTYPE IsFeature523Present(BOOL * present) = 0;
    /// Slot 47. TRUE when the mode of feature 523 is Manual; FALSE otherwise, after a failure too.
    virtual HRESULT STDMETHODCALLTYPE GetFeature523OnOff(BOOL * on) = 0;
    /// Slot 48. Mode Manual when `on` is exactly 1, else Off.
    virtual HRESULT STDMETHODCALLTYPE SetFeature523OnOff(BOOL on) = 0;

    /// Slot 49. Has the driver calculate two words from a mode and five inputs (driver property 20).
    virtual HRESULT STDMETHODCALLTYPE CalculateProperty20(ULONG mode, ULONG in1, ULONG in2, ULONG in3, ULONG in4,
                                                          ULONG in5, ULONG * out1, ULONG * out2) = 0;

    // ---- Standard feature families, continued ----------------------------------------------------------------------
    // The rules of the standard feature families hold.

    /// Slot 50. Sharpness (feature 258).
    virtual HRESULT STDMETHODCALLTYPE GetSharpness(ULONG * value, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 51. Value and mode of the sharpness.
    virtual HRESULT STDMETHODCALLTYPE SetSharpness(ULONG value, BOOL autoOn, BOOL onePush) = 0;
    /// Slot 52. Limits of the sharpness.
    virtual HRESULT STDMETHODCALLTYPE GetSharpnessRange(ULONG * min, ULONG * max, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 53. Hue (feature 261).
    virtual HRESULT STDMETHODCALLTYPE GetHue(ULONG * value, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 54. Value and mode of the hue.
    virtual HRESULT STDMETHODCALLTYPE SetHue(ULONG value, BOOL autoOn, BOOL onePush) = 0;
    /// Slot 55. Limits of the hue.
    virtual HRESULT STDMETHODCALLTYPE GetHueRange(ULONG * min, ULONG * max, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 56. Saturation (feature 262).
    virtual HRESULT STDMETHODCALLTYPE GetSaturation(ULONG * value, BOOL * autoOn, BOOL * onePush) = 0;
    /// Slot 57. Value and mode of the saturation.
    virtual HRESULT STDMETHODCALLTYPE SetSaturation(ULONG value, BOOL autoOn, BOOL onePush) = 0;
    /// Slot 58. Limits of the saturation.
    virtual HRESULT STDMETHODCALLTYPE GetSaturationRange(ULONG * min, ULONG * max, BOOL * autoOn, BOOL * onePush) = 0;

    // ---- Driver properties 24 to 26; color correction --------------------------------------------------------------

    /// Slot 59. Two words of driver property 24.
    virtual HRESULT STDMETHODCALLTYPE GetProperty24(ULONG * a, ULONG * b) = 0;
    /// Slot 60. Sets two words of driver property 24.
    virtual HRESULT STDMETHODCALLTYPE SetProperty24(ULONG a, ULONG b) = 0;
    /// Slot 61. Two words of driver property 25.
    virtual HRESULT STDMETHODCALLTYPE GetProperty25(ULONG * a, ULONG * b) = 0;
    /// Slot 62. Sets two words of driver property 25.
    virtual HRESULT STDMETHODCALLTYPE SetProperty25(ULONG a, ULONG b) = 0;
    /// Slot 63. Six words of driver property 26.
    virtual HRESULT STDMETHODCALLTYPE GetProperty26(ULONG * out1, ULONG * out2, ULONG * out3, ULONG * out4,
                                                    ULONG * out5, ULONG * out6) = 0;
    /// Slot 64. Sets six words of driver property 26.
    virtual HRESULT STDMETHODCALLTYPE SetProperty26(ULONG in1, ULONG in2, ULONG in3, ULONG in4, ULONG in5,
                                                    ULONG in6) = 0;
    /// Slot 65. Color correction (feature 521): Off gives FALSE, Manual gives TRUE; any other mode and a failure leave
    /// `*on` as the caller set it.
    virtual HRESULT STDMETHODCALLTYPE GetColorCorrectionOnOff(BOOL * on) = 0;
    /// Slot 66. Mode Manual when `on` is exactly 1, else Off.
    virtual HRESULT STDMETHODCALLTYPE SetColorCorrectionOnOff(BOOL on) = 0;

    // ---- Driver properties 28 to 30 --------------------------------------------------------------------------------

    /// Slot 67. Value of driver property 28.
    virtual HRESULT STDMETHODCALLTYPE GetProperty28(ULONG * value) = 0;
    /// Slot 68. Sends driver property 28 with an empty payload.
    virtual HRESULT STDMETHODCALLTYPE ExecuteProperty28() = 0;
    /// Slot 69. Sends driver property 29 with an empty payload.
    virtual HRESULT STDMETHODCALLTYPE ExecuteProperty29() = 0;
    /// Slot 70. Flags 0x2, 0x80, 0x2000, 0x1000, 0x40 and the value of driver property 30.
    virtual HRESULT STDMETHODCALLTYPE GetProperty30(BOOL * f1, BOOL * f2, BOOL * f3, BOOL * f4, BOOL * f5,
                                                    ULONG * value) = 0;
    /// Slot 71. Sets driver property 30: 0x2 when on, else 0x4; 0x80 with f2, 0x2000 with f3.
    virtual HRESULT STDMETHODCALLTYPE SetProperty30(BOOL on, BOOL f2, BOOL f3, ULONG ignored1, ULONG ignored2,
                                                    ULONG value) = 0;

    // ---- Shading memory, look-up tables ----------------------------------------------------------------------------

    /// Slot 72. Shading memory: `a` = highest memory channel, `b` = size of a channel in quadlets.
    virtual HRESULT STDMETHODCALLTYPE GetRegisterComposite72(ULONG * a, ULONG * b) = 0;
    /// Slot 73. Uploads `b` quadlets of shading data from `a` through the camera's GP buffer.
    ///
    /// A failed access to the memory's control register ends it at once, with the memory maybe left open for writing.
    /// @return  `E_POINTER` for null data, `E_INVALIDARG` for more quadlets than slot 72 tells, `E_FAIL` when the
    ///          camera has no GP buffer
    virtual HRESULT STDMETHODCALLTYPE SetRegisterComposite73(ULONG * a, ULONG b) = 0;
    /// Slot 74. Whether the look-up table (LUT) is on, the current table, how many there are, and their size in bytes.
    virtual HRESULT STDMETHODCALLTYPE GetLutControl(BOOL * on, ULONG * lutNumber, ULONG * numberOfLuts,
                                                    ULONG * maxLutSize) = 0;
    /// Slot 75. Switches the LUT on (any non-zero value) or off and selects the current table.
    virtual HRESULT STDMETHODCALLTYPE SetLutControl(ULONG on, ULONG lutNumber) = 0;
    /// Slot 76. Loads one LUT into the camera through its GP buffer, block by block.
    ///
    /// A failed access to the memory's control register ends it at once, with the memory maybe left open for writing.
    /// @param data       `quadlets` words in the layout of the camera's LUT memory
    /// @param lutNumber  table to load; a number equal to the count of tables is accepted
    /// @return  `E_POINTER` for null data; `E_INVALIDARG` when the table is too large or its number too high; `E_FAIL`
    ///          when the camera's tables have more than 16 bits a value or it has no GP buffer
    virtual HRESULT STDMETHODCALLTYPE UploadLut(const ULONG* data, ULONG quadlets, ULONG lutNumber) = 0;

    // ---- Driver properties 32 to 42: the maker's switches ----------------------------------------------------------
    // Setters of 32 and 33: on, f2 to f5 count when exactly 1; f3, f4 and f5 exclude one another, the first one wins.
    // Unnamed arguments of the setters are not sent.

    /// Slot 77. Sets driver property 32 (DSNU correction).
    virtual HRESULT STDMETHODCALLTYPE SetProperty32(BOOL on, BOOL f2, BOOL f3, BOOL f4, BOOL f5, ULONG value) = 0;
    /// Slot 78. Flags 0x2, 0x80, 0x4000, 0x40 and the value of driver property 32.
    virtual HRESULT STDMETHODCALLTYPE GetProperty32(BOOL * f1, BOOL * f2, BOOL * f3, BOOL * f4, ULONG * value) = 0;
    /// Slot 79. Sets driver property 33.
    virtual HRESULT STDMETHODCALLTYPE SetProperty33(BOOL on, BOOL f2, BOOL f3, BOOL f4, BOOL f5, ULONG value) = 0;
    /// Slot 80. Flags 0x2, 0x80, 0x4000, 0x40 and the value of driver property 33.
    virtual HRESULT STDMETHODCALLTYPE GetProperty33(BOOL * f1, BOOL * f2, BOOL * f3, BOOL * f4, ULONG * value) = 0;
    /// Slot 81. Sets driver property 34.
    virtual HRESULT STDMETHODCALLTYPE SetProperty34(ULONG unused, ULONG value) = 0;
    /// Slot 82. Flag 0x2, the value and one more word of driver property 34.
    virtual HRESULT STDMETHODCALLTYPE GetProperty34(BOOL * on, ULONG * value, ULONG * b) = 0;
    /// Slot 83. Sets driver property 34 + `index`; an index above 3 gives `E_INVALIDARG`.
    virtual HRESULT STDMETHODCALLTYPE SetIndexedProperty34(ULONG index, ULONG value) = 0;
    /// Slot 84. Value of driver property 34 + `index`; an index above 3 gives `E_INVALIDARG`.
    virtual HRESULT STDMETHODCALLTYPE GetIndexedProperty34(ULONG index, ULONG * value) = 0;
    /// Slot 85. Sets driver property 39 (delayed integration enable).
    virtual HRESULT STDMETHODCALLTYPE SetProperty39(ULONG unused, ULONG value) = 0;
    /// Slot 86. Flag 0x2 and the value of driver property 39.
    virtual HRESULT STDMETHODCALLTYPE GetProperty39(BOOL * on, ULONG * value) = 0;
    /// Slot 87. Sets driver property 40 (trigger delay).
    virtual HRESULT STDMETHODCALLTYPE SetProperty40(ULONG unused, ULONG value) = 0;
    /// Slot 88. Flag 0x2 and the value of driver property 40.
    virtual HRESULT STDMETHODCALLTYPE GetProperty40(BOOL * on, ULONG * value) = 0;
    /// Slot 89. Sets driver property 41 (high SNR).
    virtual HRESULT STDMETHODCALLTYPE SetProperty41(ULONG unused, ULONG value) = 0;
    /// Slot 90. Flag 0x2 and the value of driver property 41.
    virtual HRESULT STDMETHODCALLTYPE GetProperty41(BOOL * on, ULONG * value) = 0;
    /// Slot 91. Sets driver property 42.
    virtual HRESULT STDMETHODCALLTYPE SetProperty42(ULONG unused1, ULONG unused2, ULONG unused3, ULONG value) = 0;
    /// Slot 92. Flags 0x8 (or AutoOn), 0x800, 0x80000000, the value and one more word of driver property 42.
    virtual HRESULT STDMETHODCALLTYPE GetProperty42(BOOL * f1, BOOL * f2, BOOL * f3, ULONG * value, ULONG * b) = 0;

    // ---- Any driver property ---------------------------------------------------------------------------------------

    /// Slot 93. Sets any driver property that uses the 64-byte record: value, flags 0x10000 (flagA) and 0x20000
    /// (flagB).
    virtual HRESULT STDMETHODCALLTYPE SetPropertyById(ULONG id, BOOL flagA, ULONG value, BOOL flagB) = 0;
    /// Slot 94. Reads any driver property that uses the 64-byte record: the words at 44, 24 and 48.
    virtual HRESULT STDMETHODCALLTYPE GetPropertyById(ULONG id, ULONG * a, ULONG * value, ULONG * b) = 0;
    /// Slot 95. Value of driver property 51.
    virtual HRESULT STDMETHODCALLTYPE GetProperty51(ULONG * value) = 0;
    /// Slot 96. Four words of driver property 52 for a selector.
    virtual HRESULT STDMETHODCALLTYPE GetProperty52(ULONG selector, ULONG * out1, ULONG * out2, ULONG * out3,
                                                    ULONG * out4) = 0;
    /// Slot 97. One word per selector: 5 microcontroller version, 6 FPGA version, 41 and 42 bytes per packet used and
    /// free, 43 and 44 isochronous channels in use (high and low word).
    virtual HRESULT STDMETHODCALLTYPE GetProperty56Composite(ULONG selector, ULONG * value) = 0;

    // ---- Generic feature operations --------------------------------------------------------------------------------
    // Presence, modes and ranges are read once for each feature and kept while the object lives; values and current
    // modes are always read from the camera.

    /// Slot 98. Whether the driver answers for the feature.
    ///
    /// @return  the driver's code, with FALSE, when it refuses a known feature: mostly because the camera lacks it. An
    ///          unknown feature id is simply not present (`S_OK`).
    virtual HRESULT STDMETHODCALLTYPE IsFeaturePresent(ULONG featureId, BOOL * present) = 0;
    /// Slot 99. Lowest value; always 0 for feature 515.
    virtual HRESULT STDMETHODCALLTYPE GetFeatureMin(ULONG featureId, ULONG * min) = 0;
    /// Slot 100. Highest value.
    virtual HRESULT STDMETHODCALLTYPE GetFeatureMax(ULONG featureId, ULONG * max) = 0;
    /// Slot 101. Both limits; the lower one is always 0 for feature 515.
    virtual HRESULT STDMETHODCALLTYPE GetFeatureRange(ULONG featureId, ULONG * min, ULONG * max) = 0;
    /// Slot 102. Current value.
    virtual HRESULT STDMETHODCALLTYPE GetFeatureValue(ULONG featureId, ULONG * value) = 0;
    /// Slot 103. Current value and mode; mode 10 when the driver reports none that is known (still a success).
    virtual HRESULT STDMETHODCALLTYPE GetFeatureValueAndMode(ULONG featureId, ULONG * value, ULONG * mode) = 0;
    /// Slot 104. Sets the value, leaving everything else of the feature as it was just read.
    virtual HRESULT STDMETHODCALLTYPE SetFeatureValue(ULONG featureId, ULONG value) = 0;
    /// Slot 105. Sets value and mode in one request; only the range is read before, once for each feature.
    ///
    /// Whether the feature has the mode is left to the driver.
    virtual HRESULT STDMETHODCALLTYPE SetFeatureValueAndMode(ULONG featureId, ULONG value, ULONG mode) = 0;
    /// Slot 106. Whether the feature can work in a mode; `E_FAIL` for an unknown mode.
    virtual HRESULT STDMETHODCALLTYPE IsFeatureModeSupported(ULONG featureId, ULONG mode, BOOL * supported) = 0;
    /// Slot 107. Changes the mode, leaving the value as it was just read; `E_NOTIMPL` when the feature lacks the mode.
    virtual HRESULT STDMETHODCALLTYPE SetFeatureMode(ULONG featureId, ULONG mode) = 0;
    /// Slot 108. Current mode; 10 when the driver reports none that is known (still a success).
    virtual HRESULT STDMETHODCALLTYPE GetFeatureMode(ULONG featureId, ULONG * mode) = 0;

    // ---- Trigger ---------------------------------------------------------------------------------------------------

    /// Slot 109. Mask of what the camera's trigger can do; preset to 0.
    virtual HRESULT STDMETHODCALLTYPE GetTriggerInquiry(ULONG * value) = 0;
    /// Slot 110. Trigger state. Any output may be null and is then skipped.
    ///
    /// @param mode  one mask of 0x10000 (mode 0) ... 0x200000 (mode 5), 0x40000000 (mode 14), 0x80000000 (mode 15);
    ///              left alone when the camera reports none
    /// @param on    1 unless the camera can switch its trigger off and has done so
    /// @param polarity   1 when the camera can invert its trigger and has done so, else 0
    /// @param valueFlag  1 when the camera's inquiry and its state both carry 0x80, else 0
    virtual HRESULT STDMETHODCALLTYPE GetTrigger(ULONG * mode, ULONG * on, ULONG * polarity, ULONG * valueFlag) = 0;
    /// Slot 111. Sets trigger mode (a mask as above) and parameter; `on` and `polarity` count when exactly 1.
    virtual HRESULT STDMETHODCALLTYPE SetTrigger(ULONG mode, ULONG on, ULONG polarity, ULONG parameter) = 0;

    // ---- Isochronous transfer --------------------------------------------------------------------------------------

    /// Slot 112. Speed index: 0 to 5 stand for S100, S200, S400, S800, S1600 and S3200.
    virtual HRESULT STDMETHODCALLTYPE GetIsoSpeed(ULONG * value) = 0;
    /// Slot 113. Lowest and highest speed index that the camera allows.
    virtual HRESULT STDMETHODCALLTYPE GetIsoSpeedRange(ULONG * min, ULONG * max) = 0;
    /// Slot 114. Sets the speed index.
    virtual HRESULT STDMETHODCALLTYPE SetIsoSpeed(ULONG value) = 0;

    // ---- Media types and image position ----------------------------------------------------------------------------

    /// Slot 115. Value of driver property 61 (1: the driver accepts an image geometry of its own).
    virtual HRESULT STDMETHODCALLTYPE GetProperty61(ULONG * value) = 0;
    /// Slot 116. Sets driver property 61.
    virtual HRESULT STDMETHODCALLTYPE SetProperty61(ULONG value) = 0;
    /// Slot 117. Sets a media type on a capture pin; for Format 7 with the driver's own geometry allowed meanwhile.
    ///
    /// @param pin   the pin, or any object that leads to `IAMStreamConfig` by query
    /// @param mt    a type with a `VIDEOINFOHEADER` block of at least 88 bytes, else `E_INVALIDARG`
    /// @param caps  the capabilities that belong to it; not looked at, but not null
    /// @return      `E_POINTER` for a null argument; else what the query, property 61 or `SetFormat` returned
    virtual HRESULT STDMETHODCALLTYPE ApplyMediaTypeComposite(IUnknown * pin, AM_MEDIA_TYPE * mt,
                                                              VIDEO_STREAM_CONFIG_CAPS * caps) = 0;
    /// Slot 118. Image offset in pixels (a = x, b = y) of the Format 7 mode that the media type names.
    ///
    /// @return  `E_POINTER` for a null argument; `E_INVALIDARG` for a format block below 88 bytes or a type that is not
    ///          Format 7
    virtual HRESULT STDMETHODCALLTYPE GetImagePositionForMediaType(ULONG * a, ULONG * b, AM_MEDIA_TYPE * mt) = 0;
    /// Slot 119. Sets the image offset; codes as of slot 118, `E_INVALIDARG` also when the driver corrected it.
    virtual HRESULT STDMETHODCALLTYPE SetImagePositionForMediaType(ULONG a, ULONG b, AM_MEDIA_TYPE * mt) = 0;

protected:
    ~IKolmFluxorPropertySet() = default;  // lifetime is Release()'s; not virtual: it must take no slot
};

}  // namespace kolmfluxor

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(kolmfluxor::IKolmFluxorPropertySet, 0xBE226229, 0xD865, 0x4F2E, 0xAB, 0x89, 0x13, 0xF3, 0x59, 0xE8,
                0xF4, 0x6A)
#endif
