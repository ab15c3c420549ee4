#include "windows/instance_lock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileSystemWatcher>
#include <QStandardPaths>
#include <utility>

#include "common/user_error.h"
#include "platform/files.h"

namespace triaxlab {
namespace {

/// The application folder may be write-protected or shared between users, so the lock lies in the user's own runtime
/// folder, named for the application folder.
std::filesystem::path lockFile(const std::filesystem::path& applicationFolder) {
  std::error_code failed;
  const std::filesystem::path canonical = std::filesystem::weakly_canonical(applicationFolder, failed);
  const std::string folder = textOfPath(failed ? applicationFolder : canonical);
  const QByteArray name = QCryptographicHash::hash(QByteArray::fromStdString(folder), QCryptographicHash::Sha1).toHex();
  return pathFromText(QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation))
                          .filePath("triaxlab-" + QString::fromLatin1(name) + ".lock")
                          .toStdString());
}

}  // namespace

InstanceLock::InstanceLock(const std::filesystem::path& applicationFolder) : m_file(lockFile(applicationFolder)) {}

InstanceLock::~InstanceLock() = default;

/// Beside the lock. Each call changes it; what it holds says nothing.
QString InstanceLock::callFile() const { return QString::fromStdString(textOfPath(m_file)) + ".call"; }

void InstanceLock::call() const {
  QFile file(callFile());
  // Where there is none, nobody listens.
  if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly)) file.write("\n");
}

void InstanceLock::setCalled(std::function<void()> called) {
  QFile(callFile()).open(QIODevice::WriteOnly | QIODevice::Truncate);
  m_calls = std::make_unique<QFileSystemWatcher>(QStringList{callFile()});
  QObject::connect(m_calls.get(), &QFileSystemWatcher::fileChanged, m_calls.get(), std::move(called));
}

bool InstanceLock::take() {
  try {
    // Made when it is missing, and closed at once: a file of this process that is closed later takes its lock along.
    File(m_file, File::Mode::Shared);  // NOLINT(bugprone-unused-raii)
    m_lock = FileLock::take(m_file, FileLock::Clock::now());
    return m_lock.has_value();
  } catch (const UserError&) {
    return true;
  }
}

}  // namespace triaxlab
