/// @file  The simulated camera and its capture filter give back every handle and thread.

#include <string>

#include <windows.h>

#include <control.h>
#include <strmif.h>
#include <uuids.h>
#include <wrl/client.h>

#include <gtest/gtest.h>

#include "filter/class_ids.h"
#include "module/simulator_fixture.h"
#include "support/resources.h"

extern "C" const CLSID CLSID_NullRenderer;

namespace kolmfluxor::test {
namespace {

using Microsoft::WRL::ComPtr;

constexpr int kCycles = 40;

/// The handle that the process would get next; the process's own count of handles is not kept everywhere.
ULONG_PTR NextHandle() {
    const HANDLE handle = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    ::CloseHandle(handle);
    return reinterpret_cast<ULONG_PTR>(handle);
}

template <class Interface> ComPtr<Interface> Create(REFCLSID classId) {
    ComPtr<Interface> object;
    EXPECT_EQ(::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                                 reinterpret_cast<void**>(object.GetAddressOf())),
              S_OK);
    return object;
}

class SimulatorLeaks : public SimulatorTest {
protected:
    SimulatorLeaks() {
        ::SetEnvironmentVariableW(L"KOLMSIM_STATE", L"none");
        EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        static const HMODULE library = ::LoadLibraryW(CModule::BesideTheTests(L"simulator\\kolmsimcam.ax").c_str());
        using ClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
        const auto classObject =
            reinterpret_cast<ClassObject>(reinterpret_cast<void*>(::GetProcAddress(library, "DllGetClassObject")));
        EXPECT_EQ(classObject(kolmsim::CLSID_SimulatedColorCamera, __uuidof(IClassFactory),
                              reinterpret_cast<void**>(m_factory.GetAddressOf())),
                  S_OK);
    }
    ~SimulatorLeaks() override {
        m_factory.Reset();
        ::CoUninitialize();
    }

    ComPtr<IBaseFilter> NewFilter() {
        ComPtr<IBaseFilter> filter;
        EXPECT_EQ(
            m_factory->CreateInstance(nullptr, __uuidof(IBaseFilter), reinterpret_cast<void**>(filter.GetAddressOf())),
            S_OK);
        return filter;
    }

    /// A graph that has streamed as often as asked for.
    void Stream(int runs) {
        const auto graph = Create<IGraphBuilder>(CLSID_FilterGraph);
        const auto renderer = Create<IBaseFilter>(CLSID_NullRenderer);
        const auto filter = NewFilter();
        ASSERT_EQ(graph->AddFilter(filter.Get(), L"camera"), S_OK);
        ASSERT_EQ(graph->AddFilter(renderer.Get(), L"renderer"), S_OK);
        ComPtr<IPin> out;
        ComPtr<IPin> in;
        ASSERT_EQ(filter->FindPin(L"Capture", out.GetAddressOf()), S_OK);
        ASSERT_EQ(renderer->FindPin(L"In", in.GetAddressOf()), S_OK);
        ASSERT_EQ(graph->ConnectDirect(out.Get(), in.Get(), nullptr), S_OK);
        ComPtr<IMediaControl> control;
        ASSERT_EQ(graph.As(&control), S_OK);
        for (int i = 0; i < runs; ++i) {
            OAFilterState state = State_Stopped;
            EXPECT_GE(control->Run(), S_OK);
            EXPECT_EQ(control->GetState(5000, &state), S_OK);
            EXPECT_EQ(control->Stop(), S_OK);
        }
    }

    /// Runs `cycle` twice, so that everything that is kept for good is there, then many times more.
    template <class Cycle> void ExpectNothingLeft(Cycle&& cycle) {
        cycle();
        cycle();
        const ULONG_PTR handle = NextHandle();
        const int threads = CountThreads();
        for (int i = 0; i < kCycles; ++i) {
            cycle();
        }
        // A handle value is a multiple of 4; a leak of one handle in each cycle would leave 4 x kCycles.
        EXPECT_LT(NextHandle(), handle + 2 * kCycles);
        EXPECT_LE(CountThreads(), threads);
    }

    ComPtr<IClassFactory> m_factory;
};

TEST_F(SimulatorLeaks, cameras_are_closed_without_a_trace) {
    wchar_t folder[MAX_PATH] = L"";
    ::GetTempPathW(MAX_PATH, folder);
    const std::wstring file = std::wstring(folder) + L"simulator-leak-" + std::to_wstring(::GetCurrentProcessId());

    ExpectNothingLeft([&] {
        const UniqueCamera priv(m_open(L"mono", nullptr));
        const UniqueCamera shared(m_open(L"color", file.c_str()));
        EXPECT_TRUE(priv != nullptr && shared != nullptr);
    });
    EXPECT_TRUE(::DeleteFileW(file.c_str()));
}

TEST_F(SimulatorLeaks, filters_are_released_without_a_trace) {
    ExpectNothingLeft([&] { EXPECT_NE(NewFilter(), nullptr); });
}

TEST_F(SimulatorLeaks, graphs_that_streamed_are_released_without_a_trace) {
    ExpectNothingLeft([&] { Stream(2); });
}

}  // namespace
}  // namespace kolmfluxor::test
