#include "driver/lockable.h"

#include <tuple>

#include "base/errors.h"

namespace kolmfluxor {
namespace {

void Require(HANDLE mutex, const char* text) {
    if (mutex == INVALID_HANDLE_VALUE) throw CTextException(text);
}

}  // namespace

CLockable::CLockable() : CLockable(::CreateMutexA(nullptr, FALSE, nullptr)) {}

CLockable::CLockable(HANDLE mutex) : m_mutex(mutex) {
    Require(m_mutex, "CLockable::CLockable: could not create lock mutex");
}

CLockable::~CLockable() noexcept(false) {
    Require(m_mutex, "CLockable::~CLockable: unexpected Lock Handle not valid");
    std::ignore = Lock(kUsualWaitMs);  // whoever still has it after that has lost it
    ::CloseHandle(m_mutex);
    m_mutex = INVALID_HANDLE_VALUE;
}

bool CLockable::Lock(DWORD timeoutMs) {
    Require(m_mutex, "CLockable::Lock: unexpected Lock Handle not valid");
    m_lastWait = ::WaitForSingleObject(m_mutex, timeoutMs);
    return m_lastWait == WAIT_OBJECT_0;
}

void CLockable::UnLock() {
    Require(m_mutex, "CLockable::UnLock: unexpected Lock Handle not valid");
    ::ReleaseMutex(m_mutex);
}

}  // namespace kolmfluxor
