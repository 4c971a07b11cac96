#pragma once
/// @file  As much of the platform's headers as the code under test uses, for a native build of it.
///
/// Sizes and layouts are the 64-bit ones of the platform: LONG and ULONG have 32 bits. Whoever links this provides
/// `KsSynchronousDeviceControl`; the other functions are in platform.cpp.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#define TRUE 1
#define FALSE 0
#define STDMETHODCALLTYPE
#define MIDL_INTERFACE(uuid) struct

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using ULONG = std::uint32_t;
using LONG = std::int32_t;
using BOOL = int;
using UINT = std::uint32_t;
using HRESULT = std::int32_t;
using REFERENCE_TIME = std::int64_t;
using HANDLE = void*;
using HINSTANCE = void*;
using HKEY = struct HKEY__*;

// ---- Codes

inline constexpr HRESULT PlatformCode(std::uint32_t code) {
    return static_cast<HRESULT>(code);
}
inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = PlatformCode(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = PlatformCode(0x80004002);
inline constexpr HRESULT E_POINTER = PlatformCode(0x80004003);
inline constexpr HRESULT E_FAIL = PlatformCode(0x80004005);
inline constexpr HRESULT E_UNEXPECTED = PlatformCode(0x8000FFFF);
inline constexpr HRESULT E_OUTOFMEMORY = PlatformCode(0x8007000E);
inline constexpr HRESULT E_INVALIDARG = PlatformCode(0x80070057);
inline constexpr HRESULT VFW_E_NEED_OWNER = PlatformCode(0x8004022F);
inline constexpr bool SUCCEEDED(HRESULT hr) {
    return hr >= 0;
}
inline constexpr bool FAILED(HRESULT hr) {
    return hr < 0;
}
inline constexpr int ERROR_INVALID_PARAMETER = 87;

// ---- Identifiers

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];

    friend constexpr bool operator==(const GUID&, const GUID&) = default;
};
using IID = GUID;
using CLSID = GUID;
using REFIID = const IID&;

/// The identifier of an interface; what __CRT_UUID_DECL declares.
template <class Interface> const GUID& PlatformUuidOf();
#define __CRT_UUID_DECL(type, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8)          \
    template <> inline const GUID& PlatformUuidOf<type>() {                       \
        static constexpr GUID id = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}; \
        return id;                                                                \
    }
#define __uuidof(type) PlatformUuidOf<type>()
#define IID_PPV_ARGS(out) PlatformUuidOf<std::remove_reference_t<decltype(**(out))>>(), reinterpret_cast<void**>(out)

inline constexpr IID IID_IUnknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

// ---- Interfaces

struct IUnknown {
    virtual HRESULT QueryInterface(REFIID riid, void** out) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};

struct CAUUID {
    ULONG cElems;
    GUID* pElems;
};
struct ISpecifyPropertyPages : IUnknown {
    virtual HRESULT GetPages(CAUUID* pages) = 0;
};
__CRT_UUID_DECL(ISpecifyPropertyPages, 0xB196B28B, 0xBAB4, 0x101A, 0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07)

struct IKsObject : IUnknown {
    virtual HANDLE KsGetObjectHandle() = 0;
};
__CRT_UUID_DECL(IKsObject, 0x423C13A2, 0x2070, 0x11D0, 0x9E, 0xF7, 0x00, 0xAA, 0x00, 0xA2, 0x16, 0xA1)

// ---- Media types

inline constexpr GUID MEDIASUBTYPE_RGB24 = {
    0xE436EB7D, 0x524F, 0x11CE, {0x9F, 0x53, 0x00, 0x20, 0xAF, 0x0B, 0xA7, 0x70}};

struct AM_MEDIA_TYPE {
    GUID majortype;
    GUID subtype;
    BOOL bFixedSizeSamples;
    BOOL bTemporalCompression;
    ULONG lSampleSize;
    GUID formattype;
    IUnknown* pUnk;
    ULONG cbFormat;
    BYTE* pbFormat;
};
struct RECT {
    LONG left, top, right, bottom;
};
struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth, biHeight;
    WORD biPlanes, biBitCount;
    DWORD biCompression, biSizeImage;
    LONG biXPelsPerMeter, biYPelsPerMeter;
    DWORD biClrUsed, biClrImportant;
};
struct VIDEOINFOHEADER {
    RECT rcSource, rcTarget;
    DWORD dwBitRate, dwBitErrorRate;
    REFERENCE_TIME AvgTimePerFrame;
    BITMAPINFOHEADER bmiHeader;
};
struct VIDEO_STREAM_CONFIG_CAPS {
    GUID guid;  // and more, which nobody here looks at
};

struct IAMStreamConfig : IUnknown {
    virtual HRESULT SetFormat(AM_MEDIA_TYPE* type) = 0;
    virtual HRESULT GetFormat(AM_MEDIA_TYPE** type) = 0;
    virtual HRESULT GetNumberOfCapabilities(int* count, int* size) = 0;
    virtual HRESULT GetStreamCaps(int index, AM_MEDIA_TYPE** type, BYTE* caps) = 0;
};
__CRT_UUID_DECL(IAMStreamConfig, 0xC6E13340, 0x30AC, 0x11D0, 0xA1, 0x8C, 0x00, 0xA0, 0xC9, 0x11, 0x89, 0x56)

// ---- Kernel streaming

struct KSPROPERTY {
    GUID Set;
    ULONG Id;
    ULONG Flags;
};
inline constexpr ULONG KSPROPERTY_TYPE_GET = 1;
inline constexpr ULONG KSPROPERTY_TYPE_SET = 2;
inline constexpr ULONG IOCTL_KS_PROPERTY = 0x002F0003;

HRESULT KsSynchronousDeviceControl(HANDLE device, ULONG control, void* in, ULONG inSize, void* out, ULONG outSize,
                                   ULONG* returned);

// ---- System

struct OSVERSIONINFOA {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
};
BOOL GetVersionExA(OSVERSIONINFOA* info);
DWORD GetLastError();
LONG RegCloseKey(HKEY key);

#define INVALID_HANDLE_VALUE reinterpret_cast<HANDLE>(std::intptr_t{-1})
inline constexpr DWORD INFINITE = 0xFFFFFFFF;
inline constexpr DWORD WAIT_OBJECT_0 = 0;
/// Mutexes are the only handles here.
HANDLE CreateMutexA(void* security, BOOL owned, const char* name);
DWORD WaitForSingleObject(HANDLE mutex, DWORD timeoutMs);
BOOL ReleaseMutex(HANDLE mutex);
BOOL CloseHandle(HANDLE mutex);

/// Blocks of the C heap, so that the sanitizer sees each by itself.
void* CoTaskMemAlloc(std::size_t size);
void CoTaskMemFree(void* memory);
/// From now on so many allocations succeed and all later ones fail.
void PlatformLimitTaskMemory(unsigned successes);

// ---- Texts

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_UTF8 = 65001;
inline constexpr int CSTR_EQUAL = 2;
/// ASCII as it is; each other byte or character becomes U+FFFD, or a question mark. Both sizes count units.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* text, int length, wchar_t* out, int room);
int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int length, char* out, int room,
                        const char* unknown, BOOL* used);
/// Equal or not; the case counts or is that of ASCII letters.
int CompareStringOrdinal(const wchar_t* a, int aLength, const wchar_t* b, int bLength, BOOL ignoreCase);
