#pragma once
/// @file  An ordered map guarded by a mutex of its own.

#include <map>

#include <windows.h>

#include "base/errors.h"

namespace kolmfluxor {

/// An ordered map for several threads: each operation takes the map's own mutex, with an infinite wait.
///
/// Two operations in a row are not atomic together. The mutex is released also when an exception passes.
template <class K, class V> class map_multithreaded {
public:
    /// @throws CTextException  when no mutex could be made
    map_multithreaded() : map_multithreaded(::CreateMutexA(nullptr, FALSE, nullptr)) {}

    /// Takes over a mutex.
    ///
    /// @throws CTextException  when `mutex` is `INVALID_HANDLE_VALUE`
    explicit map_multithreaded(HANDLE mutex) : m_mutex(mutex) {
        // Compatibility: a null handle, with which CreateMutex reports failure, passes; the map then works unguarded.
        if (m_mutex == INVALID_HANDLE_VALUE) {
            throw CTextException(
                "map_multithreaded<unsigned long,struct KSPROPERTY_KOLM_FEATURE_ACCESS>::map_multithreaded: "
                "could not create mutex");
        }
    }

    ~map_multithreaded() {
        ::WaitForSingleObject(m_mutex, INFINITE);
        ::CloseHandle(m_mutex);
    }

    map_multithreaded(const map_multithreaded&) = delete;
    map_multithreaded& operator=(const map_multithreaded&) = delete;

    /// Copies the value of `key` out and returns true; false, with `*value` left alone, when there is none.
    [[nodiscard]] bool find(const K& key, V* value) const {
        const lock_guard guard(this);
        const auto found = m_map.find(key);
        if (found == m_map.end()) return false;
        *value = found->second;
        return true;
    }

    /// Inserts a value for a key that is absent and returns true; an existing value stays, and the answer is false.
    bool insert(const K& key, const V& value) {
        const lock_guard guard(this);
        return m_map.emplace(key, value).second;
    }

    /// Holds the mutex of a map as long as it lives.
    class lock_guard {
    public:
        /// @throws int  (`ERROR_INVALID_PARAMETER`) when there is no map
        explicit lock_guard(const map_multithreaded* map) : m_map(map) {
            if (m_map == nullptr) throw int{ERROR_INVALID_PARAMETER};
            ::WaitForSingleObject(m_map->m_mutex, INFINITE);
        }
        ~lock_guard() { ::ReleaseMutex(m_map->m_mutex); }
        lock_guard(const lock_guard&) = delete;
        lock_guard& operator=(const lock_guard&) = delete;

    private:
        const map_multithreaded* m_map;
    };

private:
    HANDLE m_mutex;
    std::map<K, V> m_map;
};

}  // namespace kolmfluxor
