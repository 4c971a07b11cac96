/// @file  The type library inside the built module: types that clients with early binding can use, slot by slot.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include <kolmfluxor/features.h>
#include <kolmfluxor/identifiers.h>
#include <kolmfluxor/property_set.h>
#include <kolmfluxor/still_image.h>
#include <oleauto.h>
#include <wrl/client.h>

#include "module/described_methods.h"
#include "support/module.h"
#include "support/registry.h"
#include "support/slots.h"

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

// -- What the library says

/// A type's attributes, as long as it lives.
class CTypeAttributes {
public:
    explicit CTypeAttributes(ITypeInfo* type) : m_type(type) { EXPECT_EQ(type->GetTypeAttr(&m_attributes), S_OK); }
    ~CTypeAttributes() { m_type->ReleaseTypeAttr(m_attributes); }
    CTypeAttributes(const CTypeAttributes&) = delete;
    CTypeAttributes& operator=(const CTypeAttributes&) = delete;
    const TYPEATTR* operator->() const { return m_attributes; }

private:
    ComPtr<ITypeInfo> m_type;
    TYPEATTR* m_attributes = nullptr;
};

std::string Narrow(BSTR text) {
    std::string narrow;
    for (UINT i = 0; i < ::SysStringLen(text); ++i)
        narrow += static_cast<char>(text[i]);
    ::SysFreeString(text);
    return narrow;
}

std::string NameOf(ITypeInfo* type, MEMBERID member = MEMBERID_NIL) {
    BSTR name = nullptr;
    EXPECT_EQ(type->GetDocumentation(member, &name, nullptr, nullptr, nullptr), S_OK);
    return Narrow(name);
}

std::string HelpOf(ITypeInfo* type, MEMBERID member = MEMBERID_NIL) {
    BSTR help = nullptr;
    EXPECT_EQ(type->GetDocumentation(member, nullptr, &help, nullptr, nullptr), S_OK);
    return Narrow(help);
}

std::string TypeName(ITypeInfo* type, const TYPEDESC& description) {
    static const std::map<VARTYPE, std::string> kNames = {
        {VT_UI4, "ULONG"},   {VT_I4, "LONG"},       {VT_UI1, "BYTE"},  {VT_VOID, "void"},
        {VT_LPSTR, "LPSTR"}, {VT_LPWSTR, "LPWSTR"}, {VT_BSTR, "BSTR"}, {VT_UNKNOWN, "IUnknown*"}};
    if (description.vt == VT_PTR) return TypeName(type, *description.lptdesc) + "*";
    if (description.vt == VT_USERDEFINED) {
        ComPtr<ITypeInfo> referred;
        EXPECT_EQ(type->GetRefTypeInfo(description.hreftype, &referred), S_OK);
        return referred ? NameOf(referred.Get()) : "unknown";
    }
    const auto found = kNames.find(description.vt);
    return found != kNames.end() ? found->second : "VARTYPE " + std::to_string(description.vt);
}

class TypeLibrary : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(::LoadTypeLibEx(CModule::Get().Path().c_str(), REGKIND_NONE, &m_library), S_OK); }

    ComPtr<ITypeInfo> Type(REFGUID guid) const {
        ComPtr<ITypeInfo> type;
        EXPECT_EQ(m_library->GetTypeInfoOfGuid(guid, &type), S_OK);
        return type;
    }

    /// The type with a name; null when there is none or more than one.
    ComPtr<ITypeInfo> Type(const std::string& name) const {
        ComPtr<ITypeInfo> found;
        for (UINT i = 0; i < m_library->GetTypeInfoCount(); ++i) {
            ComPtr<ITypeInfo> type;
            EXPECT_EQ(m_library->GetTypeInfo(i, &type), S_OK);
            if (NameOf(type.Get()) != name) continue;
            EXPECT_EQ(found, nullptr) << name << " is there twice";
            found = type;
        }
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    /// Compares an interface with its header, method by method.
    void ExpectInterface(REFIID iid, const std::string& name, const std::vector<Method>& methods) const {
        const ComPtr<ITypeInfo> type = Type(iid);
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(NameOf(type.Get()), name);
        EXPECT_THAT(HelpOf(type.Get()), ::testing::HasSubstr("no proxy carries it elsewhere"));
        const CTypeAttributes attributes(type.Get());
        EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
        EXPECT_EQ(attributes->guid, iid);
        EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FOLEAUTOMATION, 0) << "the type library would register a proxy";
        ExpectDerivedFromUnknown(type.Get());

        ASSERT_EQ(attributes->cFuncs, methods.size());
        for (UINT i = 0; i < attributes->cFuncs; ++i) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(type->GetFuncDesc(i, &function), S_OK);
            ExpectMethod(type.Get(), *function, methods[i]);
            type->ReleaseFuncDesc(function);
        }
    }

    ComPtr<ITypeLib> m_library;

private:
    static void ExpectDerivedFromUnknown(ITypeInfo* type) {
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> base;
        ASSERT_EQ(type->GetRefTypeOfImplType(0, &reference), S_OK);
        ASSERT_EQ(type->GetRefTypeInfo(reference, &base), S_OK);
        EXPECT_EQ(CTypeAttributes(base.Get())->guid, IID_IUnknown);
    }

    static void ExpectMethod(ITypeInfo* type, const FUNCDESC& function, const Method& method) {
        SCOPED_TRACE("slot " + std::to_string(method.slot) + ", " + method.name);
        EXPECT_EQ(NameOf(type, function.memid), method.name);
        EXPECT_EQ(function.oVft, method.slot * static_cast<int>(sizeof(void*)));
        EXPECT_EQ(function.funckind, FUNC_PUREVIRTUAL);
        EXPECT_EQ(function.invkind, INVOKE_FUNC);
        EXPECT_EQ(function.callconv, CC_STDCALL);
        EXPECT_EQ(function.elemdescFunc.tdesc.vt, VT_HRESULT);

        const std::string help = HelpOf(type, function.memid);
        EXPECT_TRUE((help + ":").starts_with("Slot " + std::to_string(method.slot) + ":")) << help;

        std::vector<Argument> arguments;
        for (int i = 0; i < function.cParams; ++i) {
            const ELEMDESC& argument = function.lprgelemdescParam[i];
            arguments.push_back({TypeName(type, argument.tdesc), argument.paramdesc.wParamFlags});
        }
        EXPECT_EQ(arguments, method.arguments);
    }
};

TEST_F(TypeLibrary, has_the_id_and_version_of_the_header) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(m_library->GetLibAttr(&attributes), S_OK);

    EXPECT_EQ(attributes->guid, LIBID_KolmFluxor);
    EXPECT_EQ(attributes->wMajorVerNum, kTypeLibraryMajor);
    EXPECT_EQ(attributes->wMinorVerNum, kTypeLibraryMinor);
    EXPECT_EQ(attributes->syskind, SYS_WIN64);
    EXPECT_EQ(attributes->lcid, LCID{LOCALE_NEUTRAL});
    m_library->ReleaseTLibAttr(attributes);
}

TEST_F(TypeLibrary, describes_every_slot_of_the_property_set) {
#define KOLM_DESCRIBE(slot, method) Describe(slot, #method, &IKolmFluxorPropertySet::method),
    ExpectInterface(IID_IKolmFluxorPropertySet, "IKolmFluxorPropertySet", {KOLM_PROPERTY_SET_SLOTS(KOLM_DESCRIBE)});
#undef KOLM_DESCRIBE
}

TEST_F(TypeLibrary, describes_every_slot_of_the_still_image_interface) {
#define KOLM_DESCRIBE(slot, method) Describe(slot, #method, &IKolmStillImage::method),
    ExpectInterface(IID_IKolmStillImage, "IKolmStillImage", {KOLM_STILL_IMAGE_SLOTS(KOLM_DESCRIBE)});
#undef KOLM_DESCRIBE
}

TEST_F(TypeLibrary, classes_have_their_ids_and_interfaces) {
    // Only a filter can create the property-set object.
    const std::tuple<const char*, CLSID, IID, int> rows[] = {
        {"CKolmFluxorPropertySet", CLSID_KolmFluxorPropertySet, IID_IKolmFluxorPropertySet, 0},
        {"CKolmStillImage", CLSID_KolmStillImage, IID_IKolmStillImage, TYPEFLAG_FCANCREATE},
    };
    for (const auto& [name, classId, iid, creatable] : rows) {
        SCOPED_TRACE(name);
        const ComPtr<ITypeInfo> type = Type(std::string(name));
        ASSERT_NE(type, nullptr);
        const CTypeAttributes attributes(type.Get());
        EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
        EXPECT_EQ(attributes->guid, classId);
        EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, creatable);
        EXPECT_NE(HelpOf(type.Get()), "");
        ASSERT_EQ(attributes->cImplTypes, 1);
        int flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> implemented;
        EXPECT_EQ(type->GetImplTypeFlags(0, &flags), S_OK);
        EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
        ASSERT_EQ(type->GetRefTypeOfImplType(0, &reference), S_OK);
        ASSERT_EQ(type->GetRefTypeInfo(reference, &implemented), S_OK);
        EXPECT_EQ(CTypeAttributes(implemented.Get())->guid, iid);
    }
}

TEST_F(TypeLibrary, structures_have_the_platforms_layout) {
    struct Row {
        const char* name;
        std::size_t size;
        const char* member;
        std::size_t offset;
    };
    const Row rows[] = {
        {"GUID", sizeof(GUID), "Data4", offsetof(GUID, Data4)},
        {"tagSIZE", sizeof(SIZE), "cy", offsetof(SIZE, cy)},
        {"tagRGBQUAD", sizeof(RGBQUAD), "rgbReserved", offsetof(RGBQUAD, rgbReserved)},
        {"tagBITMAPINFOHEADER", sizeof(BITMAPINFOHEADER), "biClrImportant", offsetof(BITMAPINFOHEADER, biClrImportant)},
        {"tagBITMAPINFO", sizeof(BITMAPINFO), "bmiColors", offsetof(BITMAPINFO, bmiColors)},
        {"_AMMediaType", sizeof(AM_MEDIA_TYPE), "pbFormat", offsetof(AM_MEDIA_TYPE, pbFormat)},
        {"_VIDEO_STREAM_CONFIG_CAPS", sizeof(VIDEO_STREAM_CONFIG_CAPS), "MaxBitsPerSecond",
         offsetof(VIDEO_STREAM_CONFIG_CAPS, MaxBitsPerSecond)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ComPtr<ITypeInfo> type = Type(std::string(row.name));
        ASSERT_NE(type, nullptr);
        const CTypeAttributes attributes(type.Get());
        EXPECT_EQ(attributes->typekind, TKIND_RECORD);
        EXPECT_EQ(attributes->cbSizeInstance, row.size);
        ASSERT_GT(attributes->cVars, 0);
        VARDESC* last = nullptr;
        ASSERT_EQ(type->GetVarDesc(static_cast<UINT>(attributes->cVars - 1), &last), S_OK);
        EXPECT_EQ(NameOf(type.Get(), last->memid), row.member);
        EXPECT_EQ(last->oInst, row.offset);
        type->ReleaseVarDesc(last);
    }
}

TEST_F(TypeLibrary, names_features_and_modes) {
    const auto values = [&](const std::string& name) {
        std::map<std::string, LONG> found;
        const ComPtr<ITypeInfo> type = Type(name);
        if (!type) return found;
        const CTypeAttributes attributes(type.Get());
        for (UINT i = 0; i < attributes->cVars; ++i) {
            VARDESC* row = nullptr;
            EXPECT_EQ(type->GetVarDesc(i, &row), S_OK);
            found[NameOf(type.Get(), row->memid)] = row->lpvarValue->lVal;
            type->ReleaseVarDesc(row);
        }
        return found;
    };
    const auto features = values("KolmFeatureId");
    EXPECT_EQ(features.size(), 27u);
    EXPECT_THAT(features, ::testing::Contains(::testing::Pair("KolmFeature_brightness", 256)));
    EXPECT_THAT(features, ::testing::Contains(::testing::Pair("KolmFeature_timeBase", 512)));
    EXPECT_THAT(features, ::testing::Contains(::testing::Pair("KolmFeature_isoChannel", 1032)));
    const auto modes = values("KolmFeatureMode");
    EXPECT_EQ(modes.size(), 11u);
    EXPECT_THAT(modes, ::testing::Contains(::testing::Pair("KolmMode_automatic", 3)));
    EXPECT_THAT(modes, ::testing::Contains(::testing::Pair("KolmMode_unknown", 10)));
}

TEST_F(TypeLibrary, calls_reach_the_object_by_what_the_library_says) {
    const ComPtr<ITypeInfo> type = Type(IID_IKolmStillImage);
    ASSERT_NE(type, nullptr);
    ComPtr<IUnknown> still;
    ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    ASSERT_EQ(CModule::Get().Create(CLSID_KolmStillImage, nullptr, IID_IKolmStillImage,
                                    reinterpret_cast<void**>(still.GetAddressOf())),
              S_OK);
    FUNCDESC* function = nullptr;
    ASSERT_EQ(type->GetFuncDesc(3, &function), S_OK);
    ASSERT_EQ(NameOf(type.Get(), function->memid), "GetBufferSize");

    LONG size = 0xBAD;
    VARIANTARG argument{};
    argument.vt = VT_BYREF | VT_I4;
    argument.plVal = &size;
    VARIANTARG* arguments[] = {&argument};
    VARTYPE types[] = {VT_BYREF | VT_I4};
    VARIANT result{};
    EXPECT_EQ(::DispCallFunc(still.Get(), static_cast<ULONG_PTR>(function->oVft), function->callconv, VT_ERROR, 1,
                             types, arguments, &result),
              S_OK);

    EXPECT_EQ(result.scode, S_OK);
    EXPECT_EQ(size, -1);
    type->ReleaseFuncDesc(function);
    still.Reset();
    ::CoUninitialize();
}

TEST_F(TypeLibrary, file_and_resource_are_the_same) {
    std::ifstream stream(std::filesystem::path(CModule::BesideTheTests(L"kolmfluxor.tlb")), std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(stream), {}};
    HMODULE const module = ::GetModuleHandleW(CModule::Get().Path().c_str());
    HRSRC const place = ::FindResourceW(module, MAKEINTRESOURCEW(1), L"TYPELIB");
    ASSERT_NE(place, nullptr);
    const auto* bytes = static_cast<const char*>(::LockResource(::LoadResource(module, place)));
    const std::string resource(bytes, ::SizeofResource(module, place));

    ASSERT_FALSE(file.empty());
    EXPECT_TRUE(file == resource) << file.size() << " and " << resource.size() << " bytes";
}

TEST_F(TypeLibrary, is_not_registered_with_the_module) {
    const CPrivateRegistry registry;
    ASSERT_EQ(CModule::Get().RegisterServer(), S_OK);

    const RegistryContent classes = CPrivateRegistry::ContentOf(HKEY_CLASSES_ROOT);
    EXPECT_FALSE(classes.empty());
    for (const auto& [key, value] : classes)
        EXPECT_TRUE(key.starts_with(L"CLSID\\")) << Narrow(::SysAllocString(key.c_str()));
}

}  // namespace
}  // namespace kolmfluxor::test
