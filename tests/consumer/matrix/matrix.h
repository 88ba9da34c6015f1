// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT
// A header and classes of the stranger's own, with names that the library knows.
class Program {};
class Trace {};
