// Chooses one of the mutants that were compiled into a program. Part of scripts/mutate.

#ifndef TSLM5_MUTATION_SWITCH_H_
#define TSLM5_MUTATION_SWITCH_H_

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>

namespace mutation {

/// More than the number of any mutant.
inline constexpr std::size_t kCapacity = 1 << 16;

/// The number in TSLM5_MUTANT, 0 for none; and, when TSLM5_REACHED names a file of `kCapacity`
/// bytes, the places that were reached: byte n of it is set when mutant n's place is executed.
/// Allocates nothing.
struct Choice {
  Choice() noexcept {
    const char* const number = std::getenv("TSLM5_MUTANT");
    if (number != nullptr) active = std::atoi(number);
    const char* const path = std::getenv("TSLM5_REACHED");
    const int file = path == nullptr ? -1 : ::open(path, O_RDWR | O_CLOEXEC);
    if (file < 0) return;
    void* const bytes = ::mmap(nullptr, kCapacity, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (bytes != MAP_FAILED) reached = static_cast<volatile char*>(bytes);
    ::close(file);
  }

  int active = 0;
  volatile char* reached = nullptr;
};

inline bool IsOn(int number) noexcept {
  static const Choice choice;
  if (choice.reached != nullptr) choice.reached[number] = 1;
  return number == choice.active;
}

}  // namespace mutation

#endif  // TSLM5_MUTATION_SWITCH_H_
