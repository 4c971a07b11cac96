#pragma once
/// @file  Where a camera's memory lives: in this process, or in a file that several processes map.

#include <memory>

#include <windows.h>

#include "base/handles.h"
#include "model/camera_state.h"

namespace kolmsim {

struct ViewUnmapper {
    void operator()(CameraState* view) const noexcept { ::UnmapViewOfFile(view); }
};

/// A camera's memory and the mutex that guards it, across processes when it lives in a file.
class StateStorage {
public:
    /// Opens or makes the memory, and puts it into the factory state unless it already holds a camera of this variant.
    ///
    /// @param file  path of the state file; null for memory of this process alone
    /// @return      null with the last error set
    [[nodiscard]] static std::unique_ptr<StateStorage> Open(Variant variant, const wchar_t* file);

    StateStorage(const StateStorage&) = delete;
    StateStorage& operator=(const StateStorage&) = delete;

    /// Exclusive access to the memory for as long as it lives.
    ///
    /// A mutex left behind by a process that ended is taken over: each word of the state is valid by itself.
    class Access {
    public:
        explicit Access(StateStorage& storage);
        ~Access();
        Access(const Access&) = delete;
        Access& operator=(const Access&) = delete;

        [[nodiscard]] CameraState& State() const { return *m_storage.m_state; }

    private:
        StateStorage& m_storage;
    };

private:
    StateStorage() = default;

    [[nodiscard]] bool MapFile(const wchar_t* file);

    std::unique_ptr<CameraState> m_private;
    std::unique_ptr<CameraState, ViewUnmapper> m_view;
    CameraState* m_state = nullptr;  ///< one of the two above
    kolmfluxor::UniqueHandle m_mutex;
};

}  // namespace kolmsim
