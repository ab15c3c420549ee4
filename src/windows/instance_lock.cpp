#include "windows/instance_lock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QStandardPaths>

#include "platform/files.h"

namespace triaxlab {
namespace {

/// The application folder may be write-protected or shared between users, so the lock lies in the user's own runtime
/// folder, named for the application folder.
QString lockFile(const std::filesystem::path& applicationFolder) {
  std::error_code failed;
  const std::filesystem::path canonical = std::filesystem::weakly_canonical(applicationFolder, failed);
  const std::string folder = textOfPath(failed ? applicationFolder : canonical);
  const QByteArray name = QCryptographicHash::hash(QByteArray::fromStdString(folder), QCryptographicHash::Sha1).toHex();
  return QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation))
      .filePath("triaxlab-" + QString::fromLatin1(name) + ".lock");
}

}  // namespace

InstanceLock::InstanceLock(const std::filesystem::path& applicationFolder) : m_lock(lockFile(applicationFolder)) {
  // However long the program has been running, it is not stale.
  m_lock.setStaleLockTime(0);
}

}  // namespace triaxlab
