#include "driver/lockable.h"

#include <gtest/gtest.h>

#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "base/handles.h"
#include "support/recorded_waits.h"
#include "support/thrown_text.h"

namespace kolmfluxor {
namespace {

using test::ThrownText;

/// Gives tests the handle, to break it and to mend it before it is destroyed.
class COpenLockable : public CLockable {
public:
    using CLockable::CLockable;
    using CLockable::m_lastWait;
    using CLockable::m_mutex;
};

/// Takes the lock on a thread of its own and tells whether that worked.
bool LockElsewhere(CLockable& lock, DWORD timeoutMs) {
    bool locked = false;
    std::thread([&] {
        locked = lock.Lock(timeoutMs);
        if (locked) lock.UnLock();
    }).join();
    return locked;
}

TEST(Lockable, excludes_other_threads_until_it_is_unlocked) {
    CLockable lock;

    ASSERT_TRUE(lock.Lock(CLockable::kUsualWaitMs));
    EXPECT_FALSE(LockElsewhere(lock, 0));
    lock.UnLock();

    EXPECT_TRUE(LockElsewhere(lock, 0));
}

TEST(Lockable, the_thread_that_has_it_may_take_it_again) {
    CLockable lock;

    ASSERT_TRUE(lock.Lock(0));
    EXPECT_TRUE(lock.Lock(0));
    lock.UnLock();
    EXPECT_FALSE(LockElsewhere(lock, 0)) << "each Lock wants its own UnLock";
    lock.UnLock();
    EXPECT_TRUE(LockElsewhere(lock, 0));
}

TEST(Lockable, keeps_the_result_of_the_last_wait) {
    COpenLockable lock;

    std::thread([&] { ASSERT_TRUE(lock.Lock(0)); }).join();
    EXPECT_FALSE(lock.Lock(0)) << "a mutex that a dead thread held is not counted as locked";
    EXPECT_EQ(lock.m_lastWait, static_cast<DWORD>(WAIT_ABANDONED));
    EXPECT_TRUE(lock.Lock(0));
    EXPECT_EQ(lock.m_lastWait, static_cast<DWORD>(WAIT_OBJECT_0));
    lock.UnLock();
    lock.UnLock();
}

TEST(Lockable, throws_its_texts_when_the_handle_is_not_valid) {
    EXPECT_EQ(ThrownText([] { COpenLockable lock(INVALID_HANDLE_VALUE); }),
              "CLockable::CLockable: could not create lock mutex");

    COpenLockable lock;
    const UniqueHandle kept(std::exchange(lock.m_mutex, INVALID_HANDLE_VALUE));
    EXPECT_EQ(ThrownText([&] { std::ignore = lock.Lock(0); }), "CLockable::Lock: unexpected Lock Handle not valid");
    EXPECT_EQ(ThrownText([&] { lock.UnLock(); }), "CLockable::UnLock: unexpected Lock Handle not valid");
    lock.m_mutex = ::CreateMutexA(nullptr, FALSE, nullptr);
}

TEST(Lockable, destructor_throws_its_text_when_the_handle_is_not_valid) {
    const auto destroyBroken = [] {
        COpenLockable lock;
        ::CloseHandle(std::exchange(lock.m_mutex, INVALID_HANDLE_VALUE));
    };
    EXPECT_EQ(ThrownText(destroyBroken), "CLockable::~CLockable: unexpected Lock Handle not valid");
}

TEST(Lockable, a_null_handle_passes_every_test_and_never_locks) {
    COpenLockable lock(nullptr);

    EXPECT_FALSE(lock.Lock(0));
    EXPECT_EQ(lock.m_lastWait, WAIT_FAILED);
    EXPECT_NO_THROW(lock.UnLock());
}

TEST(Lockable, waits_as_long_as_told_and_5000_ms_in_the_end) {
    using enum test::HandleCall::Kind;
    HANDLE const mutex = ::CreateMutexA(nullptr, FALSE, nullptr);
    const test::CRecordedWaits recorded(mutex);
    {
        CLockable lock(mutex);
        EXPECT_TRUE(lock.Lock(1234));
        lock.UnLock();
    }

    const std::vector<test::HandleCall> expected = {{wait, 1234}, {release}, {wait, 5000}, {close}};
    EXPECT_EQ(recorded.Calls(), expected);
    EXPECT_EQ(CLockable::kUsualWaitMs, 5000u);
}

TEST(Lockable, closes_its_mutex) {
    HANDLE mutex = nullptr;
    {
        COpenLockable lock;
        mutex = lock.m_mutex;
    }

    EXPECT_FALSE(::ReleaseMutex(mutex));
    EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
}

}  // namespace
}  // namespace kolmfluxor
