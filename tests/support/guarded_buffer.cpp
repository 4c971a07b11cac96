#include "support/guarded_buffer.h"

#include <new>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/mman.h>
#endif

namespace kolmfluxor::test {
namespace {

constexpr std::size_t kPageBytes = 4096;  // of x86-64; larger pages of others are not met by the guards' size
constexpr std::size_t kGuardBytes = 16 * kPageBytes;

}  // namespace

CGuardedBuffer::CGuardedBuffer(std::size_t sizeBytes) {
    const std::size_t usable = (sizeBytes + kPageBytes - 1) / kPageBytes * kPageBytes;
    const std::size_t all = usable + 2 * kGuardBytes;
#ifdef _WIN32
    void* const memory = ::VirtualAlloc(nullptr, all, MEM_RESERVE, PAGE_NOACCESS);
    if (!memory) throw std::bad_alloc();
    std::uint8_t* const first = static_cast<std::uint8_t*>(memory) + kGuardBytes;
    if (!::VirtualAlloc(first, usable, MEM_COMMIT, PAGE_READWRITE)) throw std::bad_alloc();
#else
    void* const memory = ::mmap(nullptr, all, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    std::uint8_t* const first = static_cast<std::uint8_t*>(memory) + kGuardBytes;
    if (::mprotect(first, usable, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
#endif
    m_bytes = {first, usable};
}

CGuardedBuffer::~CGuardedBuffer() {
    std::uint8_t* const memory = m_bytes.data() - kGuardBytes;
#ifdef _WIN32
    ::VirtualFree(memory, 0, MEM_RELEASE);
#else
    ::munmap(memory, m_bytes.size() + 2 * kGuardBytes);
#endif
}

}  // namespace kolmfluxor::test
