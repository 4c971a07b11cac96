/// @file  The life of a still image, with every fault at every call that it makes of devices, graph and pages.

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

#include "media/scripted_pages.h"
#include "media/still_fixture.h"
#include "support/counted_task_memory.h"
#include "support/fault_sweep.h"
#include "support/patched_import.h"
#include "support/resources.h"

extern "C" void* __imp_OleCreatePropertyFrame;

namespace kolmfluxor::test {
namespace {

constexpr int kSlack = 4;  // the guard's thread may start late; a call that leaks at each failure leaves more
constexpr char kFirstOfThePicture[] = "SetOneShot FALSE";
constexpr HRESULT kBusy = static_cast<HRESULT>(0x800700AA);

// clang-format off
constexpr CallFault kFaults[] = {
    {.name = "fails with E_FAIL",                 .kind = CallFaultKind::fails, .code = E_FAIL},
    {.name = "fails with E_OUTOFMEMORY",          .kind = CallFaultKind::fails, .code = E_OUTOFMEMORY},
    {.name = "fails with VFW_E_NOT_FOUND",        .kind = CallFaultKind::fails, .code = VFW_E_NOT_FOUND},
    {.name = "fails with VFW_E_CANNOT_CONNECT",   .kind = CallFaultKind::fails, .code = VFW_E_CANNOT_CONNECT},
    {.name = "fails with ERROR_BUSY",             .kind = CallFaultKind::fails, .code = kBusy},
    {.name = "returns S_FALSE",                   .kind = CallFaultKind::qualified, .code = S_FALSE},
    {.name = "returns S_OK and gives nothing",    .kind = CallFaultKind::givesNothing},
};

/// A call whose fault gives another result than usual. Usual is the code of a failure, `S_OK` where a call returned
/// another success, and `E_UNEXPECTED` where it gave nothing.
struct Special {
    std::string_view call;
    CallFaultKind kind;
    HRESULT result;
};
constexpr Special kSpecials[] = {
    {"CreateClassEnumerator", CallFaultKind::givesNothing, E_FAIL},  // there is no device at all
    {"Next",                  CallFaultKind::qualified,    S_FALSE},  // no more devices
    {"GetDisplayName",        CallFaultKind::fails,        S_FALSE},  // passed over, and no other has the name
    {"GetDisplayName",        CallFaultKind::givesNothing, S_FALSE},
    {"BindToStorage",         CallFaultKind::fails,        S_FALSE},
    {"BindToStorage",         CallFaultKind::givesNothing, S_FALSE},
    {"Read",                  CallFaultKind::fails,        S_FALSE},
    {"Read",                  CallFaultKind::givesNothing, S_FALSE},
    {"BindToObject",          CallFaultKind::qualified,    S_FALSE},  // the device's own code
    {"GetPages",              CallFaultKind::givesNothing, E_FAIL},   // there is no page
    {"frame",                 CallFaultKind::qualified,    S_FALSE},  // the frame's own code
    {"GetFormat 2",           CallFaultKind::fails,        -1},
    {"GetFormat 2",           CallFaultKind::givesNothing, -1},
};
// clang-format on

HRESULT ResultOf(std::string_view call, const CallFault& fault) {
    const auto* const found =
        std::ranges::find_if(kSpecials, [&](const Special& row) { return row.call == call && row.kind == fault.kind; });
    if (found != std::end(kSpecials)) return found->result;
    switch (fault.kind) {
    case CallFaultKind::fails:
        return fault.code;
    case CallFaultKind::qualified:
        return S_OK;
    case CallFaultKind::givesNothing:
        return E_UNEXPECTED;
    }
    return E_UNEXPECTED;
}

/// A step of a still image's life, and what it gives when no device could be selected.
struct Step {
    const char* name;
    HRESULT (*run)(IKolmStillImage& still);
    HRESULT withoutDevice;
};

HRESULT GiveDevice(IKolmStillImage& still) {
    auto* device = reinterpret_cast<IUnknown*>(0xDEADBEEF);
    const HRESULT hr = still.GetDeviceUnknown(&device);
    EXPECT_EQ(device == nullptr, FAILED(hr));
    if (device != nullptr) device->Release();
    return hr;
}

HRESULT Capture(IKolmStillImage& still) {
    return still.Capture();
}

constexpr Step kLife[] = {
    {"select", [](IKolmStillImage& still) { return still.SelectDeviceByName(L"camera"); }, S_FALSE},
    {"give the device", GiveDevice, E_FAIL},
    {"device pages", [](IKolmStillImage& still) { return still.ShowDevicePropertyPages(nullptr, L""); }, E_FAIL},
    {"stream pages", [](IKolmStillImage& still) { return still.ShowStreamPropertyPages(nullptr, L""); }, E_FAIL},
    {"capture", Capture, E_POINTER},
    {"capture again", Capture, E_POINTER},
    {"close", [](IKolmStillImage& still) { return still.Close(); }, S_OK},
};

CCallFaults* g_faults = nullptr;

HRESULT STDAPICALLTYPE OpenFrame(HWND, UINT, UINT, LPCOLESTR, ULONG, IUnknown**, ULONG, CLSID*, LCID, DWORD, void*) {
    return g_faults->Begin("frame", false).code;
}

const std::vector<BYTE> kPicture = {10, 10, 10, 11, 11, 11, 12, 12, 12, 7, 7, 7, 8, 8, 8, 9, 9, 9};

class StillCallSweep : public StillFixture {
protected:
    StillCallSweep() {
        m_devices->faults = &m_faults;
        m_graph->faults = &m_faults;
        Device().faults = &m_faults;
        m_pages.faults = &m_faults;
        g_faults = &m_faults;
        const auto offer = [this](REFIID riid, void** out) { return m_pages.QueryInterface(riid, out); };
        Device().otherInterfaces = offer;
        m_graph->configInterfaces = offer;
    }
    ~StillCallSweep() override { EXPECT_EQ(m_pages.references, 0u); }

    /// The result of a step; its calls are in `m_faults` on top of those of the steps before.
    HRESULT Do(const Step& step) {
        m_graph->calls.clear();  // which numbers the formats
        return step.run(*m_still.Get());
    }

    /// A life in which the n-th call is disturbed.
    void Live(const CallFault& fault, std::size_t nth, const std::string& struckCall);

    void ExpectNothingLeft(bool isSelected) {
        EXPECT_EQ(m_graph->references, 0u);
        EXPECT_EQ(m_graph->callback, nullptr);
        EXPECT_EQ(m_devices->references, 0u);
        EXPECT_EQ(m_pages.references, 0u);
        EXPECT_EQ(Device().references.filter, isSelected ? 1u : 0u);
        EXPECT_EQ(CBaseObject::ObjectsActive(), 1);
    }

    CCallFaults m_faults;
    CSpecifiedPages m_pages;
    const CPatchedImport m_openFrame{&__imp_OleCreatePropertyFrame, reinterpret_cast<void*>(&OpenFrame)};
};

void StillCallSweep::Live(const CallFault& fault, std::size_t nth, const std::string& struckCall) {
    bool isSelected = false;
    std::vector<BYTE> picture;
    m_faults.Start(&fault, nth);
    for (const Step& step : kLife) {
        SCOPED_TRACE(step.name);
        const bool isSelection = &step == kLife;
        const bool isClose = &step == std::end(kLife) - 1;
        const std::size_t before = m_faults.calls.size();

        const HRESULT result = Do(step);

        const bool isStruck = before < nth && nth <= m_faults.calls.size();
        HRESULT due = isSelection || isSelected ? S_OK : step.withoutDevice;
        if (isStruck) {
            EXPECT_EQ(m_faults.calls[nth - 1].name, struckCall);
            due = ResultOf(struckCall, fault);
            // What a device answers to a query is passed on as it is, where the query is all there is.
            if (step.run == GiveDevice && fault.kind == CallFaultKind::qualified) due = fault.code;
        }
        EXPECT_EQ(result, due) << std::hex << result;
        if (isSelection) {
            // A device that was opened with reservations is selected all the same.
            isSelected = due == S_OK || (struckCall == "BindToObject" && fault.kind == CallFaultKind::qualified);
        }
        // A failure before the stream is set up keeps the picture taken before.
        if (isClose || std::ranges::count(m_graph->calls, kFirstOfThePicture) != 0) picture.clear();
        if (step.run == Capture && due == S_OK) picture = kPicture;
        EXPECT_EQ(Picture(), picture);
        if (isClose) isSelected = false;
        ExpectNothingLeft(isSelected);
    }
    m_faults.Start(nullptr, 0);
}

TEST_F(StillCallSweep, no_fault_of_any_call_gives_more_than_what_is_documented_and_the_next_picture_is_right) {
    for (const Step& step : kLife)
        EXPECT_EQ(Do(step), S_OK) << step.name;
    const std::vector<CCallFaults::Call> calls = m_faults.calls;
    EXPECT_GT(calls.size(), 50u);

    CHangGuard guard;
    int tried = 0;
    Resources before;
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        for (const CallFault& fault : kFaults) {
            if (fault.kind == CallFaultKind::givesNothing && !calls[n - 1].canBeEmpty) continue;
            const std::string what = "call " + std::to_string(n) + ", " + calls[n - 1].name + ' ' + fault.name;
            SCOPED_TRACE(what);
            guard.Step(what);
            const CCountedTaskMemory memory;

            Live(fault, n, calls[n - 1].name);

            for (const Step& step : kLife) {
                EXPECT_EQ(Do(step), S_OK) << step.name << ", and no fault any more";
                if (step.run == Capture) EXPECT_EQ(Picture(), kPicture);
            }
            ExpectNothingLeft(false);
            EXPECT_EQ(memory.Live(), 0u);
            if (tried++ == 0) before = CountResources();
        }
    }
    ReportTried("faults tried at calls of a still image", tried);
    ExpectFlat(before, kSlack);
}

}  // namespace
}  // namespace kolmfluxor::test
