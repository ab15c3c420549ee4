#include <fmt/format.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "format_pages.h"
#include "page.h"
#include "store/settings/text_keys.h"

namespace triaxlab::formats {
namespace {

std::string shownKey(const TextKey& key) {
  const bool isSlot = std::holds_alternative<SlotValue>(key.value);
  return fmt::format("`{}{}`", key.key, isSlot ? "文字]" : "");
}

std::string shownDefault(const TextKey& key) {
  if (std::holds_alternative<FlagValue>(key.value)) return "关";
  const std::string usual = defaultOf(key);
  return usual.empty() ? "空" : usual;
}

std::string shownLimits(const TextKey& key) {
  const auto limits = limitsOf(key);
  return limits ? fmt::format("{} 至 {}", limits->least, limits->most) : "";
}

void addFile(Page& page, const TextFile& file) {
  page.heading(fmt::format("`{}`：{}", file.name, file.subject));
  page.text(fmt::format("\n{}读。\n", file.isRead));
  std::vector<std::vector<std::string>> rows;
  for (const TextKey& key : file.keys)
    rows.push_back({shownKey(key), shownDefault(key), shownLimits(key), meaningOf(key)});
  page.table(std::array<std::string_view, 4>{"关键字", "默认", "范围", "作用"}, rows);
}

}  // namespace

std::string habitsPage() {
  Page page("实验室习惯的关键字");
  page.text(R"(
四个文本文件里的全部关键字。它们在菜单 设置 → 实验室习惯 里可以直接改，写法见[设置](settings.md)。
)");
  for (const TextFile* const file : textFiles()) addFile(page, *file);
  return page.markdown();
}

}  // namespace triaxlab::formats
