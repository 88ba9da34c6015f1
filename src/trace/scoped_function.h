// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TRACE_SCOPED_FUNCTION_H
#define NORDIKA_TRACE_SCOPED_FUNCTION_H

#include <utility>

#include "nordika/detail/scoped_function.h"

namespace nordika::detail {

template <typename Result, typename... Arguments>
thread_local ScopedFunction<Result(Arguments...)>* ScopedFunction<Result(Arguments...)>::innermost =
    nullptr;

template <typename Result, typename... Arguments>
ScopedFunction<Result(Arguments...)>::ScopedFunction(std::function<Result(Arguments...)> callee)
    : function(std::move(callee)), outer(innermost) {
  innermost = this;
}

template <typename Result, typename... Arguments>
ScopedFunction<Result(Arguments...)>::~ScopedFunction() {
  ScopedFunction** link = &innermost;
  while (*link != this)
    link = &(*link)->outer;
  *link = outer;
}

template <typename Result, typename... Arguments>
ScopedFunction<Result(Arguments...)>* ScopedFunction<Result(Arguments...)>::current() {
  ScopedFunction* scope = innermost;
  while (scope != nullptr && scope->isRunning)
    scope = scope->outer;
  return scope;
}

template <typename Result, typename... Arguments>
Result ScopedFunction<Result(Arguments...)>::call(Arguments... arguments) {
  const struct Run {  // ends with an exception, too
    explicit Run(bool& state) : isRunning(state) { isRunning = true; }
    ~Run() { isRunning = false; }
    bool& isRunning;
  } run(isRunning);
  return function(arguments...);
}

}  // namespace nordika::detail

#endif
