// triaxlab-jet-reader FILE MEMORY SECONDS TABLE=COLUMN,COLUMN ...
//
// Reads tables of a Jet database and writes them to standard output (row_stream.h), for the program that started it.
// The library that knows the format trusts the file; so it runs here, where a crash, an endless loop or a hunger for
// memory (MEMORY bytes beside the file's content, SECONDS of processor time) ends this process and no other.
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "common/text_number.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "platform/jet/mdb_tables.h"
#include "platform/jet/row_stream.h"

namespace {

using triaxlab::jet::AskedTable;

/// The format knows pages of up to 2 GB.
constexpr std::uint64_t kLargestDatabase = std::uint64_t{2} << 30;

void limit(decltype(RLIMIT_CPU) resource, rlim_t value) {
  const rlimit both{value, value};
  setrlimit(resource, &both);
}

void limitResources([[maybe_unused]] rlim_t memoryBytes, rlim_t seconds) {
  limit(RLIMIT_CPU, seconds);
  limit(RLIMIT_CORE, 0);
  limit(RLIMIT_FSIZE, 0);
#ifndef TRIAXLAB_SANITIZED  // the sanitizers reserve more addresses than any machine has memory
  limit(RLIMIT_AS, memoryBytes);
#endif
}

/// The texts of the stream are UTF-8 whatever the desktop has set. The code page of older files stays a matter of the
/// file or of MDB_JET3_CHARSET.
void forgetSettings() {
  for (const char* const variable : {"MDBICONV", "MDB_ICONV", "MDBOPTS", "MDBPATH"}) unsetenv(variable);
}

/// The library's words go nowhere; the stream has the old standard output for itself.
int takeStandardOutput() {
  const int stream = dup(STDOUT_FILENO);
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(nowhere, STDOUT_FILENO);
  return stream;
}

bool writeAll(int stream, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(stream, bytes.data(), bytes.size());
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

AskedTable tableOf(std::string_view argument) {
  const std::size_t equals = argument.find('=');
  AskedTable table{std::string(argument.substr(0, equals)), {}};
  for (std::string_view rest = argument.substr(equals + 1); !rest.empty();) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    table.columns.emplace_back(rest.substr(0, comma));
    rest.remove_prefix(std::min(comma + 1, rest.size()));
  }
  return table;
}

int run(const std::vector<std::string_view>& arguments) {
  constexpr std::size_t kFirstTable = 3;
  if (arguments.size() < kFirstTable) return 2;
  std::vector<AskedTable> tables;
  for (std::size_t i = kFirstTable; i < arguments.size(); ++i) {
    if (arguments[i].find('=') == std::string_view::npos) return 2;
    tables.push_back(tableOf(arguments[i]));
  }
  forgetSettings();
  const int stream = takeStandardOutput();
  triaxlab::jet::StreamWriter answer;
  const auto answerInstead = [&answer](char mark, const std::exception& why) {
    answer.bytes().clear();
    answer.mark(mark);
    answer.text(why.what());
  };
  try {
    triaxlab::Bytes content = triaxlab::readWholeFile(arguments[0], kLargestDatabase);
    limitResources(static_cast<rlim_t>(triaxlab::ParseNumber(arguments[1])) + content.size(),
                   static_cast<rlim_t>(triaxlab::ParseNumber(arguments[2])));
    readTables(content, tables, answer);
  } catch (const triaxlab::jet::Refusal& refusal) {
    answerInstead(triaxlab::jet::kRefusalMark, refusal);
  } catch (const triaxlab::UserError& failure) {
    answerInstead(triaxlab::jet::kFailureMark, failure);
  }
  return writeAll(stream, answer.bytes()) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  int status = 1;
  try {
    status = run({std::next(argv), std::next(argv, argc)});
  } catch (const std::exception&) {  // no memory, for one; the starter says what a status other than 0 means
  }
  // What the library still holds of a damaged file isn't worth the risk of giving it back.
  std::_Exit(status);
}
