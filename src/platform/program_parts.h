#pragma once

#include <filesystem>

namespace triaxlab {

/// Where the parts of the program lie. An installation keeps them in bin, libexec/triaxlab and share/triaxlab of one
/// folder, wherever that stands; of a program that was only built or unpacked all lie together.
struct ProgramParts {
  std::filesystem::path programs;  // which a person starts: triaxlab, triaxlab-cli
  std::filesystem::path helpers;   // which those start: triaxlab-cli-pages, triaxlab-jet-reader
  std::filesystem::path data;      // what comes along to be read: samples/
  bool isInstalled = false;
};

/// Of the program whose executable lies in this folder, be it among the programs or the helpers.
ProgramParts programPartsAround(const std::filesystem::path& executableFolder);
/// Of the running program.
ProgramParts programParts();

}  // namespace triaxlab
