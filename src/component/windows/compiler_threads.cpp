// The thread functions that the compiler's library needs, made of the system's own locks and slots.
// The linker takes these instead of those that come with the compiler, which keep a slot and two
// handles of the process each time that the module is loaded.

#include <pthread.h>
#include <windows.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>

namespace __gnu_cxx {
void __freeres();  // NOLINT(bugprone-reserved-identifier): the compiler's
}

namespace {

/// The system's locks begin as 0, and the initialisers of the compiler's are small negative
/// numbers.
template <class Lock>
Lock* ofSystem(std::intptr_t* object) {
  static_assert(sizeof(Lock) == sizeof *object);
  auto* const whole = reinterpret_cast<PVOID volatile*>(object);
  for (const std::intptr_t initial : {GENERIC_NORMAL_INITIALIZER, GENERIC_RECURSIVE_INITIALIZER}) {
    ::InterlockedCompareExchangePointer(whole, nullptr, reinterpret_cast<PVOID>(initial));
  }
  return reinterpret_cast<Lock*>(object);
}

enum Once : pthread_once_t { kNotYet = PTHREAD_ONCE_INIT, kRunning, kDone };
SRWLOCK onceLock = SRWLOCK_INIT;
CONDITION_VARIABLE onceDone = CONDITION_VARIABLE_INIT;

/// The value that a thread has set for a key. The system passes nothing else to its callback, which
/// has another calling convention.
struct Specific {
  void (*destroy)(void*);
  void* value;
};
void CALLBACK destroySpecific(void* memory) {
  auto* const own = static_cast<Specific*>(memory);
  if (own->destroy != nullptr && own->value != nullptr) {
    own->destroy(own->value);
  }
  std::free(own);
}

struct Key {
  DWORD slot;
  void (*destroy)(void*);
};
/// The compiler's library uses one key for all thread-local variables.
std::array<Key, 4> keys;
pthread_key_t keyCount = 0;
SRWLOCK keyLock = SRWLOCK_INIT;

/// Runs when the module is unloaded, after all other destructors. The values of the threads are
/// freed with the slots.
__attribute__((destructor(101))) void freeAll() {
  for (pthread_key_t key = 0; key < keyCount; ++key) ::FlsFree(keys.at(key).slot);
  __gnu_cxx::__freeres();
}

}  // namespace

// The system's header names the parameters otherwise, and hides what a mutex is.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name,misc-non-copyable-objects)
extern "C" {

int pthread_once(pthread_once_t* once, void (*run)()) {
  if (__atomic_load_n(once, __ATOMIC_ACQUIRE) == kDone) return 0;
  ::AcquireSRWLockExclusive(&onceLock);
  while (*once == kRunning) ::SleepConditionVariableSRW(&onceDone, &onceLock, INFINITE, 0);
  const bool first = *once == kNotYet;
  if (first) *once = kRunning;
  ::ReleaseSRWLockExclusive(&onceLock);
  if (!first) return 0;
  run();
  ::AcquireSRWLockExclusive(&onceLock);
  __atomic_store_n(once, kDone, __ATOMIC_RELEASE);
  ::ReleaseSRWLockExclusive(&onceLock);
  ::WakeAllConditionVariable(&onceDone);
  return 0;
}

int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* /*attributes*/) {
  *mutex = 0;
  return 0;
}

int pthread_mutex_destroy(pthread_mutex_t* /*mutex*/) {
  return 0;
}

/// A simple lock is enough, because the compiler's library never locks a mutex twice, not even a
/// recursive one.
int pthread_mutex_lock(pthread_mutex_t* mutex) {
  ::AcquireSRWLockExclusive(ofSystem<SRWLOCK>(mutex));
  return 0;
}

int pthread_mutex_unlock(pthread_mutex_t* mutex) {
  ::ReleaseSRWLockExclusive(ofSystem<SRWLOCK>(mutex));
  return 0;
}

int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
  ::SleepConditionVariableSRW(ofSystem<CONDITION_VARIABLE>(condition), ofSystem<SRWLOCK>(mutex),
                              INFINITE, 0);
  return 0;
}

int pthread_cond_broadcast(pthread_cond_t* condition) {
  ::WakeAllConditionVariable(ofSystem<CONDITION_VARIABLE>(condition));
  return 0;
}

int pthread_key_create(pthread_key_t* key, void (*destroy)(void*)) {
  ::AcquireSRWLockExclusive(&keyLock);
  const DWORD slot = keyCount < keys.size() ? ::FlsAlloc(destroySpecific) : FLS_OUT_OF_INDEXES;
  if (slot != FLS_OUT_OF_INDEXES) {
    *key = keyCount++;
    keys.at(*key) = {slot, destroy};
  }
  ::ReleaseSRWLockExclusive(&keyLock);
  return slot == FLS_OUT_OF_INDEXES ? EAGAIN : 0;
}

void* pthread_getspecific(pthread_key_t key) {
  const auto* const own = static_cast<const Specific*>(::FlsGetValue(keys.at(key).slot));
  return own == nullptr ? nullptr : own->value;
}

int pthread_setspecific(pthread_key_t key, const void* value) {
  auto* own = static_cast<Specific*>(::FlsGetValue(keys.at(key).slot));
  if (own == nullptr) {
    own = static_cast<Specific*>(std::calloc(1, sizeof *own));
    if (own == nullptr || ::FlsSetValue(keys.at(key).slot, own) == FALSE) return ENOMEM;
    own->destroy = keys.at(key).destroy;
  }
  own->value = const_cast<void*>(value);  // NOLINT(cppcoreguidelines-pro-type-const-cast)
  return 0;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name,misc-non-copyable-objects)
