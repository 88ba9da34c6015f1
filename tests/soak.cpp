// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// script/soak runs these tests one at a time: soak --gtest_filter=*.NAME [RUNS]

#include <cstdio>
#include <filesystem>

#include "window_fixture.h"

namespace {

int runs = 1;

class Soak : public WindowTest {
 protected:
  Soak() { child<QDoubleSpinBox>("a")->setValue(4); }

  const std::vector<std::array<std::string, 5>> systems = rowsOf<5>("systems.txt");
  const std::vector<std::array<std::string, 5>> failures = rowsOf<5>("failures.txt");

  // Every system, then every failure but the one that takes longest.
  // Returns how many runs these are.
  int round() {
    for (const auto& [method, equations, cells, start, solved] : systems) {
      EXPECT_EQ(run(method, equations.c_str(), cells.c_str(), start.c_str()).text, "");
      EXPECT_EQ(results(), solved);
    }
    for (std::size_t i = 0; i + 1 < failures.size(); ++i) {
      const auto& [method, equation, cell, line, text] = failures[i];
      EXPECT_EQ(run(method, equation.c_str(), cell.c_str()).text, text);
      EXPECT_EQ(results(), ";;;;");
    }
    return static_cast<int>(systems.size() + failures.size()) - 1;
  }

  qsizetype logged(const char* words) const {
    return QByteArray::fromStdString(log()).count(words);
  }
};

long residentKiB() {
  return 4 * QString::fromStdString(content("/proc/self/statm")).section(' ', 1, 1).toLong();
}

long descriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(Soak, ManyRunsAreAllLoggedAndLeaveMemoryAndDescriptorsAlone) {
  int done = 0;
  const auto runUntil = [&](int count) {
    while (done < count && !HasFailure())
      done += round();
  };
  runUntil(runs / 10);
  const long memory = residentKiB();
  const long files = descriptors();
  runUntil(runs);
  const long grown = residentKiB() - memory;
  const long opened = descriptors() - files;
  std::printf("memory +%ld KiB after the first tenth, descriptors +%ld, %d runs\n", grown, opened,
              done);
  EXPECT_EQ(logged("(target accuracy achieved)") + logged("Error: "), done);
  // Fewer runs only warm caches up.
  EXPECT_TRUE(runs < 1000 || (grown <= 2048 && opened == 0));
}

TEST_F(Soak, AFullDiskCostsNeitherTheResultNorLaterRuns) {
  const auto& [method, equations, cells, start, solved] = systems[1];
  int done = 0;
  do {
    run(method, equations.c_str(), cells.c_str(), start.c_str());
    ASSERT_EQ(results(), solved);
  } while (seen.text.empty() && ++done < 1000);
  EXPECT_THAT(seen.text, ::testing::StartsWith("Не удалось полностью записать файл log-"));
  // Room again: the log may be cut by whoever looks after the disk.
  QFile::resize(directory.filePath(logName()), 0);
  EXPECT_EQ(run(method, equations.c_str(), cells.c_str(), start.c_str()).text, "");
  EXPECT_EQ(results(), solved);
  EXPECT_EQ(logged("achieved).\n\n"), 1);
  std::printf("full after %d runs\n", done);
}

TEST_F(Soak, OneRoundLeavesItsLog) {
  directory.setAutoRemove(false);
  round();
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  if (argc > 1) runs = std::stoi(argv[1]);
  return RUN_ALL_TESTS();
}
