// The lock of an application folder: whoever writes into the folder, the window for as long as it is open and
// a writing command for as long as it runs, holds it alone. Readers take none.
//
// The lock is the system's own (flock) on Brantlow.lock in the folder, so it ends with its holder, however
// that ends: a file that a dead process left is just taken over. The file says who holds it, for those who
// wait: process, program, host and what is done. Folders on other machines are the exception, as not every
// one of them passes the system's lock on: a file that another machine wrote counts as held until it is a day
// old.
//
// Order of calls: Take, once; then the folder is the holder's until the lock is destroyed or Release is
// called.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "base/failure.h"
#include "base/files.h"

namespace brantlow {

inline constexpr std::string_view kLockName = "Brantlow.lock";

// Who holds a lock, as its file says.
struct LockHolder {
    long process = 0;     // 0 where the file does not say
    std::string program;  // kWindowHolder or kCommandHolder; other programs' words pass unchanged
    std::string host;     // the machine's name
    std::string machine;  // what stays the machine's own when its name changes; may be empty
    std::string work;     // what it does: "update Mine.ddq"

    bool IsWindow() const;
};

inline constexpr std::string_view kWindowHolder = "window";
inline constexpr std::string_view kCommandHolder = "command";

// This process as a holder.
LockHolder ThisProcess(std::string_view program, std::string_view work);

// How long to wait for a lock, and what to do meanwhile.
struct LockPatience {
    std::chrono::milliseconds limit{0};
    // Called between two tries after a short sleep; false gives up. May be empty.
    std::function<bool()> goOn = {};
};

enum class LockOutcome {
    Taken,
    Held,    // somebody else's, to the end of the patience
    Failed,  // the lock's file could not be made or opened
};

class FolderLock {
  public:
    FolderLock() = default;
    ~FolderLock() { Release(); }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    // Takes the lock of `folder`, which has to be there. A lock that is held already stays.
    LockOutcome Take(const Path& folder, const LockHolder& self, const LockPatience& patience);
    // Gives the lock up and takes its file away.
    void Release();
    // A holder that lives for days shows that it does; other machines look at the file's age.
    void Refresh() const;

    bool IsTaken() const { return descriptor_ >= 0; }
    // After Held: who has it.
    const LockHolder& Holder() const { return holder_; }
    // After Failed: why.
    const Failure& Why() const { return failure_; }
    // After Held or Failed: the sentence for the person.
    std::string Refusal() const;

  private:
    LockOutcome Try(const LockHolder& self);

    Path file_;
    int descriptor_ = -1;
    LockHolder holder_;
    Failure failure_;
};

}  // namespace brantlow
