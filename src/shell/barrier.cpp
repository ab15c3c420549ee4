#include "shell/barrier.h"

#include <fmt/core.h>

#include <utility>

#include "platform/files.h"
#include "sessions/dialogs/error_display.h"

namespace triaxlab {

void Barrier::caught(Occasion occasion) noexcept try {
  // Throwing out of a box, or out of what it lays bare, has nobody to tell but the report.
  const bool tellsAlready = std::exchange(m_telling, true);
  try {
    throw;
  } catch (const UserError& error) {
    if (!tellsAlready) showError(m_dialogs, error);
  } catch (...) {
    meet(thrownText(), occasion, tellsAlready);
  }
  m_telling = tellsAlready;
} catch (...) {
  m_telling = false;
}

void Barrier::meet(const std::string& thrown, Occasion occasion, bool tellsAlready) {
  // What comes by itself is told once for each command.
  const std::string met = fmt::format("{} {}", m_log.commandCount(), thrown);
  if (std::exchange(m_met, met) == met && occasion == Occasion::Itself) return;
  const bool isWritten = m_log.write(thrown);
  if (tellsAlready) return;
  tell(thrown, isWritten);
  if (m_shell.hasDocument() && m_dialogs.ask(kProgramTitle, "现在保存数据吗？", MessageIcon::Exclamation)) save();
}

void Barrier::tell(const std::string& thrown, bool isWritten) {
  const std::string report = isWritten ? fmt::format("，已记入文件 {}", textOfPath(m_log.file())) : "";
  m_dialogs.message(kProgramTitle,
                    fmt::format("程序出现意外的错误（{}），刚才的操作没有完成，数据没有丢失{}。", thrown, report),
                    MessageIcon::Stop);
}

void Barrier::save() try { m_shell.save(); } catch (...) {
  const std::string thrown = thrownText();
  m_log.write(thrown);
  m_dialogs.message(kProgramTitle, fmt::format("保存没有完成（{}），数据还在程序里。", thrown), MessageIcon::Stop);
}

}  // namespace triaxlab
