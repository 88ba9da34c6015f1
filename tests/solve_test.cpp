// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// The program nordika-solve from outside: the transcripts of tests/solve.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

#include "nordika/version.h"
#include "outcome.h"

namespace {

struct Step {
  std::string command;
  std::string output;
  std::string errors;
  int status = 0;
};

// tests/solve/commands.sh explains the format.
std::vector<Step> stepsOf(const std::string& name) {
  std::ifstream transcript(NORDIKA_SOLVE_DIR "/" + name);
  std::vector<Step> steps;
  for (std::string line; std::getline(transcript, line);) {
    const char mark = line[0];
    if (mark == '\0' || mark == '#') continue;
    if (mark == '$') steps.emplace_back();
    Step& step = steps.back();
    const std::string rest = line.size() > 2 ? line.substr(2) : "";
    if (mark == '$' || mark == '>')
      step.command += rest + "\n";
    else if (mark == '!')
      step.errors += rest + "\n";
    else if (mark == '?')
      step.status = std::stoi(rest);
    else
      step.output += line + "\n";
  }
  return steps;
}

class SolveTest : public ::testing::Test {
 public:
  explicit SolveTest(const char* name) : transcript(name) {
    setenv("program", NORDIKA_SOLVE_PROGRAM, 1);
    setenv("version", NORDIKA_VERSION, 1);
    setenv("examples", NORDIKA_EXAMPLES_DIR, 1);
    setenv("golden", NORDIKA_GOLDEN_DIR, 1);
    char folder[] = "/tmp/nordika-solve-XXXXXX";
    directory = mkdtemp(folder);
  }

 protected:
  void TearDown() override {
    std::filesystem::current_path("/");
    std::filesystem::remove_all(directory);
  }

  void TestBody() override {
    const std::vector<Step> steps = stepsOf(transcript + ".txt");
    ASSERT_GE(steps.size(), 5);
    for (const char* const locale : {"C", "ru_RU.UTF-8"}) {
      setenv("LC_ALL", locale, 1);
      std::filesystem::create_directory(directory + '/' + locale);
      std::filesystem::current_path(directory + '/' + locale);
      for (const Step& step : steps)
        check(step);
    }
  }

  static void check(const Step& step) {
    std::ofstream("script") << ". " NORDIKA_SOLVE_DIR "/commands.sh\n{ " << step.command
                            << "} >output 2>errors\n";
    const int status = std::system("sh script");
    EXPECT_EQ(content("output"), step.output) << step.command;
    EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, step.status) << step.command;
    const std::string errors = content("errors");
    if (step.errors.starts_with("... "))
      EXPECT_THAT(errors, ::testing::EndsWith(step.errors.substr(4))) << step.command;
    else
      EXPECT_EQ(errors, step.errors) << step.command;
  }

  std::string transcript;
  std::string directory;
};

const bool areRegistered = [] {
  for (const char* const name :
       {"solutions", "words", "files", "failures", "usage", "documents", "plot", "jacobian"})
    ::testing::RegisterTest("SolveTest", name, nullptr, nullptr, __FILE__, __LINE__,
                            [name]() -> ::testing::Test* { return new SolveTest(name); });
  return true;
}();

TEST(Version, IsMadeOfItsNumbers) {
  std::ostringstream version;
  version << NORDIKA_VERSION_MAJOR << '.' << NORDIKA_VERSION_MINOR << '.' << NORDIKA_VERSION_PATCH;
  EXPECT_EQ(version.str(), NORDIKA_VERSION);
}

}  // namespace
