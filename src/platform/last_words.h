#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace triaxlab {

// What a process leaves behind that ends at once: by a signal, or where memory is so short that nothing better can be
// made. It is prepared beforehand, for then nothing may be allocated, locked or formatted any more.

struct LastWords {
  std::filesystem::path file;  // to which they are added, made when it is not there; empty: standard error alone hears
  std::uint64_t largestFile = 0;  // one that has grown beyond this begins anew
  std::string head;               // what stands above the reason
};

/// From now on a signal that ends the process says the last words first. Called again, these replace those before.
void prepareLastWords(const LastWords& words);

/// What is being done, to stand below the reason; a long text is cut.
void noteLastDeed(std::string_view deed) noexcept;

/// Says the last words now: to the file and, in one line, to standard error. A second time nothing happens. Nothing is
/// thrown; a file that can't be written is passed over.
void sayLastWords(const char* reason) noexcept;

/// All was told in another way: the signal that ends the process has nothing to add.
void withholdLastWords() noexcept;

}  // namespace triaxlab
