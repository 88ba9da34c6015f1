// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_DETAIL_SCOPED_FUNCTION_H
#define NORDIKA_DETAIL_SCOPED_FUNCTION_H

#include <functional>

namespace nordika::detail {

template <typename Signature>
class ScopedFunction;

/// A function that the library calls in its thread while this object lives. Objects
/// of one signature nest and end in any order.
template <typename Result, typename... Arguments>
class ScopedFunction<Result(Arguments...)> {
 public:
  explicit ScopedFunction(std::function<Result(Arguments...)> callee);
  ScopedFunction(const ScopedFunction&) = delete;
  ScopedFunction& operator=(const ScopedFunction&) = delete;
  ~ScopedFunction();

  /// The innermost one of this thread that does not run, or null.
  static ScopedFunction* current();

  bool isEmpty() const { return !function; }

  /// Calls the function. Meanwhile current() passes over this one.
  Result call(Arguments... arguments);

 private:
  static thread_local ScopedFunction* innermost;

  std::function<Result(Arguments...)> function;
  ScopedFunction* outer;
  bool isRunning = false;
};

}  // namespace nordika::detail

#endif
