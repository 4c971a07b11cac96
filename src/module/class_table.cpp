#include "module/class_table.h"

#include <algorithm>

#include <kolmfluxor/identifiers.h>

#include "driver/property_set.h"
#include "media/still_image.h"
#include "pages/color_page.h"
#include "pages/direct_access_page.h"
#include "pages/exposure_page.h"
#include "pages/format_page.h"
#include "pages/info_page.h"
#include "pages/lut_page.h"
#include "pages/smart01_page.h"
#include "pages/trigger_page.h"

namespace kolmfluxor {
namespace {

constexpr CFactoryTemplate kClasses[] = {
    {.name = L"KolmFluxorPropertySet",
     .classId = &CLSID_KolmFluxorPropertySet,
     .create = CKolmFluxorPropertySet::CreateInstance},
    {.name = L"KolmFluxorPropertyPageColor",
     .classId = &CLSID_KolmFluxorPage_Color,
     .create = CKolmFluxorPage_Color::CreateInstance},
    {.name = L"KolmFluxorPropertyPageTrigger",
     .classId = &CLSID_KolmFluxorPage_Trigger,
     .create = CKolmFluxorPage_Trigger::CreateInstance},
    {.name = L"KolmStillImage", .classId = &CLSID_KolmStillImage, .create = CKolmStillImage::CreateInstance},
    {.name = L"KolmFluxorPropertyPageInfo",
     .classId = &CLSID_KolmFluxorPage_Info,
     .create = CKolmFluxorPage_Info::CreateInstance},
    {.name = L"KolmFluxorPropertyPageFormat",
     .classId = &CLSID_KolmFluxorPage_Format,
     .create = CKolmFluxorPage_Format::CreateInstance},
    {.name = L"KolmFluxorPropertyPageExposure",
     .classId = &CLSID_KolmFluxorPage_Exposure,
     .create = CKolmFluxorPage_Exposure::CreateInstance},
    {.name = L"KolmFluxorPropertyPageDirectAccess",
     .classId = &CLSID_KolmFluxorPage_DirectAccess,
     .create = CKolmFluxorPage_DirectAccess::CreateInstance},
    {.name = L"KolmFluxorPropertyPageSmart01",
     .classId = &CLSID_KolmFluxorPage_Smart01,
     .create = CKolmFluxorPage_Smart01::CreateInstance},
    {.name = L"KolmFluxorPropertyPageLUT",
     .classId = &CLSID_KolmFluxorPage_Lut,
     .create = CKolmFluxorPage_Lut::CreateInstance},
};

}  // namespace

std::span<const CFactoryTemplate> ClassTable() noexcept {
    return kClasses;
}

const CFactoryTemplate& ClassRow(REFCLSID classId) noexcept {
    return *std::ranges::find_if(kClasses, [&](const auto& row) { return *row.classId == classId; });
}

}  // namespace kolmfluxor
