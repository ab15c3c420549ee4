#include "shell/barrier.h"

#include <fmt/core.h>

#include <utility>

#include "platform/files.h"
#include "sessions/dialogs/error_display.h"

namespace triaxlab {

void Barrier::caught() noexcept try {
  // Throwing out of a box, or out of what it lays bare, has nobody to tell but the report.
  const bool tellsAlready = std::exchange(m_telling, true);
  try {
    throw;
  } catch (const UserError& error) {
    if (!tellsAlready) showError(m_dialogs, error);
  } catch (...) {
    const std::string thrown = thrownText();
    const bool isWritten = m_log.write(thrown);
    // A window that can't be drawn throws at each attempt; it is told once for each command.
    const std::string occasion = fmt::format("{} {}", m_log.commandCount(), thrown);
    if (!tellsAlready && std::exchange(m_told, occasion) != occasion) tell(thrown, isWritten);
  }
  m_telling = tellsAlready;
} catch (...) {
  m_telling = false;
}

void Barrier::tell(const std::string& thrown, bool isWritten) {
  const std::string report = isWritten ? fmt::format("，已记入文件 {}", textOfPath(m_log.file())) : "";
  m_dialogs.message(kProgramTitle,
                    fmt::format("程序出现意外的错误（{}），刚才的操作没有完成，数据没有丢失{}。", thrown, report),
                    MessageIcon::Stop);
  if (m_dialogs.ask(kProgramTitle, "现在保存数据吗？", MessageIcon::Exclamation)) m_shell.save();
}

}  // namespace triaxlab
