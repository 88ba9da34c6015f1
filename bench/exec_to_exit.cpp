// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// exec_to_exit PEER COMMAND [ARGUMENT ...]: starts both programs in turn, with the standard
// error stream going to a file. Prints two medians in milliseconds from exec to exit: of the
// command, and of the peer and the writes that the command makes to that stream.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kRuns = 501;

pid_t start(char** argv, int errors) {
  posix_spawn_file_actions_t streams;
  posix_spawn_file_actions_init(&streams);
  posix_spawn_file_actions_addopen(&streams, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&streams, errors, STDERR_FILENO);
  pid_t child = 0;
  if (posix_spawn(&child, argv[0], &streams, nullptr, argv, environ) != 0) std::exit(1);
  posix_spawn_file_actions_destroy(&streams);
  return child;
}

// In packet mode each read gets what one write has put there.
std::vector<std::string> writesOf(char** argv) {
  int ends[2];
  if (pipe2(ends, O_DIRECT | O_CLOEXEC) != 0) std::exit(1);
  const pid_t child = start(argv, ends[1]);
  close(ends[1]);
  std::vector<std::string> writes;
  char buffer[4096];
  for (ssize_t size = 0; (size = read(ends[0], buffer, sizeof buffer)) > 0;)
    writes.emplace_back(buffer, static_cast<std::size_t>(size));
  waitpid(child, nullptr, 0);
  close(ends[0]);
  return writes;
}

template <typename Action>
double milliseconds(int file, Action action) {
  if (ftruncate(file, 0) != 0 || lseek(file, 0, SEEK_SET) != 0) std::exit(1);
  const auto begin = std::chrono::steady_clock::now();
  action();
  const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - begin;
  return spent.count();
}

double median(std::vector<double>& times) {
  std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
  return times[kRuns / 2];
}

}  // namespace

int main(int, char** argv) {
  std::FILE* const temporary = std::tmpfile();
  if (temporary == nullptr) return 1;
  const int file = fileno(temporary);
  const std::vector<std::string> writes = writesOf(argv + 2);
  char* peer[] = {argv[1], nullptr};
  std::vector<double> ours;
  std::vector<double> peers;
  for (int i = 0; i < kRuns; ++i) {
    ours.push_back(milliseconds(file, [&] { waitpid(start(argv + 2, file), nullptr, 0); }));
    peers.push_back(milliseconds(file, [&] {
      waitpid(start(peer, file), nullptr, 0);
      for (const std::string& text : writes) {
        if (write(file, text.data(), text.size()) < 0) std::exit(1);
      }
    }));
  }
  std::printf("%.4f %.4f\n", median(ours), median(peers));
  return 0;
}
