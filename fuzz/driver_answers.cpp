/// @file  Any calls of the property-set object, over a driver that answers anything.
///
/// The input tells the filter, then one call after the other: which method, its arguments, and the driver's answers.
/// After each call its result, its outputs and every request are compared with a plain transcription of its rules.

#include <limits>

#include "check.h"
#include "driver/property_set.h"
#include "driver/slots.h"

namespace {

using namespace kolmfluxor;
using namespace kolmfluxor::fuzz;

constexpr std::size_t kMethods = 117;
constexpr int kMostCalls = 24;

void Expect(bool holds, const char* what) {
    fuzz::Expect(holds, "driver_answers", what);
}

/// The capture filter into which the object is aggregated.
class CFilter final : public IKsObject {
public:
    CFilter(HRESULT query, HANDLE device) : m_query(query), m_device(device) {}

    HRESULT QueryInterface(REFIID riid, void** out) override {
        *out = nullptr;
        if (riid != __uuidof(IKsObject)) return E_NOINTERFACE;
        if (FAILED(m_query)) return m_query;
        *out = static_cast<IKsObject*>(this);
        AddRef();
        return m_query;
    }
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override { return --m_references; }
    HANDLE KsGetObjectHandle() override { return m_device; }

    [[nodiscard]] ULONG References() const { return m_references; }

private:
    HRESULT m_query;
    HANDLE m_device;
    ULONG m_references = 0;
};

std::vector<Slot> AllSlots() {
    std::vector<Slot> all;
    for (const auto& part : {DirectSlots(), FeatureSlots(), InformationSlots(), MediaTypeSlots(), MemorySlots()})
        all.insert(all.end(), part.begin(), part.end());
    Expect(all.size() == kMethods + 1, "every method of the interface and GetPages");
    return all;
}

void CheckRefusedCreation(const CFilter& filter, HRESULT hr, HRESULT expected, CUnknown* object) {
    Expect(hr == expected, "a creation that fails has its code");
    Expect(object != nullptr && filter.References() == 0, "an object to be deleted, and no reference on the filter");
    delete object;
}

void CallMethods(IKolmFluxorPropertySet& set, CFuzzInput& input) {
    static const std::vector<Slot> slots = AllSlots();
    CPlainFeatures features;
    for (int calls = 0; calls < kMostCalls && !input.Empty(); ++calls) {
        const Slot& slot = slots[input.Byte() % slots.size()];
        ForgetRequests();
        ::PlatformLimitTaskMemory(std::numeric_limits<unsigned>::max());
        CConversation wire(slot.name);
        slot.run({.set = set, .input = input, .wire = wire, .features = features});
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CFuzzInput input(data, size);
    OpenDoor(input);
    // Two bytes in 256 each for a filter that does not answer and for one without a handle.
    const std::uint8_t choice = input.Byte();
    const HRESULT query = choice >= 254 ? static_cast<HRESULT>(input.Word() | 0x80000000) : S_OK;
    const HANDLE device = choice == 252 || choice == 253 ? nullptr : DoorDevice();
    CFilter filter(query, device);

    HRESULT hr = S_OK;
    CUnknown* const object = CKolmFluxorPropertySet::CreateInstance(&filter, &hr);
    if (FAILED(query)) {
        CheckRefusedCreation(filter, hr, query, object);
    } else if (device == nullptr) {
        CheckRefusedCreation(filter, hr, E_UNEXPECTED, object);
    } else {
        Expect(hr == S_OK && object != nullptr && filter.References() == 0, "the object is there");
        object->Inner()->AddRef();
        IKolmFluxorPropertySet* set = nullptr;
        hr = object->Inner()->QueryInterface(__uuidof(IKolmFluxorPropertySet), reinterpret_cast<void**>(&set));
        Expect(hr == S_OK && set != nullptr && filter.References() == 1, "its interface counts on the filter");
        CallMethods(*set, input);
        set->Release();
        Expect(filter.References() == 0 && object->Inner()->Release() == 0, "all references are given back");
    }
    Expect(CBaseObject::ObjectsActive() == 0, "no object is left");
    return 0;
}
