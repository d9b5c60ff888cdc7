#include "trust/fault_plan.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace tslm5::trust {
namespace {

constexpr const char* kNames[] = {"open",   "read",   "write", "sync",  "truncate",
                                  "unlink", "rename", "stat",  "memory"};
constexpr std::size_t kCalls = static_cast<std::size_t>(Call::kCount);
static_assert(std::size(kNames) == kCalls);

enum class Mode { kNone, kOnce, kAlways, kKill, kTorn, kPartial };

struct ModeName {
  const char* name;
  Mode mode;
};
constexpr ModeName kModes[] = {{"once", Mode::kOnce},
                               {"always", Mode::kAlways},
                               {"kill", Mode::kKill},
                               {"torn", Mode::kTorn},
                               {"partial", Mode::kPartial}};

bool is_counting = false;
bool is_chosen[kCalls] = {};
unsigned long counts[kCalls] = {};
unsigned long chosen_count = 0;
unsigned long fault_at = 0;
Mode mode = Mode::kNone;
int fault_errno = EIO;
const char* counts_path = nullptr;
const char* hit_path = nullptr;

[[noreturn]] void RefusePlan(const char* plan) {
  static constexpr char kWords[] = "TRUST_FAULT is no plan: ";
  (void)!::syscall(SYS_write, STDERR_FILENO, kWords, sizeof kWords - 1);
  (void)!::syscall(SYS_write, STDERR_FILENO, plan, std::strlen(plan));
  ::_exit(99);
}

/// The field up to `end`, which is moved past.
bool TakeField(const char*& text, char end, char* field, std::size_t size) {
  const char* const stop = std::strchr(text, end);
  const std::size_t length =
      stop != nullptr ? static_cast<std::size_t>(stop - text) : std::strlen(text);
  if (length >= size) return false;
  std::memcpy(field, text, length);
  field[length] = '\0';
  text += length + (stop != nullptr ? 1 : 0);
  return length > 0;
}

bool ChooseCalls(const char* names) {
  char name[16];
  while (*names != '\0') {
    if (!TakeField(names, ',', name, sizeof name)) return false;
    bool is_known = false;
    for (std::size_t i = 0; i < kCalls; ++i) {
      if (std::strcmp(name, kNames[i]) == 0) is_chosen[i] = is_known = true;
    }
    if (!is_known) return false;
  }
  return true;
}

bool ReadPlan(const char* plan) {
  char field[128];
  if (!TakeField(plan, ':', field, sizeof field) || !ChooseCalls(field)) return false;
  if (!TakeField(plan, ':', field, sizeof field)) return false;
  fault_at = std::strtoul(field, nullptr, 10);
  if (fault_at == 0 || !TakeField(plan, ':', field, sizeof field)) return false;
  for (const ModeName& known : kModes) {
    if (std::strcmp(field, known.name) == 0) mode = known.mode;
  }
  if (mode == Mode::kNone || !TakeField(plan, ':', field, sizeof field)) return false;
  fault_errno = std::atoi(field);
  return fault_errno > 0;
}

void MarkHit() {
  if (hit_path == nullptr) return;
  const long file = ::syscall(SYS_openat, AT_FDCWD, hit_path, O_CREAT | O_WRONLY, 0600);
  if (file >= 0) ::syscall(SYS_close, file);
  hit_path = nullptr;
}

}  // namespace

void FaultPlan::Read() {
  counts_path = std::getenv("TRUST_COUNTS");
  hit_path = std::getenv("TRUST_HIT");
  const char* const plan = std::getenv("TRUST_FAULT");
  if (plan != nullptr && !ReadPlan(plan)) RefusePlan(plan);
}

void FaultPlan::Start() {
  is_counting = true;
}

void FaultPlan::Stop() {
  is_counting = false;
}

Fate FaultPlan::Count(Call call) {
  if (!is_counting) return Fate::kProceeds;
  const auto kind = static_cast<std::size_t>(call);
  ++counts[kind];
  if (!is_chosen[kind]) return Fate::kProceeds;
  ++chosen_count;
  if (chosen_count < fault_at) return Fate::kProceeds;
  if (chosen_count > fault_at && mode != Mode::kAlways) return Fate::kProceeds;
  MarkHit();
  switch (mode) {
    case Mode::kKill:
      Die();
    case Mode::kTorn:
      return Fate::kIsTorn;
    case Mode::kPartial:
      return Fate::kIsPartial;
    default:
      errno = fault_errno;
      return Fate::kFails;
  }
}

void FaultPlan::WriteCounts() {
  if (counts_path == nullptr) return;
  const auto file = static_cast<int>(
      ::syscall(SYS_openat, AT_FDCWD, counts_path, O_CREAT | O_WRONLY | O_TRUNC, 0600));
  for (std::size_t i = 0; i < kCalls; ++i) {
    char digits[24];
    char* first = digits + sizeof digits;
    unsigned long rest = counts[i];
    *--first = '\n';
    do {
      *--first = static_cast<char>('0' + rest % 10);
      rest /= 10;
    } while (rest > 0);
    *--first = ' ';
    (void)!::syscall(SYS_write, file, kNames[i], std::strlen(kNames[i]));
    (void)!::syscall(SYS_write, file, first,
                     static_cast<std::size_t>(digits + sizeof digits - first));
  }
  ::syscall(SYS_close, file);
}

void FaultPlan::Die() {
  ::kill(::getpid(), SIGKILL);
  for (;;) ::pause();
}

}  // namespace tslm5::trust
