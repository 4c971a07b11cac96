#include "frame/frame_page.h"

#include <memory>
#include <tuple>

#include <objbase.h>

#include "errors.h"
#include "text.h"

namespace kolmctl {
namespace {

struct TaskMemoryFree {
    void operator()(wchar_t* text) const { ::CoTaskMemFree(text); }
};
using OwnedText = std::unique_ptr<wchar_t, TaskMemoryFree>;

}  // namespace

// The object is complete with the delegated constructor, so the destructor cleans up after a failure below.
FramePage::FramePage(REFCLSID classId) : FramePage(classId, new PageSite) {
    Check(::CoCreateInstance(m_classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IPropertyPage),
                             reinterpret_cast<void**>(m_page.GetAddressOf())),
          "cannot create the page");
    Check(m_page->SetPageSite(m_site.Get()), "the page takes no site");
    // NOLINTNEXTLINE(cppcoreguidelines-prefer-member-initializer): only now
    m_hasSite = true;
    ReadInfo();
}

FramePage::~FramePage() {
    // Results are of no use here: whatever a page says, the rest is to be taken back too.
    SetListener({});
    if (m_active) {
        std::ignore = m_page->Deactivate();
    }
    if (m_connected) {
        std::ignore = m_page->SetObjects(0, nullptr);
    }
    if (m_hasSite) {
        std::ignore = m_page->SetPageSite(nullptr);
    }
}

void FramePage::ReadInfo() {
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    const HRESULT hr = m_page->GetPageInfo(&info);
    const OwnedText title(info.pszTitle);
    const OwnedText description(info.pszDocString);
    const OwnedText helpFile(info.pszHelpFile);
    Check(hr, "the page does not tell its title");
    m_title = title != nullptr ? title.get() : L"";
    m_size = info.size;
}

void FramePage::Connect(IUnknown& object) {
    IUnknown* objects = &object;
    m_connected = true;  // also after a failure: the page may hold the object already
    Check(m_page->SetObjects(1, &objects), "page \"" + ToUtf8(m_title) + "\" does not take the camera");
}

HRESULT FramePage::Show(HWND parent, const RECT& place) {
    if (m_active) {
        return m_page->Show(SW_SHOW);
    }
    const HRESULT hr = m_page->Activate(parent, &place, FALSE);
    if (FAILED(hr)) {
        return hr;
    }
    m_active = true;
    return m_page->Show(SW_SHOW);
}

void FramePage::Hide() {
    if (m_active) {
        std::ignore = m_page->Show(SW_HIDE);
    }
}

bool FramePage::IsDirty() const {
    return m_active && m_page->IsPageDirty() == S_OK;
}

HRESULT FramePage::Apply() {
    return m_active ? m_page->Apply() : S_OK;
}

bool FramePage::Translate(MSG* message) {
    return m_active && m_page->TranslateAccelerator(message) == S_OK;
}

}  // namespace kolmctl
