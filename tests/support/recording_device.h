#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/page_devices.h"
#include "support/drawings.h"

namespace triaxlab::testing {

/// Pages as they were drawn.
class RecordingDevice : public PageDevice {
 public:
  struct Page {
    PageSize size;
    Drawing drawing;
    std::vector<std::string> bookmarks;
  };

  DrawingSurface& beginPage(PageSize size) override {
    m_surface.clear();
    m_bookmarks.clear();
    m_size = size;
    return m_surface;
  }
  void bookmark(std::string_view title) override { m_bookmarks.emplace_back(title); }
  void endPage() override { pages.push_back({m_size, m_surface.operations(), m_bookmarks}); }
  void finish() override { ++finished; }
  void stop() override { ++stopped; }

  std::vector<Page> pages;
  int finished = 0, stopped = 0;

 private:
  RecordingSurface m_surface;
  std::vector<std::string> m_bookmarks;
  PageSize m_size;
};

/// Notes where pages are sent; all of them come to `sent`.
class FakePageDevices : public PageDevices {
 public:
  bool printerIsThere = false;
  bool printerHasPaper = true;
  std::vector<std::string> asked;
  PrinterJob printerJob{};
  RecordingDevice sent;

  Printers printers() const override {
    if (!printerIsThere) return {};
    return {.names = {"Lab", "Office"}, .usual = "Lab"};
  }
  std::unique_ptr<PageDevice> printer(PrinterJob job, Dialogs& dialogs) override {
    asked.push_back("printer " + std::string(job.name));
    printerJob = job;
    printerJob.name = {};  // which may not outlive the call
    if (!printerHasPaper && !dialogs.ask("打印", "?", MessageIcon::Exclamation)) return nullptr;
    return std::make_unique<Forwarded>(sent);
  }
  std::unique_ptr<PageDevice> pdf(const std::filesystem::path& file, const DocumentInfo& /*information*/) override {
    asked.push_back("pdf " + file.string());
    return std::make_unique<Forwarded>(sent);
  }
  std::unique_ptr<PageDevice> pictures(const std::filesystem::path& folder, std::string_view prefix) override {
    asked.push_back("pictures " + folder.string() + " " + std::string(prefix));
    return std::make_unique<Forwarded>(sent);
  }

 private:
  /// The caller's own, while the pages outlive it.
  class Forwarded : public PageDevice {
   public:
    explicit Forwarded(RecordingDevice& target) : m_target(target) {}
    DrawingSurface& beginPage(PageSize size) override { return m_target.beginPage(size); }
    void endPage() override { m_target.endPage(); }
    void finish() override { m_target.finish(); }
    void stop() override { m_target.stop(); }

   private:
    RecordingDevice& m_target;
  };
};

}  // namespace triaxlab::testing
