#pragma once

#include <arpa/inet.h>
#include <pwd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <fmt/format.h>
#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "support/temporary_folder.h"

namespace triaxlab::testing {

/// Slurm with this machine as its only node, reached on two ports of the loopback address. What it keeps is in its
/// folder, and it ends with the test. Needs the packages slurmctld, slurmd and slurm-client.
class JobServer {
 public:
  static bool isInstalled() {
    return std::system("PATH=$PATH:/usr/sbin; command -v slurmctld slurmd sbatch >/dev/null 2>&1") == 0;
  }

  JobServer() {
    for (const char* const folder : {"state", "spool"}) std::filesystem::create_directory(m_folder / folder);
    writeSettings();
    setenv("SLURM_CONF", (m_folder / "slurm.conf").c_str(), 1);
    for (const char* const daemon : {"slurmctld", "slurmd"})
      if (run(fmt::format("PATH=$PATH:/usr/sbin {}", daemon)) != 0)
        throw std::runtime_error(fmt::format("{} doesn't start", daemon));
  }
  JobServer(const JobServer&) = delete;
  JobServer& operator=(const JobServer&) = delete;
  ~JobServer() {
    run(fmt::format("cd '{}' && kill $(cat slurmd.pid slurmctld.pid)", m_folder.path().string()));
    unsetenv("SLURM_CONF");
  }

  /// Runs the script in the folder and waits for all of its tasks; the status of the worst.
  static int runToEnd(const std::filesystem::path& script, const std::filesystem::path& folder) {
    return run(fmt::format("timeout 100 sbatch --wait --chdir='{}' '{}'", folder.string(), script.string()));
  }

 private:
  static int run(const std::string& command) { return std::system(("(" + command + ") >/dev/null 2>&1").c_str()); }

  /// Free now; nobody else asks for it in the moment until it is taken.
  static int freePort() {
    const int channel = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    auto* const address = reinterpret_cast<sockaddr*>(&place);
    const bool isKnown = bind(channel, address, size) == 0 && getsockname(channel, address, &size) == 0;
    close(channel);
    return isKnown ? ntohs(place.sin_port) : 0;
  }
  static std::string hostName() {
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    const std::string whole = name.data();
    return whole.substr(0, whole.find('.'));
  }

  void writeSettings() const {
    m_folder.write(
        "slurm.conf",
        fmt::format("ClusterName=one\nSlurmctldHost={host}(127.0.0.1)\n"
                    "SlurmctldPort={port}\nSlurmdPort={nodePort}\n"
                    "AuthType=auth/none\nCredType=cred/none\nSlurmUser={user}\nSlurmdUser={user}\n"
                    "StateSaveLocation={folder}/state\nSlurmdSpoolDir={folder}/spool\n"
                    "SlurmctldPidFile={folder}/slurmctld.pid\nSlurmdPidFile={folder}/slurmd.pid\n"
                    "SlurmctldLogFile={folder}/slurmctld.log\nSlurmdLogFile={folder}/slurmd.log\n"
                    "ProctrackType=proctrack/pgid\nTaskPlugin=task/none\nSelectType=select/linear\n"
                    "MpiDefault=none\nSwitchType=switch/none\nReturnToService=2\n"
                    "NodeName={host} NodeAddr=127.0.0.1 State=UNKNOWN\n"
                    "PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP\n",
                    fmt::arg("host", hostName()), fmt::arg("port", freePort()), fmt::arg("nodePort", freePort()),
                    fmt::arg("user", getpwuid(geteuid())->pw_name), fmt::arg("folder", m_folder.path().string())));
  }

  TemporaryFolder m_folder;
};

}  // namespace triaxlab::testing
