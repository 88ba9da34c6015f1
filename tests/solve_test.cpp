// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// The program nordika-solve from outside: commands of the shell, and what they write.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <vector>

#include "capture.h"
#include "nordika/version.h"

namespace {

using ::testing::EndsWith;
using ::testing::StartsWith;

// The commands of the rows. `guide` solves an example of the guide; `circle` and `spiral` have
// golden traces; `file` solves a problem file of these lines.
constexpr char kCommands[] = R"(
solve() { "$program" "$@" $more; }
newton() { solve --method newton --start "$@"; }
guide() { newton 0 0 -a 0.4 --functions '2*x1-cos(x2)' '2*x2-sin(x1)-a' \
  --jacobian 2 'sin(x2)' '-cos(x1)' 2 "$@"; }
circle() { newton 1 2 -a 4 --functions 'x1^2+x2^2-a' x1-x2 --jacobian '2*x1' '2*x2' 1 -1 "$@"; }
spiral() { solve --start 0 0 --eps 0.001 --functions '0.5*cos(x2)' '0.5*sin(x1)+0.2' "$@"; }
root() { start=$1; shift; newton "$start" --functions x1^2-2 --jacobian "$@"; }
half() { solve --functions 0.5 --start 0 "$@"; }
check() { newton "$1" --functions "$2" --jacobian "$3" --check-jacobian $4 $5; }
file() { printf '%s\n' "$@" >p.toml; solve --config p.toml; }
long() { printf '%s' "$1"; yes "$2" | head -n 25000 | tr -d '\n'; }
limited() { (ulimit -f 1; "$@"); }
)";

struct Written {
  std::string output;
  std::string errors;
  int status;
};

std::string content(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

Written run(const std::string& command) {
  std::ofstream("script") << kCommands << "{ " << command << "\n} >output 2>errors\n";
  const int status = std::system("sh script");
  return {content("output"), content("errors"), WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

struct Row {
  const char* command;
  const char* output;
  const char* errorsEnd;
  int status;
};

class SolveTest : public ::testing::Test {
 protected:
  SolveTest() {
    unsetenv("more");
    setenv("LC_ALL", "ru_RU.UTF-8", 1);
    setenv("program", NORDIKA_SOLVE_PROGRAM, 1);
    setenv("examples", NORDIKA_EXAMPLES_DIR, 1);
    char name[] = "/tmp/nordika-solve-XXXXXX";
    directory = mkdtemp(name);
    std::filesystem::current_path(directory);
  }
  void TearDown() override {
    std::filesystem::current_path("/");
    std::filesystem::remove_all(directory);
  }

  void check(const std::vector<Row>& rows) {
    for (const auto& [command, output, errorsEnd, status] : rows) {
      const Written seen = run(command);
      EXPECT_EQ(seen.output, output) << command;
      EXPECT_EQ(seen.status, status) << command;
      if (*errorsEnd != '\0') {
        EXPECT_THAT(seen.errors, EndsWith(errorsEnd + std::string("\n"))) << command;
      } else {
        EXPECT_EQ(seen.errors, "") << command;
      }
    }
  }

  std::string directory;
};

constexpr char kStop[] = "stop (target accuracy achieved).\n";
constexpr char kGuide[] = "x1 = 0.456466\nx2 = 0.420389\niterations = 4\n";
constexpr char kCircle[] = "x1 = 1.41422\nx2 = 1.41422\niterations = 4\n";
constexpr char kHalf[] = "x1 = 0.5\niterations = 2\n";
constexpr char kFormat[] =
    "Error: expression has wrong format.\n\n"
    "Неправильный формат ввода выражения";
constexpr char kBadResult[] =
    "Error: result of expression evaluation is bad (equals to nan or inf).\n\n"
    "Значение выражения для заданных аргументов не определено либо слишком велико";

TEST_F(SolveTest, PrintsTheSolutionAsTheWindowShowsIt) {
  check({
      {"guide", kGuide, kStop, 0},
      {"solve --config $examples/newton.toml", kGuide, kStop, 0},
      // The default accuracy, and a = 0.
      {"solve --start 0 3 --functions '0.5*cos(x1)+a' '0.9*x2'",
       "x1 = 0.450184\nx2 = 8.85387e-05\niterations = 99\n", kStop, 0},
      {"spiral", "x1 = 0.456431\nx2 = 0.420516\niterations = 7\n", kStop, 0},
      {"half -q 0.9 --eps 1e-300 -a 1e5", kHalf, kStop, 0},
      {"half --eps 0.49", kHalf, kStop, 0},
      {"half --eps 0.51", "x1 = 0.5\niterations = 1\n", kStop, 0},
      {"half -q 0.9 --eps 4.51", "x1 = 0.5\niterations = 1\n", kStop, 0},
      {"solve --start 1 2 3 4 5 --functions '' a a^2 x2 x3 -a 2",
       "x1 = 0\nx2 = 2\nx3 = 4\nx4 = 2\nx5 = 4\niterations = 3\n", kStop, 0},
      {"solve --start $(seq 20) --functions $(seq 20) | tail -n 2", "x20 = 20\niterations = 1\n",
       kStop, 0},
      // Six digits of a; halves, which go away from zero; minus zero.
      {"solve --start 0 0 0 0 --functions a 200001/2 -200003/2 '0*(-1)' -a 0.1234567",
       "x1 = 0.123457\nx2 = 100001\nx3 = -100002\nx4 = 0\niterations = 2\n", kStop, 0},
      {"solve --start 1e5 -1.5E-3 +1 .5 -5. --functions x1 x2 x3 x4 x5",
       "x1 = 100000\nx2 = -0.0015\nx3 = 1\nx4 = 0.5\nx5 = -5\niterations = 1\n", kStop, 0},
      {"solve --version", "nordika-solve " NORDIKA_VERSION "\n", "", 0},
      {"half --help --eps no | grep -c -e --functions", "1\n", "", 0},
  });
}

TEST_F(SolveTest, TakesAnyWordOfAListButTheNameOfAnOption) {
  check({
      {"newton 0 0 --functions '-x1+1' -x2/4+3 --jacobian -1 '' 0 -1/4",
       "x1 = 1\nx2 = 12\niterations = 2\n", kStop, 0},
      {"newton 0 --jacobian '-cos(x1)' --functions '-sin(x1)'", "x1 = 0\niterations = 1\n", kStop,
       0},
      {"solve --functions=-a*x1/2+1 '-a*x2/2-1' '-(a)' -a 1 --start=0 -0 -.5 --eps=0.1",
       "x1 = 0.6875\nx2 = -0.6875\nx3 = -1\niterations = 5\n", kStop, 0},
      // No values of -a.
      {"solve --start 0 --functions -a1", "", "Неизвестная переменная: a1", 1},
      {"solve --start 0 --functions -a=1", "", kFormat, 1},
      {"solve -a1 --start 0 --functions ' -a'", "x1 = -1\niterations = 2\n", kStop, 0},
      {"file 'functions = [\"-a*x1/2+1\" , \"-a*x2/2-1\",' \"'-(a)'] # x\" 'start=[0 , -0,' '-.5' "
       "']' "
       "'' '; x' '; x' '# y' '# y' 'a = 1' 'eps = \"0.1\"' 'q=.5' 'log = \"a b\"' && tail -n 2 <'a "
       "b'",
       "x1 = 0.6875\nx2 = -0.6875\nx3 = -1\niterations = 5\n"
       "Solve nonlinear system with simple iterations method stop (target accuracy achieved).\n\n",
       "", 0},
      {"file 'method = newton' 'start = 0 0' 'functions = [\"-cos(x1)+1\", \"-x2/4+3\"]' "
       "'jacobian = [\"-1\", \"\", \"0\", \"-1/4\"]'",
       "x1 = 0\nx2 = 12\niterations = 2\n", kStop, 0},
      // The command line wins.
      {"printf 'functions = [\"a\", \"x1\"]\nstart = [1, 2]\na = 1\nlog = \"no/file\"' >p; "
       "solve --config p -a 2 --functions a --log l --start 2",
       "x1 = 2\niterations = 1\n", "", 0},
  });
}

TEST_F(SolveTest, WritesTheTraceOfTheWindow) {
  for (const std::string command : {"circle", "spiral"}) {
    const std::string trace =
        golden(command == "circle" ? "newton_two.txt" : "simple_iterations_two.txt");
    EXPECT_EQ(run(command).errors, trace);
    EXPECT_EQ(run("echo old >log; " + command + " --log log").errors, "");
    EXPECT_EQ(content("log"), trace);
    EXPECT_EQ(run("limited " + command + " --log log").status, 2);
    EXPECT_EQ(content("log"), trace.substr(0, 512));
  }
  EXPECT_EQ(run("root 0 '2*x1' --log log").errors,
            "Матрица Якоби для заданных аргументов является вырожденной\n");
  EXPECT_EQ(content("log"),
            "Solve nonlinear system with Newton method start.\nIteration: 1\n"
            "LUP decomposition start.\nError: matrix is singular.\n\n");
}

TEST_F(SolveTest, TellsOfAFailureAsTheWindowDoes) {
  check({
      {"solve --start 0 --functions 2x1", "", kFormat, 1},
      {"root 1 ' '", "", kFormat, 1},
      {"half --config p.toml; file 'functions = \"1,5\"' 'start = 0'", "", kFormat, 1},
      {"solve --start 0 --functions ж", "", kFormat, 1},
      {"solve --start 0 --functions 1/x1", "", kBadResult, 1},
      {"solve --start 0 --functions x1+x2", "",
       "Error: expression has unknown variable: x2\n\nНеизвестная переменная: x2", 1},
      {"solve --start 0 --functions 1-x1", "",
       "Error: iterations limit achieved.\n\n"
       "Превышено предельно допустимое число итераций: 100000",
       1},
      {"root 0 '2*x1'", "",
       "Error: matrix is singular.\n\nМатрица Якоби для заданных аргументов является вырожденной",
       1},
      {"half >/dev/full", "", "\nnordika-solve: cannot write the results: No space left on device",
       1},
      {"half >&-", "", "\nnordika-solve: cannot write the results: Bad file descriptor", 1},
      {"{ sleep 0.1; half; echo $? >&3; } 3>status | :; cat status", "1\n",
       "\nnordika-solve: cannot write the results: Broken pipe", 0},
      {"solve --help >/dev/full", "",
       "nordika-solve: cannot write the results: No space left on device", 1},
      {"half 2>&-", kHalf, "", 0},
      {"half 2>/dev/full", kHalf, "", 0},
      {"half <&- 2>&- --log log && wc -c <log", "x1 = 0.5\niterations = 2\n219\n", "", 0},
      {"half <&- >&- 2>&-", "", "", 1},
      {"half --log /dev/full", kHalf, "Не удалось полностью записать файл /dev/full.", 2},
      {"root 1 ' ' --log /dev/full", "",
       "Не удалось полностью записать файл /dev/full.\nНеправильный формат ввода выражения", 1},
      {"solve --start 0 --functions", "", "nordika-solve: --functions has no values", 2},
      {"half --log .", "", "Не удалось открыть файл . на запись.", 2},
      {"half --log no/file", "", "Не удалось открыть файл no/file на запись.", 2},
  });
}

// The faults without a text are told by CLI11.
constexpr const char* kWrongUsage[][2] = {
    {"solve", "--functions is missing"},
    {"solve --functions", "--functions has no values"},
    {"solve --functions --start 0", "--functions has no values"},
    {"solve --functions x1", "--start has 0 values instead of 1"},
    {"half 1", "--start has 2 values instead of 1"},
    {"newton 1 --functions x1", "--jacobian has 0 values instead of 1"},
    {"newton 1 2 --functions 1 2 --jacobian 1 0", "--jacobian has 2 values instead of 4"},
    {"half --jacobian 1", "--jacobian is only for --method newton"},
    {"half --check-jacobian", "--check-jacobian is only for --method newton"},
    {"root 1 1 -q 0.5", "-q is only for --method simple"},
    {"half --method Newton", R"(--method: "Newton" is neither simple nor newton)"},
    {"half --typo 1", "unknown option or argument --typo"},
    {"half --eps 1 '--a\nb'", "unknown option or argument --a?b"},
    {"half --eps 1 -h", "unknown option or argument -h"},
    {"half --eps 1 --eps=2", "--eps is given twice"},
    {"half --functions x1", "--functions is given twice"},
    {"half -a 1 -a 1", "-a is given twice"},
    {"half -a 1 -a2", ""},
    {"half -a 1 --eps", ""},
    {"half --eps 0", "--eps is not positive"},
    {"half --eps -1", "--eps is not positive"},
    {"half -q 1e-08", "-q is outside 1e-08 < q < 1 - 1e-08"},
    {"half -q 0.99999999", "-q is outside 1e-08 < q < 1 - 1e-08"},
    {"half --eps=", R"(--eps: "" is not a finite number)"},
    {"half --eps ' 1'", R"(--eps: " 1" is not a finite number)"},
    {"half -a 0x10", R"(-a: "0x10" is not a finite number)"},
    {"half -a 1e999", R"(-a: "1e999" is not a finite number)"},
    {"half -a nan", R"(-a: "nan" is not a finite number)"},
    {"half -a +-1", R"(-a: "+-1" is not a finite number)"},
    {"half -q 0,5", R"(-q: "0,5" is not a finite number)"},
    {"half -inf", R"(--start: "-inf" is not a finite number)"},
    {"half --config .", "cannot read ."},
    {"half --config nowhere", "cannot read nowhere"},
    {"half --config ''", "--config names no file"},
    {"half --config /proc/self/mem", "cannot read /proc/self/mem"},
    {"file 'b=1'", "p.toml: unknown key b"},
    {"file '--eps = 1'", "p.toml: unknown key --eps"},
    {"file 'a.b = 1'", "p.toml: unknown key a.b"},
    {"file 'config = p'", "p.toml: unknown key config"},
    {"file '[default]'", "p.toml: unknown section [default]"},
    {"file 'a='", R"(p.toml: no value in the line "a=")"},
    {"file 'eps = 1' 'eps = 1'", "p.toml: eps is given twice"},
    {"file 'eps = 1' 'a = 1' '\"eps\" = 1'", "p.toml: eps is given twice"},
    {"file 'start = [10, 20' 'a = 1'", "p.toml: start: the array does not end"},
    {"file 'functions = \"x1'", "p.toml: functions: the quotes do not agree"},
    {"file 'start = x'", R"(--start: "x" is not a finite number)"},
    {"file 'eps = [1, 2]'", ""},
    {"file 'start = []'", ""},
    {"file 'check-jacobian = maybe'", ""},
};

TEST_F(SolveTest, RefusesWrongUsageInOneLineAndTouchesNoFile) {
  setenv("more", "--log kept", 1);
  std::ofstream("kept") << "an old line";
  for (const char* const locale : {"C", "ru_RU.UTF-8"}) {
    setenv("LC_ALL", locale, 1);
    for (const auto& [command, fault] : kWrongUsage) {
      const Written seen = run(command);
      EXPECT_EQ(seen.output, "") << command;
      EXPECT_THAT(seen.errors, StartsWith("nordika-solve: " + std::string(fault))) << command;
      EXPECT_EQ(seen.errors.find('\n') + 1, seen.errors.size()) << command;
      if (*fault != '\0') {
        EXPECT_THAT(seen.errors, EndsWith(fault + std::string("\n"))) << command;
      }
      EXPECT_EQ(seen.status, 2) << command;
    }
  }
  EXPECT_EQ(content("kept"), "an old line");
}

TEST_F(SolveTest, TakesExpressionsOfAHundredKilobytes) {
  check({
      {"solve --start 0 --functions \"$(long 0.5 +0*x1)\"", kHalf, kStop, 0},
      {"solve --start 0 --functions \"$(long 2 x1x1)\"", "", kFormat, 1},
      {"solve --start 0 --eps \"$(long , 0000)\" --functions 0 2>&1 | wc -lc", "      1  100049\n",
       "", 0},
      {"file \"functions = ['$(long 0.5 +0*x1)']\" 'start = 0'", kHalf, kStop, 0},
      {"check 1 \"$(long x1 +0*1)\" \"$(long 2 +0*1)\"", "J[1][1]: typed 2, expected 1\n", "", 3},
  });
}

TEST_F(SolveTest, ChecksTheJacobiMatrixAtTheStart) {
  constexpr char kWrongSine[] = "J[1][2]: typed 0.4, expected -0.841471\n";
  check({
      {"guide --check-jacobian", "", "", 0},
      {"newton 0 1 -a 0.4 --functions '2*x1+cos(x2)' x2 --jacobian 2 a '' 1 --check-jacobian",
       kWrongSine, "", 3},
      {"newton 0 1 -a 0.4 --functions '2*x1+cos(x2)' x2 --jacobian 2 a '' 1 --check-jacobian "
       "--log log; echo $?; wc -c <log",
       "J[1][2]: typed 0.4, expected -0.841471\n3\n0\n", "", 0},
      {"newton 1 2 --functions x1*x2 x1^2 --jacobian x1 x2 '2*x1' x2/1e9 --check-jacobian",
       "J[1][1]: typed 1, expected 2\nJ[1][2]: typed 2, expected 1\n"
       "J[2][2]: typed 2e-09, expected 0\n",
       "", 3},
      {"check 1 x1-1 2", "J[1][1]: typed 2, expected 1\n", "", 3},
      {"check 2 'ln(x1)' 1/x1^2", "J[1][1]: typed 0.25, expected 0.5\n", "", 3},
      {"check -2 'ln(-x1)' -1/x1", "J[1][1]: typed 0.5, expected -0.5\n", "", 3},
      // As far as rounding shows it.
      {"check 1 65536+x1/2 9", "J[1][1]: typed 9, expected 0.499999\n", "", 3},
      {"check 1000 x1^3 '3.001*x1^2'", "J[1][1]: typed 3.001e+06, expected 3e+06\n", "", 3},
      {"check 0.123456789 '-sin(x1)/x1' 0", "J[1][1]: typed 0, expected 0.0410896\n", "", 3},
      {"check 0 'sqrt(x1)' 1", "", kBadResult, 1},
      {"check 0 x1 1/x1", "", kBadResult, 1},
      {"check 0 x1+y 1", "", "Неизвестная переменная: y", 1},
      {"check 0 x1 1, --log log; cat log", "Error: expression has wrong format.\n\n",
       "Неправильный формат ввода выражения", 0},
      {"check 1 x1 2 >/dev/full", "",
       "nordika-solve: cannot write the results: No space left on device", 1},
  });
}

// Right elements that a difference for the step of six digits misses.
TEST_F(SolveTest, CallsNoRightElementWrong) {
  const char* const rows[][3] = {
      {"0.99999", "arcsin(x1)", "1/sqrt(1-x1^2)"},
      {"12345.6", "sin(x1)", "cos(x1)"},
      {"1", "exp(500*x1)", "500*exp(500*x1)"},
      {"1", "x1^300", "300"},
      {"0", "x1*abs(x1)", "2*abs(x1)"},
      // The function swings from one argument of six digits to the next.
      {"10000", "sin(x1^2)", "2*x1*cos(x1^2)"},
      {"1", "sin(2e5*pi*x1)", "2e5*pi*cos(2e5*pi*x1)"},
      {"5", "arctg(tg(x1^10))", "10*x1^9"},
      {"432", "ctg(10.278*x1^2)", "0-20.556*x1/sin(10.278*x1^2)^2"},
      {"1211.56", "arctg(10*x1)+ctg(x1^4)/x1^5",
       "10/(1+100*x1^2)-4/x1^2/sin(x1^4)^2-5*ctg(x1^4)/x1^6"},
      // Rounding hides it.
      {"1", "1e15+x1-1e15", "1"},
      {"7348.23", "6e7+cos(x1)*0.1", "-sin(x1)*0.1"},
      {"1e-300", "x1^2", "2*x1"},
      {"1e4", "sin(1e13*x1)", "1e13*cos(1e13*x1)"},
      {"500", "1/cosh(x1)", "0-sinh(x1)/cosh(x1)^2"},
      {"33.6", "arcctg(sinh(x1))", "0-cosh(x1)/(1+sinh(x1)^2)"},
      {"1", "arcctg(2000/(x1-0.999999))", "2000/((x1-0.999999)^2+4e6)"},
      {"1", "x1+3e-16*sin(2e12*pi*x1)", "1+6e-4*pi*cos(2e12*pi*x1)"},
      {"5e-324", "x1", "1"},
  };
  for (const auto& [start, function, element] : rows) {
    const Written seen =
        run(std::string("check ") + start + " '" + function + "' '" + element + "'");
    EXPECT_EQ(seen.output, "") << function;
    EXPECT_EQ(seen.status, 0) << function;
  }
}

}  // namespace
