// Runs a fuzz target without libFuzzer: every file of a corpus folder, then mutations of them for a few seconds. The
// mutations are the same in every run, so what fails once fails again; the input that was running is left in a file.
//
//   fuzz_NAME CORPUS_FOLDER    the test
//   fuzz_NAME FILE...          these inputs alone, to look into a failure
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
// Read by the sanitizers when they are linked in: end by SIGABRT, which is caught below.
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizers give the names
extern "C" const char* __asan_default_options() { return "abort_on_error=1"; }
extern "C" const char* __ubsan_default_options() { return "abort_on_error=1:print_stacktrace=1"; }
// NOLINTEND(bugprone-reserved-identifier)

#ifdef __SANITIZE_ADDRESS__
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

namespace {

using Input = std::vector<std::uint8_t>;
using Clock = std::chrono::steady_clock;

constexpr auto kTimeForMutations = std::chrono::seconds(2);
constexpr int kMostMutations = 20000;
constexpr auto kPatience = std::chrono::seconds(10);  // with one input; a reader that takes longer has lost its way
constexpr rlim_t kMostMemory = rlim_t{3} << 30;       // a count taken from a file unchecked ends here
constexpr const char* kFailedInput = "failed-input";

const Input* g_running = nullptr;  // what the target is looking at, for the moment at which it dies

extern "C" void keepRunningInput() {
  if (g_running == nullptr) return;
  const int file = open(kFailedInput, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) return;
  if (write(file, g_running->data(), g_running->size()) >= 0) {
    constexpr char kSentence[] = "The input that failed is in the file failed-input of this folder.\n";
    if (write(STDERR_FILENO, kSentence, sizeof kSentence - 1) < 0) return;
  }
  close(file);
}

extern "C" void onSignal(int signal) {
  keepRunningInput();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void watchForDeath() {
  std::signal(SIGABRT, onSignal);
  if (kSanitized) return;  // it reports the other signals itself, and maps terabytes of shadow: no limit of memory
  for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) std::signal(signal, onSignal);
  const rlimit limit{kMostMemory, kMostMemory};
  setrlimit(RLIMIT_AS, &limit);
}

void run(const Input& input) {
  // A copy of exactly this size lets the sanitizer see a read just behind the end.
  const Input exact(input);
  g_running = &exact;
  const auto start = Clock::now();
  LLVMFuzzerTestOneInput(exact.data(), exact.size());
  if (Clock::now() - start > kPatience) {
    std::fputs("One input took too long.\n", stderr);
    std::abort();
  }
  g_running = nullptr;
}

Input readInput(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    std::fprintf(stderr, "%s can't be read.\n", path.c_str());
    std::exit(2);
  }
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& argument) {
  if (!std::filesystem::is_directory(argument)) return {argument};
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(argument))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());  // folders list in no order, and the mutations depend on it
  return files;
}

/// Damages inputs as files get damaged: cut, a byte changed, a length or count made absurd, a piece lost, repeated or
/// taken from elsewhere.
class Mutator {
 public:
  explicit Mutator(const std::vector<Input>& corpus) : m_corpus(corpus) {}

  Input next() {
    Input input = m_corpus[below(m_corpus.size())];
    for (std::size_t changes = 1 + below(4); changes > 0; --changes) change(input);
    return input;
  }

 private:
  using Change = void (Mutator::*)(Input&);

  std::size_t below(std::size_t limit) { return static_cast<std::size_t>(m_random() % limit); }

  void change(Input& input) {
    static constexpr std::array<Change, 7> kChanges{&Mutator::cut,       &Mutator::setByte, &Mutator::flipBit,
                                                    &Mutator::setScalar, &Mutator::lose,    &Mutator::repeat,
                                                    &Mutator::splice};
    if (input.empty())
      input.push_back(static_cast<std::uint8_t>(m_random()));
    else
      (this->*kChanges[below(kChanges.size())])(input);
  }

  void cut(Input& input) { input.resize(below(input.size())); }
  void setByte(Input& input) { input[below(input.size())] = static_cast<std::uint8_t>(m_random()); }
  void flipBit(Input& input) { input[below(input.size())] ^= static_cast<std::uint8_t>(1U << below(8)); }

  /// A little-endian number at the edge of its type, where counts and offsets stand.
  void setScalar(Input& input) {
    static constexpr std::array<std::uint32_t, 8> kEdges{0,      1,        0x7FFF,     0x8000,
                                                         0xFFFF, 0xFFFFFF, 0x7FFFFFFF, 0xFFFFFFFF};
    const std::uint32_t value = kEdges[below(kEdges.size())];
    const std::size_t at = below(input.size()), width = std::size_t{1} << below(3);
    for (std::size_t i = 0; i < width && at + i < input.size(); ++i)
      input[at + i] = static_cast<std::uint8_t>(value >> 8 * i);
  }

  void lose(Input& input) {
    const auto from = below(input.size()), size = 1 + below(input.size() - from);
    const auto begin = input.begin() + static_cast<std::ptrdiff_t>(from);
    input.erase(begin, begin + static_cast<std::ptrdiff_t>(size));
  }

  void repeat(Input& input) { insertPiece(input, Input(input)); }
  void splice(Input& input) { insertPiece(input, m_corpus[below(m_corpus.size())]); }

  void insertPiece(Input& input, const Input& from) {
    if (from.empty()) return;
    const auto begin = below(from.size()), size = 1 + below(std::min<std::size_t>(from.size() - begin, 4096));
    const auto first = from.begin() + static_cast<std::ptrdiff_t>(begin);
    input.insert(input.begin() + static_cast<std::ptrdiff_t>(below(input.size())), first,
                 first + static_cast<std::ptrdiff_t>(size));
  }

  const std::vector<Input>& m_corpus;
  std::mt19937_64 m_random{20240601};  // NOLINT(cert-msc51-cpp): the same mutations in every run
};

int runMutations(const std::vector<Input>& corpus) {
  Mutator mutator(corpus);
  const auto end = Clock::now() + kTimeForMutations;
  int runs = 0;
  while (runs < kMostMutations && Clock::now() < end) {
    run(mutator.next());
    ++runs;
  }
  return runs;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) {
    std::fprintf(stderr, "usage: %s CORPUS_FOLDER | FILE...\n", arguments[0]);
    return 2;
  }
  watchForDeath();
  std::vector<Input> corpus{Input{}};  // the empty file is always tried
  for (int i = 1; i < count; ++i)
    for (const auto& file : filesOf(arguments[i])) corpus.push_back(readInput(file));
  for (const Input& input : corpus) run(input);
  const bool whole = std::filesystem::is_directory(arguments[1]);
  if (whole && corpus.size() == 1) {
    std::fprintf(stderr, "%s holds no inputs.\n", arguments[1]);
    return 2;
  }
  std::printf("%zu inputs, %d mutations\n", corpus.size(), whole ? runMutations(corpus) : 0);
  return 0;
}
