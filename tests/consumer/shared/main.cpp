// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT
#include <cstdio>
#include <dlfcn.h>
#include <nordika/solver.h>

extern "C" {
double left(const char* derivative);
double right(const char* derivative);
}

int main() {
  void* const plugin = dlopen(PLUGIN, RTLD_NOW);
  using Side = double(const char*);
  for (Side* const side : {left, right, reinterpret_cast<Side*>(dlsym(plugin, "plugin"))}) {
    std::printf("%.4f", side("2*x1"));
    for (const char* const wrong : {"0*x1", "y", "2x1"}) {
      try {
        side(wrong);
      } catch (const MatrixIsSingular&) {
        std::printf(" singular");
      } catch (const ExpressionUnknownVariable& fault) {
        std::printf(" unknown %s", fault.name.c_str());
      } catch (const ExpressionWrongFormat&) {
        std::printf(" format");
      }
    }
    std::printf(", ");
  }
  // Buffered: lost if the end of the program is not reached.
  std::printf("%s\n", Expression::token_t_list[Expression::number].c_str());
}
