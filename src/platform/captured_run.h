#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "platform/files.h"

namespace triaxlab {

/// How far a program may go before it is stopped.
struct RunLimits {
  std::chrono::milliseconds time{30'000};
  std::size_t outputBytes = std::size_t{512} << 20;
};

/// What became of a program that was waited for.
struct CapturedRun {
  enum class End : std::uint8_t {
    Done,        // it ended by itself with status 0
    Failed,      // another status, or a crash
    TimedOut,    // stopped
    TooMuch,     // stopped: more output than allowed
    NotStarted,  // no such program, no right to run it, or no means to
    Lost,        // stopped: this program could not go on reading from it
  };
  End end = End::NotStarted;
  std::string cause;  // of NotStarted and Lost, in the technician's language
  Bytes output;       // what it wrote to standard output
};

/// Runs a program with nothing to read, keeps what it writes to standard output, drops what it writes to standard
/// error, and waits for its end. Whatever the program does, this returns soon after the time limit, and no process is
/// left.
CapturedRun captureProgram(const std::filesystem::path& program, std::span<const std::string> arguments,
                           const RunLimits& limits);

}  // namespace triaxlab
