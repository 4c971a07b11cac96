#include "media/property_frame.h"

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include "base/handles.h"
#include "media/in_turn.h"

namespace kolmfluxor {
namespace {

constexpr UINT kFrameX = 30;
constexpr UINT kFrameY = 30;

}  // namespace

HRESULT ShowPropertyFrame(IUnknown& object, HWND parent, const wchar_t* caption) {
    // While the frame is open the host runs on, and may let go of the object.
    const Microsoft::WRL::ComPtr<IUnknown> held(&object);
    Microsoft::WRL::ComPtr<ISpecifyPropertyPages> specify;
    HRESULT hr = Obtain(specify, [&] { return object.QueryInterface(IID_PPV_ARGS(&specify)); });
    if (FAILED(hr)) return hr;
    CAUUID pages{};
    hr = specify->GetPages(&pages);
    const UniqueCoTaskMem<GUID> owned(pages.pElems);
    if (FAILED(hr)) return hr;
    if (pages.cElems == 0 || pages.pElems == nullptr) return E_FAIL;

    IUnknown* objects = held.Get();
    return ::OleCreatePropertyFrame(parent, kFrameX, kFrameY, caption, 1, &objects, pages.cElems, pages.pElems, 0, 0,
                                    nullptr);
}

}  // namespace kolmfluxor
