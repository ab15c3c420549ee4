// Loaded in front of the C library: counts the calls by which a program changes what is on a disk, or those by which it
// looks at it, and lets one of them go wrong. It is told what to do by the environment:
//
//   FAILING_SIDE   looks     counts and stops the calls that open, read, list, ask for a state or a lock; without it
//                            those that change something
//   FAILING_CALL   number of the call, from 1
//   FAILING_WAY    kill      the process dies before the call
//                  tear      a write does half of its work, then the process dies; other calls as kill
//                  ENOSPC    the call fails once, as on a full disk
//                  EIO, EMFILE, EACCES, ESTALE, ENOMEM   the call fails once with this error
//   FAILING_PROGRAM  the name of the program that is meant, where one starts another; without it both
//   FAILING_FROM   there: every call from that one on fails, as on a disk that is gone for good
//   FLOCK_IS_LOCAL there: flock keeps nobody out, as on a share that doesn't pass it on to other machines
//   CALL_COUNT     a file that gets the number of calls, as the bytes of a long
//
// What the calls themselves do stays with the C library.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/vfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

enum class Way { None, Kill, Tear, Fail };
enum class Side { Changes, Looks };

struct Order {
  long call = 0;
  Way way = Way::None;
  Side side = Side::Changes;
  int error = 0;
  bool failsFromThereOn = false;
  bool flockIsLocal = false;
  const char* countFile = nullptr;
};

int errorOf(std::string_view name) {
  struct Named {
    std::string_view name;
    int error;
  };
  for (const Named& known : {Named{"EIO", EIO}, Named{"EMFILE", EMFILE}, Named{"EACCES", EACCES},
                             Named{"ESTALE", ESTALE}, Named{"ENOMEM", ENOMEM}})
    if (known.name == name) return known.error;
  return ENOSPC;
}

Order orderOfEnvironment() {
  Order order;
  const char* const program = std::getenv("FAILING_PROGRAM");
  if (program != nullptr && program != std::string_view(program_invocation_short_name)) return order;
  order.countFile = std::getenv("CALL_COUNT");
  order.failsFromThereOn = std::getenv("FAILING_FROM") != nullptr;
  order.flockIsLocal = std::getenv("FLOCK_IS_LOCAL") != nullptr;
  if (std::getenv("FAILING_SIDE") != nullptr) order.side = Side::Looks;
  const char* const call = std::getenv("FAILING_CALL");
  const char* const wayText = std::getenv("FAILING_WAY");
  if (call == nullptr || wayText == nullptr) return order;
  order.call = std::atol(call);
  const std::string_view way = wayText;
  order.way = way == "kill" ? Way::Kill : way == "tear" ? Way::Tear : Way::Fail;
  order.error = errorOf(way);
  return order;
}

const Order& order() {
  static const Order read = orderOfEnvironment();
  return read;
}

/// The file that gets the count is mapped: a program that may write no file is counted as well, and however it ends.
long* mappedCounter() {
  static long uncounted = 0;
  const long file = order().countFile == nullptr
                        ? -1
                        : syscall(SYS_openat, AT_FDCWD, order().countFile, O_RDWR | O_CREAT | O_TRUNC, 0666);
  if (file < 0) return &uncounted;
  syscall(SYS_ftruncate, file, sizeof(long));
  void* const place = mmap(nullptr, sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED, static_cast<int>(file), 0);
  syscall(SYS_close, file);
  return static_cast<long*>(place);
}

long& calls() {
  static long* const counter = mappedCounter();
  return *counter;
}
// Before the program limits what it may do.
[[maybe_unused]] const long g_callsAtStart = calls();

void die() { syscall(SYS_kill, getpid(), SIGKILL); }

/// Counts a call. True when it is to fail, with errno set; a call that is to kill doesn't return. `tear` does the half
/// of a write.
template <class Tear>
bool goesWrong(Tear tear, Side side = Side::Changes) {
  if (side != order().side) return false;
  ++calls();
  if (order().failsFromThereOn ? calls() < order().call : calls() != order().call) return false;
  if (order().way == Way::Tear) tear();
  if (order().way == Way::Tear || order().way == Way::Kill) die();
  errno = order().error;
  return order().way == Way::Fail;
}
bool goesWrong(Side side = Side::Changes) {
  return goesWrong([] {}, side);
}

/// The C library's function of that name.
template <class Function>
Function* original(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

Side sideOfOpen(int flags) { return (flags & (O_CREAT | O_TRUNC)) != 0 ? Side::Changes : Side::Looks; }

}  // namespace

// The wrapped calls. A function with two names has one body.
#define WRAP(name, parameters, arguments)                \
  extern "C" int name parameters {                       \
    using Function = int parameters;                     \
    static auto* const next = original<Function>(#name); \
    return goesWrong() ? -1 : next arguments;            \
  }

WRAP(fsync, (int file), (file))
WRAP(fdatasync, (int file), (file))
WRAP(ftruncate, (int file, off_t size), (file, size))
WRAP(ftruncate64, (int file, off64_t size), (file, size))
WRAP(fallocate, (int file, int mode, off_t offset, off_t size), (file, mode, offset, size))
WRAP(rename, (const char* from, const char* to), (from, to))
WRAP(renameat, (int fromFolder, const char* from, int toFolder, const char* to), (fromFolder, from, toFolder, to))
WRAP(renameat2, (int fromFolder, const char* from, int toFolder, const char* to, unsigned flags),
     (fromFolder, from, toFolder, to, flags))
WRAP(unlink, (const char* path), (path))
WRAP(unlinkat, (int folder, const char* path, int flags), (folder, path, flags))
WRAP(mkdir, (const char* path, mode_t mode), (path, mode))

extern "C" ssize_t copy_file_range(int in, off64_t* inAt, int out, off64_t* outAt, size_t size, unsigned flags) {
  static auto* const next = original<ssize_t(int, off64_t*, int, off64_t*, size_t, unsigned)>("copy_file_range");
  return goesWrong() ? -1 : next(in, inAt, out, outAt, size, flags);
}

extern "C" ssize_t write(int file, const void* bytes, size_t size) {
  static auto* const next = original<ssize_t(int, const void*, size_t)>("write");
  return goesWrong([&] { next(file, bytes, size / 2); }) ? -1 : next(file, bytes, size);
}

extern "C" ssize_t pwrite(int file, const void* bytes, size_t size, off_t offset) {
  static auto* const next = original<ssize_t(int, const void*, size_t, off_t)>("pwrite");
  return goesWrong([&] { next(file, bytes, size / 2, offset); }) ? -1 : next(file, bytes, size, offset);
}

extern "C" ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
  static auto* const next = original<ssize_t(int, const void*, size_t, off64_t)>("pwrite64");
  return goesWrong([&] { next(file, bytes, size / 2, offset); }) ? -1 : next(file, bytes, size, offset);
}

extern "C" ssize_t writev(int file, const iovec* parts, int count) {
  static auto* const next = original<ssize_t(int, const iovec*, int)>("writev");
  return goesWrong([&] { next(file, parts, count / 2); }) ? -1 : next(file, parts, count);
}

extern "C" ssize_t pwritev(int file, const iovec* parts, int count, off_t offset) {
  static auto* const next = original<ssize_t(int, const iovec*, int, off_t)>("pwritev");
  return goesWrong([&] { next(file, parts, count / 2, offset); }) ? -1 : next(file, parts, count, offset);
}

// The calls that look.
#define WRAP_LOOK(name, parameters, arguments)           \
  extern "C" int name parameters {                       \
    using Function = int parameters;                     \
    static auto* const next = original<Function>(#name); \
    return goesWrong(Side::Looks) ? -1 : next arguments; \
  }

WRAP_LOOK(stat, (const char* path, struct stat* status), (path, status))
WRAP_LOOK(lstat, (const char* path, struct stat* status), (path, status))
WRAP_LOOK(fstat, (int file, struct stat* status), (file, status))
WRAP_LOOK(fstatat, (int folder, const char* path, struct stat* status, int flags), (folder, path, status, flags))
WRAP_LOOK(statvfs, (const char* path, struct statvfs* status), (path, status))
WRAP_LOOK(fstatfs, (int file, struct statfs* status), (file, status))
WRAP_LOOK(faccessat, (int folder, const char* path, int mode, int flags), (folder, path, mode, flags))

extern "C" int flock(int file, int operation) {
  static auto* const next = original<int(int, int)>("flock");
  if (order().flockIsLocal) return 0;
  return goesWrong(Side::Looks) ? -1 : next(file, operation);
}

extern "C" int fcntl(int file, int command, ...) {
  va_list more;
  va_start(more, command);
  void* const argument = va_arg(more, void*);
  va_end(more);
  static auto* const next = original<int(int, int, ...)>("fcntl");
  return goesWrong(Side::Looks) ? -1 : next(file, command, argument);
}

WRAP_LOOK(pipe2, (int ends[2], int flags), (ends, flags))
WRAP_LOOK(poll, (pollfd * files, nfds_t count, int milliseconds), (files, count, milliseconds))
WRAP_LOOK(waitpid, (pid_t child, int* status, int options), (child, status, options))

extern "C" int posix_spawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* actions,
                           const posix_spawnattr_t* attributes, char* const* arguments, char* const* environment) {
  static auto* const next = original<decltype(posix_spawn)>("posix_spawn");
  return goesWrong(Side::Looks) ? errno : next(child, path, actions, attributes, arguments, environment);
}

extern "C" ssize_t read(int file, void* bytes, size_t size) {
  static auto* const next = original<ssize_t(int, void*, size_t)>("read");
  return goesWrong(Side::Looks) ? -1 : next(file, bytes, size);
}

extern "C" FILE* fopen(const char* path, const char* mode) {
  static auto* const next = original<FILE*(const char*, const char*)>("fopen");
  return goesWrong(Side::Looks) ? nullptr : next(path, mode);
}

// Streams over memory don't look at a disk.
extern "C" size_t fread(void* bytes, size_t size, size_t count, FILE* file) {
  static auto* const next = original<size_t(void*, size_t, size_t, FILE*)>("fread");
  return fileno(file) >= 0 && goesWrong(Side::Looks) ? 0 : next(bytes, size, count, file);
}

extern "C" int fseeko(FILE* file, off_t offset, int from) {
  static auto* const next = original<int(FILE*, off_t, int)>("fseeko");
  return fileno(file) >= 0 && goesWrong(Side::Looks) ? -1 : next(file, offset, from);
}

extern "C" ssize_t pread(int file, void* bytes, size_t size, off_t offset) {
  static auto* const next = original<ssize_t(int, void*, size_t, off_t)>("pread");
  return goesWrong(Side::Looks) ? -1 : next(file, bytes, size, offset);
}

extern "C" DIR* opendir(const char* path) {
  static auto* const next = original<DIR*(const char*)>("opendir");
  return goesWrong(Side::Looks) ? nullptr : next(path);
}

extern "C" dirent* readdir(DIR* folder) {
  static auto* const next = original<dirent*(DIR*)>("readdir");
  return goesWrong(Side::Looks) ? nullptr : next(folder);
}

// An open changes something when it may make or empty a file.
#define WRAP_OPEN(name)                                                    \
  extern "C" int name(const char* path, int flags, ...) {                  \
    mode_t mode = 0;                                                       \
    if ((flags & (O_CREAT | O_TMPFILE)) != 0) {                            \
      va_list more;                                                        \
      va_start(more, flags);                                               \
      mode = va_arg(more, mode_t);                                         \
      va_end(more);                                                        \
    }                                                                      \
    static auto* const next = original<int(const char*, int, ...)>(#name); \
    if (goesWrong(sideOfOpen(flags))) return -1;                           \
    return next(path, flags, mode);                                        \
  }

WRAP_OPEN(open)
WRAP_OPEN(open64)

extern "C" int openat(int folder, const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & (O_CREAT | O_TMPFILE)) != 0) {
    va_list more;
    va_start(more, flags);
    mode = va_arg(more, mode_t);
    va_end(more);
  }
  static auto* const next = original<int(int, const char*, int, ...)>("openat");
  return goesWrong(sideOfOpen(flags)) ? -1 : next(folder, path, flags, mode);
}
