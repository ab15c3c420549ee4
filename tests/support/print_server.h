#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fmt/format.h>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "support/temporary_folder.h"

namespace triaxlab::testing {

/// A print server of the test's own, reached through a socket in its folder, whose queues keep what they are sent
/// instead of printing it. Needs the packages cups-daemon and cups-client.
class PrintServer {
 public:
  static bool isInstalled() { return access(kServer, X_OK) == 0 && access(kAdmin, X_OK) == 0; }

  PrintServer() {
    // The server looks into the folder under another name than root's.
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms(0755));
    for (const char* const folder :
         {"lib/backend", "lib/daemon", "lib/filter", "lib/notifier", "spool/tmp", "cache", "state", "jobs"})
      std::filesystem::create_directories(m_folder / folder);
    std::filesystem::create_symlink("/usr/lib/cups/daemon/cups-exec", m_folder / "lib/daemon/cups-exec");
    writeBackend();
    writeSettings();
    setenv("CUPS_SERVER", address().c_str(), 1);
    start();
  }
  PrintServer(const PrintServer&) = delete;
  PrintServer& operator=(const PrintServer&) = delete;
  ~PrintServer() {
    kill(m_server, SIGTERM);
    waitpid(m_server, nullptr, 0);
  }

  /// For CUPS_SERVER of other programs; this one's is set.
  std::string address() const { return m_folder / "socket"; }

  struct Paper {
    std::string_view name;
    int width, height;  // points
  };
  /// What a printer can do beside printing on A4.
  struct Queue {
    std::vector<Paper> morePapers = {};
    Paper largestOfAnySize = {};  // none: it takes the named papers alone
    bool hasMargins = true;       // of 12 points, 20 at the bottom, that it can't print on
  };
  /// Whoever asks for no printer of its own gets the queue that was added last.
  void addDefaultQueue(const std::string& name, const Queue& queue) {
    const std::string description = m_folder.write(name + ".ppd", queueDescription(queue));
    run(fmt::format("{} -p {} -E -v capture:/x -P '{}'", kAdmin, name, description));
    run(fmt::format("{} -d {}", kAdmin, name));
  }
  void addDefaultQueue(const std::string& name) { addDefaultQueue(name, Queue{}); }

  void stopQueue(const std::string& name) { run("cupsdisable " + name); }
  void takeNoMoreJobsInto(const std::string& name) { run("cupsreject " + name); }
  void keepForOthers(const std::string& name) {
    run(fmt::format("{} -p {} -o printer-op-policy=others", kAdmin, name));
  }
  void remove(const std::string& name) { run(fmt::format("{} -x {}", kAdmin, name)); }

  struct Job {
    std::string options, pages;  // what the queue was asked for; the file of a PDF
  };
  /// The next job that a queue was sent; nothing when none comes within a few seconds.
  std::optional<Job> nextJob() {
    ++m_jobs;
    const std::string number = std::to_string(m_jobs), done = "jobs/done-" + number;
    if (!waitFor([&] { return std::filesystem::exists(m_folder / done); })) return std::nullopt;
    return Job{m_folder.read("jobs/options-" + number), (m_folder / ("jobs/pages-" + number)).string()};
  }
  bool hasMoreJobs() const {
    return std::filesystem::exists(m_folder / ("spool/d" + fmt::format("{:05}-001", m_jobs + 1)));
  }

 private:
  static constexpr const char* kServer = "/usr/sbin/cupsd";
  static constexpr const char* kAdmin = "/usr/sbin/lpadmin";

  static void run(const std::string& command) {
    if (std::system((command + " >/dev/null 2>&1").c_str()) != 0) ADD_FAILURE() << command;
  }

  void writeBackend() const {
    const auto backend =
        m_folder.write("lib/backend/capture",
                       fmt::format("#!/bin/sh\n"
                                   "[ $# -gt 0 ] || {{ echo 'direct capture \"Unknown\" \"Capture\"'; exit 0; }}\n"
                                   "cd '{}' && echo \"queue=$PRINTER title=$3 copies=$4 $5\" > options-$1 && cat "
                                   "\"${{6:--}}\" > pages-$1 && : > done-$1\n",
                                   (m_folder / "jobs").string()));
    // What others may run the server runs under another name, which can't write here.
    std::filesystem::permissions(backend, std::filesystem::perms(0700));
  }
  void writeSettings() const {
    m_folder.write("cupsd.conf", "Listen " + address() +
                                     "\nBrowsing No\nWebInterface No\nDefaultAuthType None\n"
                                     "<Location />\nAllow all\n</Location>\n"
                                     "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n"
                                     "<Policy others>\n<Limit Create-Job>\nAuthType Basic\nRequire user nobody\n"
                                     "</Limit>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n");
    const std::string here = m_folder.path();
    m_folder.write("cups-files.conf",
                   fmt::format("ServerRoot {0}\nServerBin {0}/lib\nRequestRoot {0}/spool\nTempDir {0}/spool/tmp\n"
                               "CacheDir {0}/cache\nStateDir {0}/state\nAccessLog {0}/access\nErrorLog {0}/error\n"
                               "PageLog {0}/page\n",
                               here));
  }
  void start() {
    const std::string settings = m_folder / "cupsd.conf", files = m_folder / "cups-files.conf";
    m_server = fork();
    if (m_server == 0) {
      // Whoever reads the test's output would else wait for the server.
      const int nothing = open("/dev/null", O_RDWR);
      for (const int descriptor : {0, 1, 2}) dup2(nothing, descriptor);
      execl(kServer, kServer, "-f", "-c", settings.c_str(), "-s", files.c_str(), static_cast<char*>(nullptr));
      _exit(1);
    }
    EXPECT_TRUE(waitFor([&] { return std::filesystem::exists(address()); })) << "the print server doesn't start";
  }
  template <class Condition>
  static bool waitFor(Condition&& holds) {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (!holds()) {
      if (std::chrono::steady_clock::now() > end) return false;
      std::this_thread::sleep_for(20ms);
    }
    return true;
  }

  static std::string queueDescription(const Queue& queue) {
    std::vector<Paper> papers = queue.morePapers;
    papers.insert(papers.begin(), {"A4", 595, 842});
    std::string text =
        "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
        "*LanguageEncoding: ISOLatin1\n*PCFileName: \"LAB.PPD\"\n*Manufacturer: \"Lab\"\n*Product: \"(Lab)\"\n"
        "*ModelName: \"Lab\"\n*ShortNickName: \"Lab\"\n*NickName: \"Lab\"\n*PSVersion: \"(3010.000) 0\"\n"
        "*LanguageLevel: \"3\"\n*ColorDevice: False\n*cupsVersion: 2.4\n"
        "*cupsFilter2: \"application/pdf application/pdf 0 -\"\n";
    for (const char* const option : {"PageSize", "PageRegion"}) {
      text += fmt::format("*OpenUI *{0}/Paper: PickOne\n*OrderDependency: 10 AnySetup *{0}\n*Default{0}: A4\n", option);
      for (const Paper& paper : papers) text += fmt::format("*{0} {1}/{1}: \"\"\n", option, paper.name);
      text += fmt::format("*CloseUI: *{}\n", option);
    }
    const int side = queue.hasMargins ? 12 : 0, bottom = queue.hasMargins ? 20 : 0;
    text += "*DefaultImageableArea: A4\n*DefaultPaperDimension: A4\n";
    for (const auto& [name, width, height] : papers)
      text += fmt::format("*ImageableArea {0}/{0}: \"{1} {2} {3} {4}\"\n*PaperDimension {0}/{0}: \"{5} {6}\"\n", name,
                          side, bottom, width - side, height - side, width, height);
    if (const auto& [name, width, height] = queue.largestOfAnySize; width > 0)
      text += fmt::format(
          "*VariablePaperSize: True\n*MaxMediaWidth: \"{2}\"\n*MaxMediaHeight: \"{3}\"\n*HWMargins: {0} {1} {0} {0}\n"
          "*CustomPageSize True: \"\"\n*ParamCustomPageSize Width: 1 points 36 {2}\n"
          "*ParamCustomPageSize Height: 2 points 36 {3}\n*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
          "*ParamCustomPageSize HeightOffset: 4 points 0 0\n*ParamCustomPageSize Orientation: 5 int 0 0\n",
          side, bottom, width, height);
    return text;
  }

  TemporaryFolder m_folder;
  pid_t m_server = -1;
  int m_jobs = 0;
};

}  // namespace triaxlab::testing
